#pragma once

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

/// Collects the parts of a multipart curve from polylines, which are cut at the edges of a window and at
/// gaps.
///
///     CCurveParts parts(window);
///     parts.Add(x, y, 0);
///     std::unique_ptr<CMultipartCurve> pCurve = parts.Make(1);
class CCurveParts {
public:
    explicit CCurveParts(const PLOTWINDOW& window) : m_Window(window) {}

    /// Adds a polyline; a point whose ordinate is not-a-number is a gap. Vectors of equal length.
    void Add(const std::vector<double>& x, const std::vector<double>& y, int nColor);
    bool IsEmpty() const { return m_X.empty(); }
    /// The collected parts as a new curve of so many colours.
    std::unique_ptr<CMultipartCurve> Make(int nColors) const;
    /// The same as a table of two columns.
    std::unique_ptr<CMultipartTable> MakeTable(int nColors) const;

private:
    struct PART {
        int nFirst;
        int nColor;
    };
    struct POINT2D {
        double dX;
        double dY;
    };

    template <class TARGET>
    void Fill(TARGET& target, double* pX, double* pY, int nColors) const;
    void AddSegment(POINT2D from, POINT2D to);
    void AddPoint(POINT2D point);

    PLOTWINDOW m_Window;
    std::vector<double> m_X;
    std::vector<double> m_Y;
    std::vector<PART> m_Parts;
    bool m_bOpen = false; ///< the last part may go on
    int m_nColor = 0;     ///< of the polyline being added
};

} // namespace tessara
