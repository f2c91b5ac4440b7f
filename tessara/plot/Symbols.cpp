#include "tessara/plot/Symbols.h"

#include <array>

#include "tessara/plot/Canvas.h"

using tessara::CCanvas;
using tessara::CSelection;

namespace {

constexpr int REACH = 32;
constexpr int SMALL_REACH = 22;
constexpr int RECTANGLE_REACH_X = 26;
constexpr int RECTANGLE_REACH_Y = 28;
constexpr int CIRCLE_OUTLINE = 16;
constexpr int DIAMOND_OUTLINE = 4;

RECT Around(POINT centre, int nReachX, int nReachY) {
    return {centre.x - nReachX, centre.y - nReachY, centre.x + nReachX, centre.y + nReachY};
}

void DrawDiamond(const CCanvas& canvas, POINT centre, int nReach, COLORREF color, StockObject eFill) {
    CPen pen(PS_SOLID, DIAMOND_OUTLINE, color);
    const CSelection outline(canvas, pen);
    const CSelection fill(canvas, eFill);
    const std::array<POINT, 4> corners{POINT{centre.x - nReach, centre.y}, POINT{centre.x, centre.y - nReach},
                                       POINT{centre.x + nReach, centre.y},
                                       POINT{centre.x, centre.y + nReach}};
    canvas.Polygon(corners);
}

} // namespace

void DrawSymbol(CDC* pDC, int nKind, int bSmall, CPoint& pt, COLORREF color, CMetaFileDC* pMetaDC) {
    const CCanvas canvas(pDC, pMetaDC);
    const int nReach = bSmall ? SMALL_REACH : REACH;
    switch (nKind) {
    case SYMBOL_FILLED_CIRCLE:
    case SYMBOL_FILLED_RECTANGLE: {
        CBrush brush(color);
        const CSelection outline(canvas, NULL_PEN);
        const CSelection fill(canvas, brush);
        if (nKind == SYMBOL_FILLED_CIRCLE) {
            canvas.Ellipse(Around(pt, nReach, nReach));
        } else {
            canvas.Rectangle(Around(pt, RECTANGLE_REACH_X, RECTANGLE_REACH_Y));
        }
        break;
    }
    case SYMBOL_OPEN_CIRCLE: {
        CPen pen(PS_SOLID, CIRCLE_OUTLINE, color);
        const CSelection fill(canvas, WHITE_BRUSH);
        const CSelection outline(canvas, pen);
        canvas.Ellipse(Around(pt, REACH, REACH));
        break;
    }
    case SYMBOL_BLACK_DIAMOND:
        DrawDiamond(canvas, pt, nReach, color, BLACK_BRUSH);
        break;
    case SYMBOL_OPEN_DIAMOND:
        DrawDiamond(canvas, pt, nReach, color, WHITE_BRUSH);
        break;
    default:
        break;
    }
}
