#include <new>
#include <string>

#include "tessara/curveplot/CurveTraces.h"
#include "tessara/curveplot/OutputCurve.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/Number.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/WaitCursor.h"
#include "tessara/platform/vellum/Stippled.h"
#include "tessara/plot/AxisGrid.h"
#include "tessara/plot/Canvas.h"
#include "tessara/plot/IndexedText.h"
#include "tessara/plot/Page.h"
#include "tessara/plot/PlaceableMetafile.h"
#include "tessara/plot/PlotArea.h"
#include "tessara/plot/PlotMap.h"
#include "tessara/plot/PlotText.h"
#include "tessara/plot/SavedState.h"

using tessara::CCanvas;
using tessara::CPlotArea;
using tessara::CPlotMap;
using tessara::CSelection;

namespace {

/// The legend box beside the plot area, and its rows.
struct CLegend {
    const CPlotArea& area;

    RECT Box(int nRows) const {
        return {area.Right() + 200, area.nTop - MARGIN, area.Right() + 1400,
                area.nTop + MARGIN + nRows * ROW};
    }
    POINT Number(int nRow) const { return {area.Right() + 280, area.nTop + MARGIN + nRow * ROW}; }
    RECT Sample(int nRow, int nNumberWidth) const {
        const int nTop = area.nTop + 80 + nRow * ROW;
        return {area.Right() + 440 + nNumberWidth, nTop, area.Right() + 1200, nTop + 16};
    }

    static constexpr int MARGIN = 24;
    static constexpr int ROW = 200;
};

constexpr int SYMBOL_REACH = 32;

RECT AroundPoint(POINT point) {
    return {point.x - SYMBOL_REACH, point.y - SYMBOL_REACH, point.x + SYMBOL_REACH, point.y + SYMBOL_REACH};
}

} // namespace

int COutputCurve::Paint(CDC* pDC, RECT rc, CMetaFileDC* pMetaDC) {
    if (!PrepareCurves()) {
        return 0;
    }
    const CPlotMap map = GetPlotMap();
    const tessara::CSavedState saved(*pDC);
    m_rcClient = rc;
    CenterDC(pDC, m_rcClient);
    const CPlotArea area = CPlotArea::ForLegend(m_bShowLegend != 0);
    RememberPlotDevice(*pDC, area);
    const CCanvas canvas(pDC, pMetaDC);
    const tessara::CPaletteScope palette(*pDC,
                                         {m_Colors.GetData(), static_cast<std::size_t>(m_Colors.GetSize())});

    DrawFrames(canvas, area);
    DrawGrids(canvas, area);
    DrawTitles(pDC, area, pMetaDC);
    DrawCurves(pDC, map, pMetaDC);
    DrawSymbols(canvas, map);
    PaintEmptyRect(pDC, nullptr, pMetaDC);
    DrawMarkAgain(pDC, pMetaDC);
    return 1;
}

CPlotMap COutputCurve::GetPlotMap() const {
    return {CPlotArea::ForLegend(m_bShowLegend != 0).Rect(), m_ArgumentScale, m_FunctionScale};
}

/// What curves are cut to, if anything.
std::optional<tessara::CZoomWindow> COutputCurve::GetCutWindow() const {
    if (m_bZoomed) {
        return m_Zoom;
    }
    if (m_bCutToAxes && m_nFlags & (OCF_CUSTOMARGUMENT | OCF_CUSTOMFUNCTION)) {
        return tessara::CZoomWindow{m_ArgumentScale.dUpper, m_ArgumentScale.dLower, m_FunctionScale.dUpper,
                                    m_FunctionScale.dLower};
    }
    return std::nullopt;
}

/// Chooses the scales and maps the curves to the page; false when there is no memory for their points.
bool COutputCurve::PrepareCurves() {
    const CWaitCursor wait;
    const auto fail = [this] {
        m_pTraces->Forget();
        return false;
    };
    try {
        FindBoundingBox();
        const auto window = GetCutWindow();
        m_pTraces->ShowIn(window ? &*window : nullptr);
        m_pTraces->ForEachRun(GetPlotMap(), [](const auto&) {});
    } catch (const std::bad_alloc&) {
        return fail();
    } catch (const CMemoryException&) { // the curves' own word for it
        return fail();
    }
    return true;
}

void COutputCurve::RememberPlotDevice(const CDC& dc, const CPlotArea& area) {
    if (!dc.IsPrinting()) {
        m_rcPlotDevice = area.Rect();
        dc.LPtoDP(&m_rcPlotDevice);
        m_rcPlotDevice.OffsetRect(1, 1);
    }
}

int COutputCurve::CountLegendRows() const {
    if (!m_bShowLegend) {
        return 0;
    }
    if (m_nFunctions >= 2) {
        return m_nFunctions;
    }
    const int nColors = m_pMultipartCurve ? m_pMultipartCurve->GetNumColors() : 0;
    return nColors > 1 ? nColors : 0;
}

void COutputCurve::DrawFrames(const CCanvas& canvas, const CPlotArea& area) {
    CPen pen(PS_SOLID, tessara::FRAME_PEN_WIDTH, RGB(0, 0, 0));
    const CSelection selection(canvas, pen);
    canvas.Rectangle(area.Frame());
    if (const int nRows = CountLegendRows()) {
        canvas.Rectangle(CLegend{area}.Box(nRows));
    }
}

