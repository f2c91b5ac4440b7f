#pragma once

#include <cmath>
#include <functional>
#include <span>
#include <vector>

#include "tessara/platform/gdi/Geometry.h"
#include "tessara/plot/ChooseScale.h"

namespace tessara {

/// The map from data values to the page: a frame and the axes along its bottom and left edges.
///
/// Results are truncated toward zero. Values off the axes map outside the frame; nothing is cut off here. On
/// an axis without extent everything lies in the middle.
class TESSARA_API CPlotMap {
public:
    /// The edge that heights are reckoned from; it decides how they round.
    enum class Base { top, bottom };

    /// What an abscissa's way into the frame is reckoned by, which decides how it rounds: the fraction of the
    /// axis, or the product of width and distance, then divided by the axis' span.
    enum class Way { fraction, product };

    CPlotMap(const RECT& rcFrame, const CHOOSESCALE& scaleX, const CHOOSESCALE& scaleY,
             Base eBase = Base::top, Way eWay = Way::fraction)
        : m_frame(rcFrame), m_x(scaleX), m_y(scaleY), m_eBase(eBase),
          m_eWay(m_x.CanMultiply(m_frame.Width()) ? eWay : Way::fraction) {}

    int MapX(double dX) const {
        const double dWay = m_eWay == Way::product ? m_frame.Width() * (dX - m_x.dLower) / m_x.dSpan
                                                   : m_frame.Width() * m_x.Fraction(dX);
        return ToCoordinate(m_frame.left + dWay);
    }
    int MapY(double dY) const {
        const double dFraction = m_y.Fraction(dY);
        return m_eBase == Base::top ? ToCoordinate(m_frame.top + m_frame.Height() * (1 - dFraction))
                                    : ToCoordinate(m_frame.bottom - m_frame.Height() * dFraction);
    }

    /// Values from dFirst to dLast.
    struct CInterval {
        double dFirst;
        double dLast;
        bool Contains(double dValue) const {
            // By function: a gap, which is not a number, raises no floating-point exception then.
            return std::isgreaterequal(dValue, dFirst) && std::islessequal(dValue, dLast);
        }
    };
    /// Abscissae around dX, which maps to nColumn, that all map there: most of the column.
    CInterval GetColumn(int nColumn, double dX) const;

    friend bool operator==(const CPlotMap&, const CPlotMap&) = default;

    /// The point of a pair of values, both of which are finite (IsDrawable).
    POINT Map(double dX, double dY) const { return {MapX(dX), MapY(dY)}; }

private:
    struct CAxis {
        explicit CAxis(const CHOOSESCALE& scale) : dLower(scale.dLower), dSpan(scale.dUpper - scale.dLower) {}
        double Fraction(double dValue) const { return dSpan != 0 ? (dValue - dLower) / dSpan : 0.5; }
        /// Whether the axis has an extent and its product with a length is finite.
        bool CanMultiply(int nLength) const { return dSpan != 0 && std::isfinite(dSpan * nLength); }

        friend bool operator==(const CAxis&, const CAxis&) = default;

        double dLower;
        double dSpan;
    };

    CRect m_frame;
    CAxis m_x;
    CAxis m_y;
    Base m_eBase;
    Way m_eWay;
};

/// True when a point has a place: neither value is infinite or not a number.
TESSARA_API bool IsDrawable(double dX, double dY);

/// Maps nPoints points to the page and hands out each unbroken run of them, thinned as by MergeColumns.
/// Points that are not drawable are gaps. The buffer keeps its memory between calls.
TESSARA_API void MapPolyline(const CPlotMap& map, const double* pX, const double* pY, int nPoints,
                             std::vector<POINT>& buffer, const std::function<void(std::span<POINT>)>& emit);

} // namespace tessara
