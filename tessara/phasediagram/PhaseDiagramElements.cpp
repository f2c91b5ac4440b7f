#include <algorithm>
#include <array>

#include "tessara/phasediagram/ElementColors.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/vellum/Stippled.h"
#include "tessara/plot/Canvas.h"
#include "tessara/plot/CurveTrace.h"
#include "tessara/plot/PlotArea.h"
#include "tessara/plot/PlotMap.h"

using tessara::CCanvas;
using tessara::CPlotMap;
using tessara::CSelection;

namespace {

constexpr int SYMBOL_REACH = 32;
constexpr COLORREF MARK_COLOR = 0x7F7F7F;

RECT Around(POINT point) {
    return {point.x - SYMBOL_REACH, point.y - SYMBOL_REACH, point.x + SYMBOL_REACH, point.y + SYMBOL_REACH};
}

/// Whether a run is one place that is not within the frame. Cutting leaves such a place of a segment that
/// passes by a corner of the zoom window, or touches its edge: it would be drawn as a dot, which tells of a
/// point that the curve does not have.
bool IsOutsideDot(const std::vector<POINT>& run, const CRect& frame) {
    const POINT place = run.front();
    const bool bOnePlace =
        std::all_of(run.begin(), run.end(), [&](const POINT& point) { return point == place; });
    const bool bWithin =
        place.x > frame.left && place.x < frame.right && place.y > frame.top && place.y < frame.bottom;
    return bOnePlace && !bWithin;
}

} // namespace

CPlotMap CPhaseDiagramOutput::GetPlotMap() const {
    return {GetPlotArea().Rect(), m_AbscissaScale, m_OrdinateScale, CPlotMap::Base::top,
            CPlotMap::Way::product};
}

void CPhaseDiagramOutput::DrawElements(const CCanvas& canvas, CMetaFileDC* pMetaDC) {
    DrawCurve(canvas, *m_pSpinodalTrace, tessara::SpinodalStyle, pMetaDC);
    DrawCurve(canvas, *m_pShadowTrace, tessara::ShadowStyle, pMetaDC);
    DrawCurve(canvas, *m_pCloudPointTrace, tessara::CloudPointStyle, pMetaDC);
    DrawPoints(&canvas.GetSurface(), pMetaDC);
    if (m_bMultiphasePointsVisible && m_pFoundMultiphasePoints) {
        DrawMultiphasePoints(&canvas.GetSurface(), pMetaDC);
    }
    if (m_bLeftBoundary) {
        DrawBoundary(canvas, m_dLeftBoundary);
    }
    if (m_bRightBoundary) {
        DrawBoundary(canvas, m_dRightBoundary);
    }
}

void CPhaseDiagramOutput::DrawCurve(const CCanvas& canvas, tessara::CCurveTrace& trace,
                                    int (*pStyleOf)(int nColor), CMetaFileDC* pMetaDC) {
    for (const tessara::CCurveTrace::CRun& run : trace.GetRuns(GetPlotMap())) {
        if (m_bZoomed && IsOutsideDot(run.points, GetPlotArea().Rect())) {
            continue;
        }
        std::vector<POINT> points = run.points;
        PolyLineStippledEx(&canvas.GetSurface(), points.data(), static_cast<int>(points.size()),
                           pStyleOf(run.nColor), pMetaDC, m_bMonochrome ? 1 : 0);
    }
}

bool CPhaseDiagramOutput::IsPointShown(double dX, double dY) const {
    return tessara::IsDrawable(dX, dY) && (!m_bZoomed || m_Zoom.Contains(dX, dY));
}

/// On the picture all points are black; on the surface each kind has its brush, which stays selected for the
/// next.
void CPhaseDiagramOutput::DrawPoints(CDC* pDC, CMetaFileDC* pMetaDC) {
    const CCanvas canvas(pDC, pMetaDC);
    const CSelection pen(canvas, NULL_PEN);
    const CSelection brush(canvas, BLACK_BRUSH);
    CBrush critical(tessara::CRITICAL_POINT_COLOR);
    CBrush multiphase(tessara::MULTIPHASE_POINT_COLOR);
    CPen outline(PS_SOLID, 12, RGB(0, 0, 0));
    const CPlotMap map = GetPlotMap();
    const auto draw = [&](const CCurve& points, void (CCanvas::*pShape)(const RECT&) const) {
        for (int i = 0; i < points.m_nPoints; ++i) {
            if (IsPointShown(points.m_pX[i], points.m_pY[i])) {
                (canvas.*pShape)(Around(map.Map(points.m_pX[i], points.m_pY[i])));
            }
        }
    };
    if (m_pCriticalPoints) {
        if (m_bMonochrome) {
            pDC->SelectStockObject(BLACK_BRUSH);
        } else {
            pDC->SelectObject(&critical);
        }
        draw(*m_pCriticalPoints, &CCanvas::Ellipse);
    }
    if (m_pLifshitzPoints) {
        draw(*m_pLifshitzPoints, &CCanvas::Rectangle);
    }
    if (m_pMultiphasePoints) {
        if (m_bMonochrome) {
            pDC->SelectObject(&outline);
            pDC->SelectStockObject(WHITE_BRUSH);
        } else {
            pDC->SelectObject(&multiphase);
        }
        draw(*m_pMultiphasePoints, &CCanvas::Ellipse);
    }
}

