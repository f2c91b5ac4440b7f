#include <array>

#include "tessara/phasediagram/CrossSectionDialog.h"
#include "tessara/phasediagram/ElementColors.h"
#include "tessara/phasediagram/NearestRow.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/base/Number.h"
#include "tessara/platform/ui/threads/WinThread.h"

// The read-out windows of a diagram, and the numbers that they show.

namespace {

template <class DIALOG>
std::unique_ptr<DIALOG> MakeDialog(CPhaseDiagramOutput& owner, CWnd* pParent) {
    auto pDialog = std::make_unique<DIALOG>(pParent);
    return pDialog->CreateFor(owner, pParent) ? std::move(pDialog) : nullptr;
}

bool IsVisible(const CWnd* pWnd) {
    return pWnd && pWnd->IsWindowVisible();
}

} // namespace

void CPhaseDiagramOutput::CreateGetValue(CWnd* pParent) {
    DestroyGetValue();
    m_pParentWnd = pParent;
    m_pGetValueDialog = MakeDialog<tessara::CPointReadOut>(*this, pParent);
}

void CPhaseDiagramOutput::CreateExtendedGetValue(CWnd* pParent) {
    DestroyExtendedGetValue();
    m_pParentWnd = pParent;
    m_pExtendedGetValueDialog = MakeDialog<tessara::CElementReadOut>(*this, pParent);
}

void CPhaseDiagramOutput::CreateCrossSection(CWnd* pParent) {
    DestroyCrossSection();
    m_pParentWnd = pParent;
    m_pCrossSectionDialog = MakeDialog<tessara::CCrossSectionDialog>(*this, pParent);
}

/// A window that is not visible any more may have gone with its parent.
template <class DIALOG>
void CPhaseDiagramOutput::DestroyReadOut(std::unique_ptr<DIALOG>& pDialog) {
    if (!pDialog) {
        return;
    }
    if (pDialog->IsWindowVisible()) {
        ShowReadOut(pDialog.get(), false, 0);
    }
    pDialog->DestroyWindow();
    pDialog.reset();
    if (!IsAnyReadOutVisible()) {
        m_nFlags &= ~DWORD{MF_MARKSHOWN | MF_READOUT | MF_CROSSSECTION};
    }
}

void CPhaseDiagramOutput::DestroyGetValue() {
    DestroyReadOut(m_pGetValueDialog);
}

void CPhaseDiagramOutput::DestroyExtendedGetValue() {
    DestroyReadOut(m_pExtendedGetValueDialog);
}

void CPhaseDiagramOutput::DestroyCrossSection() {
    DestroyReadOut(m_pCrossSectionDialog);
}

int CPhaseDiagramOutput::IsGetValueVisible() {
    return IsVisible(m_pGetValueDialog.get());
}

int CPhaseDiagramOutput::IsExtendedGetValueVisible() {
    return IsVisible(m_pExtendedGetValueDialog.get());
}

int CPhaseDiagramOutput::IsCrossSectionVisible() {
    return IsVisible(m_pCrossSectionDialog.get());
}

bool CPhaseDiagramOutput::IsAnyReadOutVisible() {
    return IsGetValueVisible() || IsExtendedGetValueVisible() || IsCrossSectionVisible();
}

void CPhaseDiagramOutput::ShowGetValue(int bShow) {
    ShowReadOut(m_pGetValueDialog.get(), bShow, MF_READOUT);
}

void CPhaseDiagramOutput::ShowExtendedGetValue(int bShow) {
    ShowReadOut(m_pExtendedGetValueDialog.get(), bShow, MF_READOUT);
}

void CPhaseDiagramOutput::ShowCrossSection(int bShow) {
    ShowReadOut(m_pCrossSectionDialog.get(), bShow, MF_READOUT | MF_CROSSSECTION);
}

/// Hiding any window ends picking; showing one says what can be picked.
void CPhaseDiagramOutput::ShowReadOut(tessara::CReadOutDialog* pDialog, bool bShow, DWORD nFlags) {
    if (pDialog) {
        pDialog->ShowWindow(bShow ? SW_SHOW : SW_HIDE);
    }
    if (!bShow) {
        RemoveMark();
    } else if (pDialog) {
        pDialog->SetSymbols(m_strAbscissaSymbol, m_strOrdinateSymbol);
    }
    m_nFlags &= ~DWORD{MF_READOUT | MF_CROSSSECTION};
    if (bShow) {
        m_nFlags |= nFlags;
    } else {
        InvalidateParent();
    }
}

/// A table that no curve is made from any more may have gone.
CMultipartTable* CPhaseDiagramOutput::GetSection() const {
    return m_bCloudPointCurveOfSection || m_bShadowCurveOfSection ? m_pBinodalSection : nullptr;
}

/// Values of former data leave the windows at once. The mark stays on the screen, beside the picture that it
/// belongs to, until that is painted anew.
void CPhaseDiagramOutput::ForgetReadOut() {
    for (tessara::CPointReadOut* const pDialog : GetPointReadOuts()) {
        if (pDialog) {
            pDialog->Clear();
        }
    }
    m_ElementValueLines.RemoveAll();
    if (m_pExtendedGetValueDialog) {
        m_pExtendedGetValueDialog->ShowLines(m_ElementValueLines);
    }
    m_bMarkOutdated = (m_nFlags & MF_MARKSHOWN) != 0;
}

