#include "tessara/plot/TickMarks.h"

#include <algorithm>
#include <limits>
#include <string>

#include "tessara/platform/base/Number.h"
#include "tessara/plot/Canvas.h"
#include "tessara/plot/TickLabel.h"
#include "tessara/plot/TickWalk.h"

using tessara::CCanvas;
using tessara::CTick;
using tessara::CTickWalk;
using tessara::IsOnAxis;
using tessara::ToCoordinate;

namespace {

constexpr int HORIZONTAL_MAJOR = 72;
constexpr int HORIZONTAL_MINOR = 40;
constexpr int SIDE_MAJOR = 60; ///< of the vertical and the depth axis
constexpr int SIDE_MINOR = 32;
constexpr int SIDE_LABEL = 90;

/// The depth axis: from a front to a back corner.
struct CDepthAxis {
    POINT front;
    POINT back;

    POINT At(double dFraction) const {
        return {ToCoordinate(front.x + (static_cast<double>(back.x) - front.x) * dFraction),
                ToCoordinate(front.y + (static_cast<double>(back.y) - front.y) * dFraction)};
    }
};

void DrawDepthTick(const CCanvas& canvas, const CDepthAxis& axis, double dFraction, int nLength) {
    if (IsOnAxis(dFraction)) {
        const POINT point = axis.At(dFraction);
        canvas.Line(point.x + nLength, point.y, point.x, point.y);
    }
}

} // namespace

void DrawHorizontalTickMarks(CDC* pDC, const CRect& rc, const CHOOSESCALE& scale, CMetaFileDC* pMetaDC) {
    const CCanvas canvas(pDC, pMetaDC);
    const CTickWalk walk(scale);
    for (int i = 0; i < walk.GetCount(); ++i) {
        const CTick tick = walk.At(i);
        if (IsOnAxis(tick.dFraction)) {
            const int nX = ToCoordinate(rc.left + rc.Width() * tick.dFraction);
            canvas.Line(nX, rc.bottom, nX, rc.bottom + HORIZONTAL_MAJOR);
        }
        if (IsOnAxis(tick.dMinorFraction)) {
            const int nX = ToCoordinate(rc.left + rc.Width() * tick.dMinorFraction);
            canvas.Line(nX, rc.bottom, nX, rc.bottom + HORIZONTAL_MINOR);
        }
        if (IsOnAxis(tick.dFraction)) {
            const std::string strLabel = tessara::TickLabel(tick.dValue);
            const int nX = ToCoordinate(rc.left + ToCoordinate(rc.Width() * tick.dFraction) -
                                        0.5 * canvas.Measure(strLabel).cx);
            canvas.Text(nX, rc.bottom + HORIZONTAL_MAJOR, strLabel);
        }
    }
}

void DrawVerticalTickMarks(CDC* pDC, const CRect& rc, const CHOOSESCALE& scale, CMetaFileDC* pMetaDC) {
    const CCanvas canvas(pDC, pMetaDC);
    const CTickWalk walk(scale);
    const int nHalfDigit = tessara::GetDigitHeight(canvas) / 2;
    for (int i = 0; i < walk.GetCount(); ++i) {
        const CTick tick = walk.At(i);
        if (IsOnAxis(tick.dFraction)) {
            const int nY = ToCoordinate(rc.bottom - rc.Height() * tick.dFraction);
            canvas.Line(rc.left - SIDE_MAJOR, nY, rc.left, nY);
        }
        if (IsOnAxis(tick.dMinorFraction)) {
            const int nY = ToCoordinate(rc.top + rc.Height() * (1 - tick.dMinorFraction));
            canvas.Line(rc.left - SIDE_MINOR, nY, rc.left, nY);
        }
        if (IsOnAxis(tick.dFraction)) {
            const std::string strLabel = tessara::TickLabel(tick.dValue * scale.dFactor);
            const int nY = rc.top + ToCoordinate(rc.Height() * (1 - tick.dFraction));
            canvas.Text(rc.left - SIDE_LABEL - canvas.Measure(strLabel).cx, nY - nHalfDigit, strLabel);
        }
    }
}

void DrawDepthTickMarks(CDC* pDC, const CRect& rcFront, const CRect& rcBack, const CHOOSESCALE& scale,
                        CDC* pMetaDC) {
    const CCanvas canvas(pDC, pMetaDC);
    const CTickWalk walk(scale);
    const CDepthAxis axis{rcFront.BottomRight(), rcBack.BottomRight()};
    // Nothing lies on an axis without extent.
    const double dRange =
        scale.dMax != scale.dMin ? scale.dMax - scale.dMin : std::numeric_limits<double>::quiet_NaN();
    const int nHalfDigit = tessara::GetDigitHeight(canvas) / 2;
    for (int i = 0; i < walk.GetCount(); ++i) {
        const double dValue = walk.At(i).dValue;
        const double dFraction = (dValue - scale.dMin) / dRange;
        double dMinor = dValue + 0.5 * scale.dStep;
        if (0.25 * scale.dStep > std::fabs(dMinor)) {
            dMinor = 0.0;
        }
        DrawDepthTick(canvas, axis, dFraction, SIDE_MAJOR);
        DrawDepthTick(canvas, axis, (dMinor - scale.dMin) / dRange, SIDE_MINOR);
        if (IsOnAxis(dFraction)) {
            const POINT point = axis.At(dFraction);
            canvas.Text(point.x + SIDE_LABEL, point.y - nHalfDigit,
                        tessara::TickLabel(dValue * scale.dFactor));
        }
    }
}

void DrawTickMarks(CDC* pDC, const CRect& rcFront, const CRect& rcBack, const CHOOSESCALE& scaleX,
                   const CHOOSESCALE& scaleY, CHOOSESCALE scaleZ, CMetaFileDC* pMetaDC) {
    DrawHorizontalTickMarks(pDC, rcFront, scaleX, pMetaDC);
    DrawVerticalTickMarks(pDC, rcFront, scaleY, pMetaDC);
    DrawDepthTickMarks(pDC, rcFront, rcBack, scaleZ, pMetaDC);
}

int GetMaxTickValueWidth(CDC* pDC, CHOOSESCALE& scale) {
    const CCanvas canvas(pDC, nullptr);
    const CTickWalk walk(scale);
    int nWidest = 0;
    for (int i = 0; i < walk.GetCount(); ++i) {
        const CTick tick = walk.At(i);
        if (IsOnAxis(tick.dFraction)) {
            nWidest =
                std::max<int>(nWidest, canvas.Measure(tessara::TickLabel(tick.dValue * scale.dFactor)).cx);
        }
    }
    return nWidest;
}

void DrawBox(CDC* pDC, CRect& /*rcFront*/, CRect& rcBox) {
    pDC->Rectangle(&rcBox);
}

void CalculateBoxSize(int /*reserved*/, CRect& rcIn, CRect& rcOut, double depthX, double depthY) {
    rcOut.SetRect(0, 0, ToCoordinate(rcIn.Width() / (depthX + 1)),
                  ToCoordinate(rcIn.Height() / (depthY + 1)));
}