void COutputCurve::DrawGrids(const CCanvas& canvas, const CPlotArea& area) {
    CPen pen(PS_SOLID, tessara::THIN_PEN_WIDTH, RGB(0, 0, 0));
    const CSelection thin(canvas, pen);
    DrawDiagonal(canvas, area);
    const LOGFONT logFont = tessara::MakeLogFont(tessara::LABEL_SIZE, "Times New Roman");
    CFont font;
    font.CreateFontIndirect(&logFont);
    const CSelection labels(canvas, font);
    DrawLegendRows(canvas, area, static_cast<CMetaFileDC*>(canvas.GetPicture()));
    tessara::DrawHorizontalGrid(canvas, area, m_ArgumentScale);
    tessara::DrawVerticalGrid(canvas, area, m_FunctionScale,
                              m_bZoomed ? tessara::TickChoice::onAxis : tessara::TickChoice::all);
}

void COutputCurve::DrawDiagonal(const CCanvas& canvas, const CPlotArea& area) {
    if (m_bDiagonal) {
        const RECT frame = area.Frame();
        canvas.Line(frame.left, frame.bottom, frame.right, frame.top);
    }
}

void COutputCurve::DrawLegendRows(const CCanvas& canvas, const CPlotArea& area, CMetaFileDC* pMetaDC) {
    const CLegend legend{area};
    const int nRows = CountLegendRows();
    for (int i = 0; i < nRows; ++i) {
        const std::string strNumber = tessara::FormatText("%d", i + 1);
        const POINT at = legend.Number(i);
        canvas.Text(at.x, at.y, strNumber);
        // Wide letters stand for the digits, so that the samples of numbers of equal length begin together.
        const int nNumberWidth = canvas.Measure(std::string(strNumber.size(), 'D')).cx;
        const RECT sample = legend.Sample(i, nNumberWidth);
        LegendRectangleStippledEx(&canvas.GetSurface(), sample.left, sample.top, sample.right, sample.bottom,
                                  i, pMetaDC, m_bMonochrome ? 1 : 0);
    }
}

void COutputCurve::DrawTitles(CDC* pDC, const CPlotArea& area, CMetaFileDC* pMetaDC) {
    CString strOrdinate = tessara::AxisTitle(m_strCurveSymbol, m_FunctionScale.nExponent);
    if (!m_strSlideName.IsEmpty() && m_bShowLegend) {
        strOrdinate += ", ~N" + m_strSlideName;
    }
    IndexedTextOut(pDC, area.nLeft - 100, area.nTop - 280, strOrdinate, tessara::TITLE_SIZE, pMetaDC);
    IndexedTextOut(pDC, area.Right() + 60, tessara::ToCoordinate(area.Bottom() - 106.4), m_strCurveArgument,
                   tessara::TITLE_SIZE, pMetaDC);
    if (m_bShowCaption) {
        DrawCaption(pDC, tessara::ToCoordinate(area.nLeft + 0.6 * area.nWidth), 8, TRUE, pMetaDC);
    }
}

void COutputCurve::DrawCaption(CDC* pDC, int x, int y, int bCentered, CMetaFileDC* pMetaDC) {
    tessara::DrawCaption(CCanvas(pDC, pMetaDC), x, y, bCentered != 0, m_strCurveName);
}

void COutputCurve::DrawLegend(CDC*, int, int, CPen*) {}

void COutputCurve::DrawCurves(CDC* pDC, const CPlotMap& map, CMetaFileDC* pMetaDC) {
    m_pTraces->ForEachRun(map, [&](const tessara::CCurveTrace::CRun& run) {
        std::vector<POINT> points = run.points;
        PolyLineStippledEx(pDC, points.data(), static_cast<int>(points.size()), run.nColor, pMetaDC,
                           m_bMonochrome ? 1 : 0);
    });
    if (m_pMultipartCurve && m_nParts > 0) {
        const int nFirst = m_pMultipartCurve->m_pParts[m_nParts - 1].nFirst;
        m_pX = m_pMultipartCurve->m_pX + nFirst;
        m_pY[0] = m_pMultipartCurve->m_pY + nFirst;
    }
}

void COutputCurve::DrawSymbols(const CCanvas& canvas, const CPlotMap& map) {
    if (!m_pSymbolsCurve) {
        return;
    }
    const auto window = GetCutWindow();
    const CSelection pen(canvas, BLACK_PEN);
    const CSelection brush(canvas, BLACK_BRUSH);
    for (int j = 0; j < m_pSymbolsCurve->m_nDimensions && j < 2; ++j) {
        for (int i = 0; i < m_pSymbolsCurve->m_nPoints; ++i) {
            const double dX = m_pSymbolsCurve->m_pX[i];
            const double dY = m_pSymbolsCurve->m_ppY[j][i];
            if (!tessara::IsDrawable(dX, dY) || (window && !window->Contains(dX, dY))) {
                continue;
            }
            const RECT box = AroundPoint(map.Map(dX, dY));
            if (j == 0) {
                canvas.Rectangle(box);
            } else {
                canvas.Ellipse(box);
            }
        }
    }
}

/// Painting has erased the mark on the screen; pictures and paper have none. The values listed are those of
/// what was painted.
void COutputCurve::DrawMarkAgain(CDC* pDC, const CMetaFileDC* pMetaDC) {
    if (pMetaDC || pDC->IsPrinting() || !(m_nFlags & OCF_MARKSHOWN)) {
        return;
    }
    if (IsGetValueVisible()) {
        RefreshValueLines();
        DrawMarkOnDC(pDC);
    } else if (pDC->IsKindOf(RUNTIME_CLASS(CClientDC))) {
        m_nFlags &= ~DWORD{OCF_MARKSHOWN};
    }
}

void COutputCurve::PaintEmptyRect(CDC*, RECT*, CMetaFileDC*) {}

int COutputCurve::Export(CDC* pDC, RECT rc, const char* fileName) {
    return tessara::ExportPlaceable(*pDC, rc, fileName,
                                    [&](CMetaFileDC& picture) { Paint(pDC, rc, &picture); });
}

int COutputCurve::Export(const char*) {
    return 1;
}