void CPhaseDiagramOutput::DrawMultiphasePoints(CDC* pDC, CMetaFileDC* pMetaDC) {
    const CCanvas canvas(pDC, pMetaDC);
    CBrush found(tessara::FOUND_MULTIPHASE_POINT_COLOR);
    const CSelection pen(canvas, NULL_PEN);
    const CSelection brush(canvas, found);
    const CPlotMap map = GetPlotMap();
    for (int i = 0; i < m_pFoundMultiphasePoints->m_nPoints; ++i) {
        const double dX = m_pFoundMultiphasePoints->m_ppData[m_CloudPointColumns.nX][i];
        const double dY = m_pFoundMultiphasePoints->m_ppData[m_CloudPointColumns.nY][i];
        if (IsPointShown(dX, dY)) {
            const RECT box = Around(map.Map(dX, dY));
            pDC->Ellipse(&box);
            if (pMetaDC) {
                pMetaDC->Rectangle(&box);
            }
        }
    }
}

void CPhaseDiagramOutput::DrawLegendCurveColors(CDC* pDC, CMetaFileDC* pMetaDC) {
    struct CSample {
        int nRow;
        int nStyle;
    };
    const tessara::CLegendRows& rows = m_LegendRows;
    const std::array<CSample, 9> samples{{{rows.nSpinodal, 0},
                                          {rows.nSpinodalTrivial, 0},
                                          {rows.nSpinodalNontrivial, 1},
                                          {rows.nCloudPoint, 2},
                                          {rows.nCloudPointPhysical, 2},
                                          {rows.nCloudPointNonPhysical, 5},
                                          {rows.nShadow, 3},
                                          {rows.nShadowPhysical, 3},
                                          {rows.nShadowNonPhysical, 4}}};
    const int nRight = m_nPlotLeft + m_nPlotWidth;
    for (const CSample& sample : samples) {
        if (sample.nRow != -1) {
            const int nTop = m_nPlotTop + m_nLineHeight / 2 + 16 + m_nLineHeight * sample.nRow;
            LegendRectangleStippledEx(pDC, nRight + 180, nTop, nRight + 460, nTop + 16, sample.nStyle,
                                      pMetaDC, m_bMonochrome ? 1 : 0);
        }
    }
    const CCanvas canvas(pDC, pMetaDC);
    const CSelection pen(canvas, BLACK_PEN);
    const CSelection brush(canvas, BLACK_BRUSH);
    const int nGap = m_nCurveLabels > 0 ? m_nLineHeight / 2 : 0;
    const int nMiddle = m_nPlotTop + m_nLineHeight * m_nCurveLabels + nGap + 24 + m_nLineHeight / 2;
    const auto boxOf = [&](int nRow) { return Around({nRight + 320, nMiddle + m_nLineHeight * nRow}); };
    if (rows.nCriticalPoints != -1) {
        canvas.Ellipse(boxOf(rows.nCriticalPoints));
    }
    if (rows.nLifshitzPoints != -1) {
        canvas.Rectangle(boxOf(rows.nLifshitzPoints));
    }
}

void CPhaseDiagramOutput::DrawBoundary(const CCanvas& canvas, double dAbscissa) {
    CPen pen(PS_DASH, 1, RGB(0, 0, 0));
    const CSelection selection(canvas, pen);
    const int nX = GetPlotMap().MapX(dAbscissa);
    canvas.Line(nX, m_nPlotTop, nX, m_nPlotTop + m_nPlotHeight);
}

/// A line of the cross-hair that lies off its axis has no place in the plot.
void CPhaseDiagramOutput::DrawMarkOnDC(CDC* pDC) {
    pDC->SetROP2(R2_NOTXORPEN);
    CPen pen(PS_SOLID, 4, MARK_COLOR);
    CPen* pOldPen = pDC->SelectObject(&pen);
    const POINT mark = GetPlotMap().Map(m_dMarkX, m_dMarkY);
    if (IsValidValue(m_dMarkX, 1)) {
        pDC->MoveTo(mark.x, m_nPlotTop);
        pDC->LineTo(mark.x, m_nPlotTop + m_nPlotHeight);
    }
    if (IsValidValue(m_dMarkY, 0)) {
        pDC->MoveTo(m_nPlotLeft, mark.y);
        pDC->LineTo(m_nPlotLeft + m_nPlotWidth, mark.y);
    }
    pDC->SelectObject(pOldPen);
}