std::array<tessara::CPointReadOut*, 2> CPhaseDiagramOutput::GetPointReadOuts() const {
    return {m_pGetValueDialog.get(), m_pCrossSectionDialog.get()};
}

tessara::CPointReadOutSource CPhaseDiagramOutput::GetReadOutSource() const {
    return {m_strAbscissaFormat,    m_strOrdinateFormat,   GetSection(), m_pFoundMultiphasePoints.get(),
            m_CloudPointColumns.nX, m_CloudPointColumns.nY};
}

void CPhaseDiagramOutput::ListPoint(double dX, double dY) {
    using tessara::EPointReadOut;
    EPointReadOut eReadOut = EPointReadOut::coordinates;
    if (IsCloudPointCurveSelected()) {
        eReadOut = m_bMultiphasePointsVisible ? EPointReadOut::multiphasePoint : EPointReadOut::cloudPoint;
    } else if (m_bMultiphasePointsVisible && m_crSelected == tessara::FOUND_MULTIPHASE_POINT_COLOR) {
        eReadOut = EPointReadOut::multiphasePoint; // its dot covers the curve just where one asks
    } else if (m_bCriticalPointsClicking && m_crSelected == tessara::CRITICAL_POINT_COLOR) {
        eReadOut = EPointReadOut::criticalPoint;
    }
    for (tessara::CPointReadOut* const pDialog : GetPointReadOuts()) {
        if (pDialog) {
            pDialog->SetValues(dX, dY, eReadOut, GetReadOutSource());
        }
    }
}

void CPhaseDiagramOutput::DisplayElementValues(int nElement, CPoint pt) {
    const tessara::CPixelMap map = GetPixelMap();
    ListElement(nElement, map.GetX(pt.x), map.GetY(pt.y));
}

void CPhaseDiagramOutput::ListElement(int nElement, double dX, double dY) {
    const std::unique_ptr<CTable> pRow = FindElementRow(nElement, dX, dY);
    m_ElementValueLines.RemoveAll();
    for (const auto& pFormat : m_ElementFormats) {
        if (!pRow || pFormat->nElement != nElement || pFormat->nColumn >= pRow->m_nDimensions) {
            continue;
        }
        m_ElementValueLines.Add(
            pFormat->nColumn < 0
                ? pFormat->strFormat
                : CString(
                      tessara::FormatValue(pFormat->strFormat, pRow->m_ppData[pFormat->nColumn][0]).c_str()));
    }
    if (m_pExtendedGetValueDialog) {
        m_pExtendedGetValueDialog->ShowLines(m_ElementValueLines);
    }
}

std::unique_ptr<CTable> CPhaseDiagramOutput::FindElementRow(int nElement, double dX, double dY) const {
    const auto inSection = [&](CMultipartTable* pTable, tessara::CColumnPair columns) {
        return std::unique_ptr<CTable>(pTable ? NearestSectionRow(dX, dY, columns.nX, columns.nY, pTable)
                                              : nullptr);
    };
    const auto inTable = [&](CTable* pTable, tessara::CColumnPair columns) {
        return std::unique_ptr<CTable>(pTable ? NearestTableRow(dX, dY, columns.nX, columns.nY, pTable)
                                              : nullptr);
    };
    switch (nElement) {
    case ELEMENT_SPINODAL:
        return inSection(m_pSpinodal ? m_pSpinodalSection : nullptr, m_SpinodalColumns);
    case ELEMENT_CLOUD_POINT_CURVE:
    case ELEMENT_CLOUD_POINT_CURVE_NON_PHYSICAL:
        return inSection(GetSection(), m_CloudPointColumns);
    case ELEMENT_CRITICAL_POINTS:
        return inTable(m_pCriticalPoints ? m_pCriticalPointTable : nullptr, m_CriticalPointColumns);
    case ELEMENT_MULTIPHASE_POINTS:
        return inTable(m_pMultiphasePoints ? m_pMultiphasePointTable : nullptr, m_MultiphasePointColumns);
    default:
        return nullptr;
    }
}

/// The receiver is told the cloud-point abscissa also where the shadow curve's was held. A shadow curve that
/// stayed when the table was replaced may have columns that this one lacks.
int CPhaseDiagramOutput::RequestCrossSection(int bAtAbscissa) {
    CMultipartTable* const pTable = GetSection();
    const tessara::CColumnPair columns = IsCloudPointCurveSelected() ? m_CloudPointColumns : m_ShadowColumns;
    const int nHeld = bAtAbscissa ? columns.nX : columns.nY;
    if ((!IsCloudPointCurveSelected() && !IsShadowCurveSelected()) || !pTable ||
        nHeld >= pTable->m_nDimensions) {
        return 0;
    }
    std::unique_ptr<CTable> pSection(pTable->Value(nHeld, bAtAbscissa ? m_dMarkX : m_dMarkY));
    if (!pSection) {
        pSection = std::make_unique<CTable>(pTable->m_nDimensions);
    }
    CWinThread* const pThread = AfxGetThread();
    CWnd* const pMain = pThread ? pThread->m_pMainWnd : nullptr;
    const int nTold = bAtAbscissa ? m_CloudPointColumns.nX : nHeld;
    if (pMain && pMain->PostMessage(WM_CROSSSECTION, static_cast<WPARAM>(nTold),
                                    reinterpret_cast<LPARAM>(pSection.get()))) {
        static_cast<void>(pSection.release()); // the receiver's now
    }
    return 1;
}
