#include "cli/view/DiagramReadOuts.h"

namespace tessara {

namespace {

/// What the renderer does with one of its windows.
struct READOUTWINDOW {
    void (CPhaseDiagramOutput::*pCreate)(CWnd* pParent);
    void (CPhaseDiagramOutput::*pDestroy)();
    void (CPhaseDiagramOutput::*pShow)(int bShow);
    int (CPhaseDiagramOutput::*pIsVisible)();
};

const READOUTWINDOW& WindowOf(EReadOut eReadOut) {
    using OUTPUT = CPhaseDiagramOutput;
    static constexpr READOUTWINDOW VALUE = {&OUTPUT::CreateGetValue, &OUTPUT::DestroyGetValue,
                                            &OUTPUT::ShowGetValue, &OUTPUT::IsGetValueVisible};
    static constexpr READOUTWINDOW EXTENDED = {
        &OUTPUT::CreateExtendedGetValue, &OUTPUT::DestroyExtendedGetValue, &OUTPUT::ShowExtendedGetValue,
        &OUTPUT::IsExtendedGetValueVisible};
    static constexpr READOUTWINDOW SECTION = {&OUTPUT::CreateCrossSection, &OUTPUT::DestroyCrossSection,
                                              &OUTPUT::ShowCrossSection, &OUTPUT::IsCrossSectionVisible};
    switch (eReadOut) {
    case EReadOut::extendedGetValue:
        return EXTENDED;
    case EReadOut::crossSection:
        return SECTION;
    case EReadOut::getValue:
        break;
    }
    return VALUE;
}

} // namespace

CDiagramReadOuts::CDiagramReadOuts(CViewedDiagram& output, const DIAGRAM& diagram)
    : m_output(output), m_bSection(!diagram.binodal.parts.empty()),
      m_bPoints(m_bSection || !diagram.spinodal.parts.empty() || !diagram.critical.x.empty()),
      m_bElements(m_bPoints || !diagram.multiphase.x.empty()) {}

bool CDiagramReadOuts::Offers(EReadOut eReadOut) const {
    switch (eReadOut) {
    case EReadOut::extendedGetValue:
        return m_bElements;
    case EReadOut::crossSection:
        return m_bSection;
    case EReadOut::getValue:
        break;
    }
    return m_bPoints;
}

void CDiagramReadOuts::Create(CWnd* pView) {
    for (const EReadOut eReadOut : READ_OUTS) {
        if (Offers(eReadOut)) {
            (m_output.*WindowOf(eReadOut).pCreate)(pView);
        }
    }
}

void CDiagramReadOuts::Destroy() {
    for (const EReadOut eReadOut : READ_OUTS) {
        (m_output.*WindowOf(eReadOut).pDestroy)();
    }
}

void CDiagramReadOuts::Show(EReadOut eReadOut, bool bShow) {
    if (!Offers(eReadOut)) {
        return;
    }
    for (const EReadOut eOther : READ_OUTS) {
        if (bShow && eOther != eReadOut && IsVisible(eOther)) {
            (m_output.*WindowOf(eOther).pShow)(0);
        }
    }
    (m_output.*WindowOf(eReadOut).pShow)(bShow);
}

bool CDiagramReadOuts::IsVisible(EReadOut eReadOut) const {
    return (m_output.*WindowOf(eReadOut).pIsVisible)() != 0;
}

} // namespace tessara
