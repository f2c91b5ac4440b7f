#pragma once

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"

namespace tessara {

/// The region of the data that a plot shows, edges included; unbounded where no scale is given.
struct PLOTWINDOW {
    double dXMin = -std::numeric_limits<double>::infinity();
    double dXMax = std::numeric_limits<double>::infinity();
    double dYMin = -std::numeric_limits<double>::infinity();
    double dYMax = std::numeric_limits<double>::infinity();

    /// False for a value that is not a number.
    bool Contains(double dX, double dY) const { return ContainsX(dX) && dY >= dYMin && dY <= dYMax; }
    bool ContainsX(double dX) const { return dX >= dXMin && dX <= dXMax; }
};

/// std::lerp, but not-a-number when either end is.
inline double LerpOverGaps(double dFrom, double dTo, double dWay) {
    return std::isnan(dFrom) ? dFrom : std::isnan(dTo) ? dTo : std::lerp(dFrom, dTo, dWay);
}

/// Further columns of a polyline, each as long as it; null for one that it does not have.
using CFurtherColumns = std::vector<const std::vector<double>*>;

/// Collects the parts of a multipart curve from polylines, which are cut at the edges of a window and at
/// gaps. Further columns go along: they are interpolated where a polyline is cut.
///
///     CCurveParts parts(window);
///     parts.Add(x, y, 0);
///     std::unique_ptr<CMultipartCurve> pCurve = parts.Make(1);
class CCurveParts {
public:
    explicit CCurveParts(const PLOTWINDOW& window, std::size_t nFurther = 0)
        : m_Window(window), m_Further(nFurther) {}

    /// Adds a polyline; a point whose ordinate is not-a-number is a gap. Vectors of equal length. REQUIRES:
    /// as many further columns as the constructor was told.
    void Add(const std::vector<double>& x, const std::vector<double>& y, int nColor,
             const CFurtherColumns& further = {});
    bool IsEmpty() const { return m_X.empty(); }
    /// The collected parts as a new curve of so many colours.
    std::unique_ptr<CMultipartCurve> Make(int nColors) const;
    /// The same as a table: abscissae in column nX, ordinates in nY, the further columns in the other places;
    /// what a polyline does not have is not-a-number.
    std::unique_ptr<CMultipartTable> MakeTable(int nColors, int nX = 0, int nY = 1) const;

private:
    struct PART {
        int nFirst;
        int nColor;
    };
    struct POINT2D {
        double dX;
        double dY;
    };

    /// A place on a polyline: the part dWay, from 0 to 1, of the way to the point nEnd.
    struct PLACE {
        std::size_t nEnd;
        double dWay;
    };

    template <class TARGET>
    void SetParts(TARGET& target, int nColors) const;
    void AddSegment(POINT2D from, POINT2D to, std::size_t nEnd, const CFurtherColumns& further);
    void AddPoint(POINT2D point, PLACE place, const CFurtherColumns& further);

    PLOTWINDOW m_Window;
    std::vector<double> m_X;
    std::vector<double> m_Y;
    std::vector<std::vector<double>> m_Further;
    std::vector<PART> m_Parts;
    bool m_bOpen = false; ///< the last part may go on
    int m_nColor = 0;     ///< of the polyline being added
};

} // namespace tessara
