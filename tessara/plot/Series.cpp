#include "tessara/plot/Series.h"

#include "tessara/platform/vellum/Stippled.h"
#include "tessara/plot/Canvas.h"
#include "tessara/plot/PlotMap.h"
#include "tessara/plot/Symbols.h"

using tessara::CCanvas;
using tessara::CPlotMap;

namespace {

constexpr int DROP_LINE_WIDTH = 4;

/// A row of a table seen in the box.
struct CBoxPoint {
    CPoint point;      ///< in the back frame
    CPoint floor;      ///< below it, on the back frame's bottom edge
    CPoint wall;       ///< beside it, on the back frame's left edge
    CPoint frontFloor; ///< on the front frame's bottom edge
    CPoint frontWall;  ///< on the front frame's left edge
};

CBoxPoint PlaceInBox(const CRect& rcFront, const CRect& rcBack, POINT inFront, POINT inBack) {
    return {inBack, CPoint(inBack.x, rcBack.bottom), CPoint(rcBack.left, inBack.y),
            CPoint(inFront.x, rcFront.bottom), CPoint(rcFront.left, inFront.y)};
}

void DrawBoxPoint(CDC* pDC, const CBoxPoint& row, int nKind, COLORREF color, CMetaFileDC* pMetaDC) {
    const CCanvas canvas(pDC, pMetaDC);
    {
        CPen pen(PS_SOLID, DROP_LINE_WIDTH, color);
        const tessara::CSelection selection(canvas, pen);
        canvas.Line(row.point.x, row.point.y, row.floor.x, row.floor.y);
        canvas.Line(row.point.x, row.point.y, row.wall.x, row.wall.y);
        canvas.Line(row.floor.x, row.floor.y, row.frontFloor.x, row.frontFloor.y);
        canvas.Line(row.wall.x, row.wall.y, row.frontWall.x, row.frontWall.y);
    }
    CPoint point = row.point;
    CPoint wall = row.wall;
    CPoint floor = row.floor;
    DrawSymbol(pDC, nKind, FALSE, point, color, pMetaDC);
    DrawSymbol(pDC, nKind, TRUE, wall, color, pMetaDC);
    DrawSymbol(pDC, nKind, TRUE, floor, color, pMetaDC);
}

} // namespace

void DrawPointsTable(CDC* pDC, CRect& rcFront, int nKind, COLORREF color, CHOOSESCALE scaleX,
                     CHOOSESCALE scaleY, CRect& rcBack, CTable* pTable, int nColumnX, int nColumnY,
                     CMetaFileDC* pMetaDC) {
    const CPlotMap front(rcFront, scaleX, scaleY, CPlotMap::Base::bottom);
    const CPlotMap back(rcBack, scaleX, scaleY, CPlotMap::Base::bottom);
    for (int i = 0; i < pTable->m_nPoints; ++i) {
        const double dX = pTable->m_ppData[nColumnX][i];
        const double dY = pTable->m_ppData[nColumnY][i];
        if (tessara::IsDrawable(dX, dY)) {
            DrawBoxPoint(pDC, PlaceInBox(rcFront, rcBack, front.Map(dX, dY), back.Map(dX, dY)), nKind, color,
                         pMetaDC);
        }
    }
}

void DrawMultipartCurve(CDC* pDC, int nStyle, CHOOSESCALE scaleX, CHOOSESCALE scaleY, CRect& rc,
                        CMultipartTable* pTable, int nColumnX, int nColumnY, int bStippled,
                        CMetaFileDC* pMetaDC) {
    const bool bDashed = bStippled || tessara::NeedsDashes(*pDC);
    const CPlotMap map(rc, scaleX, scaleY, CPlotMap::Base::bottom);
    std::vector<POINT> buffer;
    for (int i = 0; i < pTable->m_nParts; ++i) {
        const CCurvePartInfo& part = pTable->m_pParts[i];
        tessara::MapPolyline(map, pTable->m_ppData[nColumnX] + part.nFirst,
                             pTable->m_ppData[nColumnY] + part.nFirst, part.nPoints, buffer,
                             [&](std::span<POINT> points) {
                                 PolyLineStippledEx(pDC, points.data(), static_cast<int>(points.size()),
                                                    bDashed ? nStyle : -1, pMetaDC, bStippled);
                             });
    }
}
