#include "cli/view/ShownDiagram.h"

#include "cli/view/DiagramValues.h"
#include "cli/view/SectionPlot.h"
#include "cli/view/ShownWindow.h"
#include "tessara/platform/ui/windows/Pointer.h"

namespace tessara {

namespace {

bool Holds(const AXISSCALE& scale, double dMin, double dMax) {
    return scale.dFrom <= dMin && dMax <= scale.dTo;
}

/// Takes the zoom out of a diagram, and scales that do not show all of it.
std::optional<CZoomWindow> TakeZoom(DIAGRAM& diagram) {
    if (!diagram.zoom) {
        return std::nullopt;
    }
    const PLOTWINDOW zoom = *diagram.zoom;
    diagram.zoom.reset();
    if (diagram.x.scale && !Holds(*diagram.x.scale, zoom.dXMin, zoom.dXMax)) {
        diagram.x.scale.reset();
    }
    if (diagram.y.scale && !Holds(*diagram.y.scale, zoom.dYMin, zoom.dYMax)) {
        diagram.y.scale.reset();
    }
    return CZoomWindow{zoom.dXMax, zoom.dXMin, zoom.dYMax, zoom.dYMin};
}

bool HaveSameElements(const DIAGRAM& a, const DIAGRAM& b) {
    return a.binodal.parts.empty() == b.binodal.parts.empty() &&
           a.spinodal.parts.empty() == b.spinodal.parts.empty() &&
           a.critical.x.empty() == b.critical.x.empty() && a.multiphase.x.empty() == b.multiphase.x.empty();
}

/// The member that a switch turns on and off; null for a switch that the diagram does not have.
template <class RECORD>
auto FlagOf(RECORD& diagram, EPlotSwitch eSwitch) -> decltype(&diagram.bLegend) {
    switch (eSwitch) {
    case EPlotSwitch::legend:
        return &diagram.bLegend;
    case EPlotSwitch::caption:
        return &diagram.bCaption;
    case EPlotSwitch::monochrome:
        return &diagram.bMonochrome;
    case EPlotSwitch::multiphasePoints:
        break;
    }
    return diagram.binodal.parts.empty() ? nullptr : &diagram.bMultiphasePoints;
}

} // namespace

CShownDiagram::CShownDiagram(DIAGRAM diagram) : m_diagram(std::move(diagram)) {
    const auto zoom = TakeZoom(m_diagram);
    m_pOutput = std::make_unique<CViewedDiagram>(m_diagram);
    m_walk.emplace(*m_pOutput);
    m_readOuts.emplace(*m_pOutput, m_diagram);
    CShownDiagram::SetZoom(zoom);
}

CShownDiagram::~CShownDiagram() {
    m_readOuts->Destroy();
}

/// Which windows there are, and what stays of a diagram in the renderer, depends on the kinds of elements.
bool CShownDiagram::Follow(CShownPlot& next) {
    auto* const pNext = dynamic_cast<CShownDiagram*>(&next);
    if (!pNext || !HaveSameElements(m_diagram, pNext->m_diagram)) {
        return false;
    }
    m_diagram = std::move(pNext->m_diagram);
    m_pOutput->ShowDiagram(m_diagram);
    return true;
}

DRAWING CShownDiagram::GetDrawing() {
    return {[this](CDC& dc, const RECT& rc) { return m_pOutput->PaintOn(dc, rc); },
            [this](CDC& dc, const RECT& rc, const char* pszPath) {
                return m_pOutput->ExportOn(dc, rc, pszPath);
            }};
}

std::string CShownDiagram::GetValuesText() const {
    return DiagramValues(m_diagram, ShownWindow(GetScales(), GetZoom()), m_pOutput->GetFoundPoints());
}

bool CShownDiagram::Has(EPlotSwitch eSwitch) const {
    return FlagOf(m_diagram, eSwitch) != nullptr;
}

bool CShownDiagram::IsOn(EPlotSwitch eSwitch) const {
    const bool* const pFlag = FlagOf(m_diagram, eSwitch);
    return pFlag && *pFlag;
}

void CShownDiagram::Toggle(EPlotSwitch eSwitch) {
    if (bool* const pFlag = FlagOf(m_diagram, eSwitch)) {
        *pFlag = !*pFlag;
        ApplyFlags();
    }
}

void CShownDiagram::ApplyFlags() {
    m_pOutput->SetShowLegend(m_diagram.bLegend);
    m_pOutput->SetShowCaption(m_diagram.bCaption);
    m_pOutput->SetMonochrome(m_diagram.bMonochrome);
    if ((m_pOutput->AreMultiphasePointsVisible() != 0) != m_diagram.bMultiphasePoints) {
        m_pOutput->ToggleMultiphasePoints();
    }
}

void CShownDiagram::SetScales(const CAxisScales& scales) {
    const CAxisScales before = GetScales();
    const auto mark = GetMark(); // setting the data, though the same, empties the read-outs
    m_diagram.x.scale = scales.x;
    m_diagram.y.scale = scales.y;
    try {
        m_pOutput->ShowDiagram(m_diagram);
    } catch (...) {
        m_diagram.x.scale = before.x;
        m_diagram.y.scale = before.y;
        throw;
    }
    if (mark) {
        SetMark(*mark);
    }
}

std::optional<CZoomWindow> CShownDiagram::GetZoom() const {
    return m_pOutput->IsZoomed() ? std::optional(m_pOutput->GetZoomWindow()) : std::nullopt;
}

void CShownDiagram::SetZoom(const std::optional<CZoomWindow>& zoom) {
    if (zoom) {
        m_pOutput->ZoomTo(*zoom);
    } else {
        m_pOutput->ShowWhole();
    }
}

std::string CShownDiagram::DescribePoint(double dX, double dY) const {
    return DescribeIn(GetPixelMap(), QUANTITY(PlainText(m_diagram.x.symbol.value_or("x~N"))), dX,
                      QUANTITY(PlainText(m_diagram.y.symbol.value_or("f(x)~N"))), dY);
}

/// The renderer would leave the zoom with the mode.
void CShownDiagram::EnableZoomInMode(bool bEnable) {
    const auto zoom = GetZoom();
    m_pOutput->EnableZoomInMode(bEnable);
    SetZoom(zoom);
}

void CShownDiagram::OnLButtonDown(CPoint point) {
    FollowReadOuts();
    m_pOutput->OnLButtonDown(point, m_pView);
}

void CShownDiagram::OnMouseMove(CPoint point) {
    FollowReadOuts();
    m_pOutput->OnMouseMove(point, m_pView);
    m_bOverElement = m_pOutput->IsOverElement() && GetPixelMap().rect.PtInRect(point);
    OnSetCursor();
}

void CShownDiagram::OnLButtonUp(CPoint point) {
    m_pOutput->OnLButtonUp(point, m_pView);
}

bool CShownDiagram::OnSetCursor() {
    if (m_pOutput->OnSetCursor(m_pView, 0, 0)) {
        return true;
    }
    if (!GetReadOut()) {
        return false;
    }
    SetCursor(LoadCursor(m_bOverElement ? IDC_CROSS : IDC_ARROW));
    return true;
}

void CShownDiagram::Attach(CWnd* pView) {
    m_pView = pView;
    m_readOuts->Create(pView);
}

void CShownDiagram::Detach() {
    EnableZoomInMode(false);
    m_readOuts->Destroy();
    m_pView = nullptr;
}

void CShownDiagram::ShowReadOut(EReadOut eReadOut, bool bShow) {
    if (!m_pView) {
        return;
    }
    const auto mark = GetMark();
    m_readOuts->Show(eReadOut, bShow);
    FollowReadOuts();
    if (mark && bShow && m_pOutput->CanPick(mark->nPicked)) {
        SetMark(*mark);
    }
}

bool CShownDiagram::Walk(EWalk eWalk) {
    FollowReadOuts();
    return GetReadOut() && m_walk->Walk(eWalk);
}

std::optional<CPlotMark> CShownDiagram::GetMark() const {
    if (!GetReadOut() || !m_pOutput->IsMarked()) {
        return std::nullopt;
    }
    return CPlotMark{m_pOutput->GetMarkX(), m_pOutput->GetMarkY(), m_pOutput->GetPicked()};
}

void CShownDiagram::SetMark(const CPlotMark& mark) {
    FollowReadOuts();
    if (ShownWindow(GetScales(), std::nullopt).Contains(mark.dX, mark.dY)) {
        m_pOutput->PickPoint(mark.dX, mark.dY, mark.nPicked);
    }
}

std::unique_ptr<CShownPlot> CShownDiagram::OpenSection(int nColumn, std::unique_ptr<CTable> pTable) const {
    return pTable ? OpenSectionPlot(m_diagram, nColumn, *pTable) : nullptr;
}

} // namespace tessara
