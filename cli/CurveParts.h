#pragma once

#include <cmath>
#include <memory>
#include <vector>

#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/PolylineCut.h"

namespace tessara {

/// The region of the data that a plot shows, edges included; unbounded where no scale is given.
using PLOTWINDOW = CDataWindow;

/// std::lerp, but not-a-number when either end is.
inline double LerpOverGaps(double dFrom, double dTo, double dWay) {
    return std::isnan(dFrom) ? dFrom : std::isnan(dTo) ? dTo : std::lerp(dFrom, dTo, dWay);
}

/// Further columns of a polyline, each as long as it; null for one that it does not have.
using CFurtherColumns = std::vector<const std::vector<double>*>;

/// Collects the parts of a multipart curve from polylines, which are cut at the edges of a window and at
/// gaps (CutPolyline). Further columns go along: they are interpolated where a polyline is cut.
///
///     CCurveParts parts(window);
///     parts.Add(x, y, 0);
///     std::unique_ptr<CMultipartCurve> pCurve = parts.Make(1);
class CCurveParts {
public:
    explicit CCurveParts(const PLOTWINDOW& window, std::size_t nFurther = 0)
        : m_Window(window), m_Further(nFurther) {}

    /// Adds a polyline. Vectors of equal length. REQUIRES: as many further columns as the constructor was
    /// told.
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
    class CPieces;

    template <class TARGET>
    void SetParts(TARGET& target, int nColors) const;

    PLOTWINDOW m_Window;
    std::vector<double> m_X;
    std::vector<double> m_Y;
    std::vector<std::vector<double>> m_Further;
    std::vector<PART> m_Parts;
};

} // namespace tessara
