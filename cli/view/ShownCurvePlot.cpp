#include "cli/view/ShownCurvePlot.h"

#include <algorithm>
#include <limits>

#include "cli/view/PictureSurface.h"
#include "cli/view/PlainText.h"
#include "cli/view/ShownWindow.h"
#include "cli/view/ValuesText.h"
#include "tessara/platform/base/Number.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/Pointer.h"
#include "tessara/plot/LibraryCursors.h"

namespace tessara {

CShownCurvePlot::CShownCurvePlot(PLOTOPTIONS options, PLOTSOURCE source)
    : m_options(std::move(options)), m_source(std::move(source)), m_walk(m_plot) {
    m_plot.CutToAxes(TRUE);
    m_plot.AnnounceChanges(TRUE); // the data shown stay as they are until others are set
    ShowData({});
    m_bLegendOffered = m_pData->GetNumCurves() > 1 || m_plot.m_bShowLegend;
}

CShownCurvePlot::~CShownCurvePlot() {
    CShownCurvePlot::Detach();
}

/// Tried on another plot first, since this one is to stay as it is when the scales cannot be shown.
void CShownCurvePlot::ShowData(const CAxisScales& scales) {
    const CPlotSetup setup(m_options, CPlotScales(scales.x, scales.y));
    const CPlotData cut(m_source.curves, m_source.symbols, setup.GetWindow(), PlotGaps::Stay);
    COutputCurve trial;
    setup.ApplyTo(trial, cut);
    auto pData = std::make_unique<CPlotData>(m_source.curves, m_source.symbols, PLOTWINDOW(), PlotGaps::Stay);
    setup.ApplyTo(m_plot, *pData);
    m_pData = std::move(pData);
    m_walk.SetData(*m_pData);
    m_scales = scales;
    FitAxis(trial);
}

/// Beside an axis with a scale, the automatic one is that of the data which the scale shows.
void CShownCurvePlot::FitAxis(COutputCurve& cut) {
    if (m_scales.x.has_value() == m_scales.y.has_value()) {
        return;
    }
    CDC nowhere; // painting chooses the scale
    cut.Paint(&nowhere, {0, 0, 1, 1}, nullptr);
    if (m_scales.x) {
        m_plot.m_FunctionScale = cut.m_FunctionScale;
        m_plot.m_nFlags |= OCF_CUSTOMFUNCTION;
    } else {
        m_plot.m_ArgumentScale = cut.m_ArgumentScale;
        m_plot.m_nFlags |= OCF_CUSTOMARGUMENT;
    }
}

bool CShownCurvePlot::Follow(CShownPlot& next) {
    auto* const pNext = dynamic_cast<CShownCurvePlot*>(&next);
    if (!pNext) {
        return false;
    }
    const COutputCurve& plot = pNext->m_plot;
    m_plot.SetNames(plot.m_strCurveName, plot.m_strCurveSymbol, plot.m_strArgumentName,
                    plot.m_strCurveArgument); // which a file without names leaves
    m_plot.m_bShowLegend = plot.m_bShowLegend;
    m_plot.m_bShowCaption = plot.m_bShowCaption;
    m_plot.m_bMonochrome = plot.m_bMonochrome;
    m_options = std::move(pNext->m_options);
    m_source = std::move(pNext->m_source);
    m_bLegendOffered = pNext->m_bLegendOffered;
    SetScales(pNext->m_scales);
    return true;
}

std::string CShownCurvePlot::GetName() const {
    return std::string(m_plot.m_strCurveName.View());
}

DRAWING CShownCurvePlot::GetDrawing() {
    return {[this](CDC& dc, const RECT& rc) {
                const auto paint = [&] { return m_plot.Paint(&dc, rc, nullptr); };
                const int nPainted = IsPictureSurface(dc) ? PaintPicture(paint) : paint();
                m_zoomPointer.OnPaint(dc);
                return nPainted;
            },
            [this](CDC& dc, const RECT& rc, const char* pszPath) {
                return PaintPicture([&] { return m_plot.Export(&dc, rc, pszPath); });
            }};
}

/// A picture has no mark, and the pixels of the mouse stay those of the screen.
int CShownCurvePlot::PaintPicture(const std::function<int()>& fnPaint) {
    const CKept client(m_plot.m_rcClient);
    const CKept device(m_plot.m_rcPlotDevice);
    const CKept flags(m_plot.m_nFlags);
    m_plot.m_nFlags &= ~DWORD{OCF_MARKSHOWN};
    return fnPaint();
}

std::string CShownCurvePlot::GetValuesText() const {
    CValuesText text;
    for (const CColumnFile& file : m_source.curves) {
        AddValues(text, file);
    }
    if (m_source.symbols) {
        AddValues(text, *m_source.symbols);
    }
    return text.Make();
}

/// The rows of which something is shown.
void CShownCurvePlot::AddValues(CValuesText& text, const CColumnFile& file) const {
    const PLOTWINDOW window = ShownWindow(m_scales, GetZoom());
    const std::vector<COLUMN>& functions = file.GetFunctions();
    std::vector<double> x;
    std::vector<std::vector<double>> columns(functions.size());
    for (std::size_t nRow = 0; nRow < file.GetAbscissa().m_Values.size(); ++nRow) {
        const double dX = file.GetAbscissa().m_Values[nRow];
        const auto isShown = [&](const COLUMN& column) { return window.Contains(dX, column.m_Values[nRow]); };
        if (std::none_of(functions.begin(), functions.end(), isShown)) {
            continue;
        }
        x.push_back(dX);
        for (std::size_t i = 0; i < functions.size(); ++i) {
            columns[i].push_back(isShown(functions[i]) ? functions[i].m_Values[nRow]
                                                       : std::numeric_limits<double>::quiet_NaN());
        }
    }
    const std::string& strAbscissa = file.GetAbscissa().strName;
    text.AddColumn(strAbscissa.empty() ? GetArgumentTitle() : strAbscissa, std::move(x));
    for (std::size_t i = 0; i < functions.size(); ++i) {
        const std::string strNumber = functions.size() > 1 ? FormatText(" %zu", i + 1) : "";
        text.AddColumn(functions[i].strName.empty() ? GetFunctionTitle() + strNumber : functions[i].strName,
                       std::move(columns[i]));
    }
}

std::string CShownCurvePlot::GetArgumentTitle() const {
    const bool bNamed = !m_options.argumentSymbol && !m_pData->GetArgumentName().empty();
    return bNamed ? m_pData->GetArgumentName() : PlainText(m_plot.m_strCurveArgument.View());
}

/// Of several functions the names are a list, which is no name of a value.
std::string CShownCurvePlot::GetFunctionTitle() const {
    if (m_options.symbol || m_pData->GetFunctionNames().empty()) {
        return PlainText(m_plot.m_strCurveSymbol.View());
    }
    return m_walk.GetCount() == 1 ? m_pData->GetFunctionNames() : "value";
}

std::string CShownCurvePlot::DescribePoint(double dX, double dY) const {
    return DescribeIn(GetPixelMap(), QUANTITY(GetArgumentTitle()), dX, QUANTITY(GetFunctionTitle()), dY);
}

int* CShownCurvePlot::FindSwitch(EPlotSwitch eSwitch) const {
    switch (eSwitch) {
    case EPlotSwitch::legend:
        return m_bLegendOffered ? &m_plot.m_bShowLegend : nullptr;
    case EPlotSwitch::caption:
        return &m_plot.m_bShowCaption;
    case EPlotSwitch::monochrome:
        return &m_plot.m_bMonochrome;
    case EPlotSwitch::multiphasePoints:
        break;
    }
    return nullptr;
}

bool CShownCurvePlot::Has(EPlotSwitch eSwitch) const {
    return FindSwitch(eSwitch) != nullptr;
}

bool CShownCurvePlot::IsOn(EPlotSwitch eSwitch) const {
    const int* const pSwitch = FindSwitch(eSwitch);
    return pSwitch && *pSwitch;
}

void CShownCurvePlot::Toggle(EPlotSwitch eSwitch) {
    if (int* const pSwitch = FindSwitch(eSwitch)) {
        *pSwitch = !*pSwitch;
        CPlotSetup(m_options, {}).FitTitles(m_plot, *m_pData);
    }
}

void CShownCurvePlot::SetScales(const CAxisScales& scales) {
    const int bLegend = m_plot.m_bShowLegend;
    const int bCaption = m_plot.m_bShowCaption;
    const int bMonochrome = m_plot.m_bMonochrome;
    ShowData(scales);
    m_plot.m_bShowLegend = bLegend;
    m_plot.m_bShowCaption = bCaption;
    m_plot.m_bMonochrome = bMonochrome;
    CPlotSetup(m_options, {}).FitTitles(m_plot, *m_pData);
}

std::optional<CZoomWindow> CShownCurvePlot::GetZoom() const {
    return m_plot.IsZoomed() ? std::optional(m_plot.GetZoomWindow()) : std::nullopt;
}

void CShownCurvePlot::SetZoom(const std::optional<CZoomWindow>& zoom) {
    if (zoom) {
        m_plot.ZoomTo(*zoom);
    } else {
        m_plot.ShowWhole();
    }
}

void CShownCurvePlot::OnLButtonDown(CPoint point) {
    if (m_zoomPointer.OnLButtonDown(point, GetPixelMap(), *m_pView)) {
        return;
    }
    if (m_plot.IsGetValueVisible()) {
        m_walk.PickByColor(CClientDC(m_pView).GetPixel(point.x, point.y));
        m_plot.OnMouseClick(point, m_pView);
    }
}

void CShownCurvePlot::OnMouseMove(CPoint point) {
    if (m_zoomPointer.OnMouseMove(point, GetPixelMap())) {
        return;
    }
    m_plot.OnMouseMove(point, m_pView);
    m_bOverCurve = (m_plot.m_nFlags & OCF_OVERCURVE) && m_plot.m_rcPlotDevice.PtInRect(point);
    OnSetCursor();
}

void CShownCurvePlot::OnLButtonUp(CPoint point) {
    if (const auto window = m_zoomPointer.OnLButtonUp(point, GetPixelMap())) {
        m_plot.ZoomTo(*window);
        m_pView->Invalidate();
    }
}

bool CShownCurvePlot::OnSetCursor() {
    if (m_zoomPointer.OnSetCursor()) {
        return true;
    }
    if (!m_plot.IsGetValueVisible()) {
        return false;
    }
    SetCursor(LoadCursor(m_bOverCurve ? UINT{CURSOR_READ_OUT} : UINT{IDC_ARROW}));
    return true;
}

void CShownCurvePlot::Attach(CWnd* pView) {
    m_pView = pView;
    m_plot.CreateGetValue(pView);
}

void CShownCurvePlot::Detach() {
    m_zoomPointer.Enable(false);
    m_plot.DestroyGetValue();
    m_pView = nullptr;
}

void CShownCurvePlot::ShowReadOut(EReadOut eReadOut, bool bShow) {
    if (Offers(eReadOut)) {
        m_plot.ShowGetValue(bShow);
    }
}

bool CShownCurvePlot::IsReadOutVisible(EReadOut eReadOut) const {
    return Offers(eReadOut) && m_plot.IsGetValueVisible();
}

bool CShownCurvePlot::Walk(EWalk eWalk) {
    return m_plot.IsGetValueVisible() && m_walk.Walk(eWalk);
}

std::optional<CPlotMark> CShownCurvePlot::GetMark() const {
    if (!m_plot.IsGetValueVisible() || !(m_plot.m_nFlags & OCF_MARKSHOWN)) {
        return std::nullopt;
    }
    return CPlotMark{m_plot.m_dMarkArgument, 0, static_cast<DWORD>(m_walk.GetFunction())};
}

void CShownCurvePlot::SetMark(const CPlotMark& mark) {
    if (m_plot.IsGetValueVisible()) {
        m_walk.Pick(static_cast<int>(mark.nPicked));
        if (GetMark() && m_plot.m_dMarkArgument == mark.dX) {
            m_plot.DisplayValues(mark.dX); // leaves what the user is typing
        } else {
            m_plot.PickArgument(mark.dX);
        }
    }
}

} // namespace tessara
