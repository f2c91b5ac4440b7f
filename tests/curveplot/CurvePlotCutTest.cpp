#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

#include "tessara/platform/gdi/ImageDC.h"
#include "tests/curveplot/Plots.h"

// What a zoomed or cut plot shows beside the lines that lie in its window, found anew for each segment by
// itself.

namespace tessara {

namespace {

struct CLine {
    int nColor;
    double x0, y0, x1, y1;

    bool IsTouch() const { return std::hypot(x1 - x0, y1 - y0) < 1e-9; }
    double DistanceTo(double x, double y) const {
        const double dX = x1 - x0;
        const double dY = y1 - y0;
        const double dSquare = dX * dX + dY * dY;
        const double dFoot = dSquare > 0 ? ((x - x0) * dX + (y - y0) * dY) / dSquare : 0;
        const double t = std::min(1.0, std::max(0.0, dFoot));
        return std::hypot(x0 + t * dX - x, y0 + t * dY - y);
    }
};

/// What of the line from a to b lies in a window: each edge by itself takes away what is beyond it.
bool CutLine(CLine& line, const CZoomWindow& window) {
    const auto cut = [&line](auto beyond) {
        const double d0 = beyond(line.x0, line.y0);
        const double d1 = beyond(line.x1, line.y1);
        const double x = line.x0 + (line.x1 - line.x0) * d0 / (d0 - d1);
        const double y = line.y0 + (line.y1 - line.y0) * d0 / (d0 - d1);
        if (d0 > 0 && d1 > 0) {
            return false;
        }
        if (d0 > 0) {
            line.x0 = x;
            line.y0 = y;
        } else if (d1 > 0) {
            line.x1 = x;
            line.y1 = y;
        }
        return true;
    };
    return cut([&](double x, double) { return window.dXMin - x; }) &&
           cut([&](double x, double) { return x - window.dXMax; }) &&
           cut([&](double, double y) { return window.dYMin - y; }) &&
           cut([&](double, double y) { return y - window.dYMax; });
}

/// The lines in a window, and the dots of points between gaps. Whether a line that goes through a corner
/// leaves a dot there is for rounding to say: bTouches tells whether such are wanted.
std::vector<CLine> LinesIn(const CMultipartCurve& curve, CZoomWindow window, bool bTouches) {
    const double dGrown = bTouches ? 1e-9 : 0;
    window = {window.dXMax + dGrown, window.dXMin - dGrown, window.dYMax + dGrown, window.dYMin - dGrown};
    std::vector<CLine> lines;
    const auto add = [&](int nColor, int nFrom, int nTo) {
        CLine line{nColor, curve.m_pX[nFrom], curve.m_pY[nFrom], curve.m_pX[nTo], curve.m_pY[nTo]};
        const bool bGap = !std::isfinite(line.x0 + line.y0 + line.x1 + line.y1);
        if (!bGap && CutLine(line, window) && (bTouches || nFrom == nTo || !line.IsTouch())) {
            lines.push_back(line);
        }
    };
    for (int i = 0; i < curve.m_nParts; ++i) {
        const CCurvePartInfo& part = curve.m_pParts[i];
        for (int j = part.nFirst; j < part.nFirst + part.nPoints; ++j) {
            add(part.nColor, j, j); // a point between gaps is a dot
            if (j > part.nFirst) {
                add(part.nColor, j - 1, j);
            }
        }
    }
    return lines;
}

/// A plot painted on an image of twenty page units to a pixel.
class CCutPicture {
public:
    static constexpr double NEAR = 1.8; ///< pixels: a line is one wide, its ends and corners are rounded

    explicit CCutPicture(CTestPlot& plot) : m_plot(plot), m_image(256, 184) {
        plot.m_bShowLegend = plot.m_bShowCaption = 0;
        plot.SetNames("", "", "", "");
        plot.Paint(&m_image, m_image.GetClientRect(), nullptr);
    }

    /// The lines in pixels.
    std::vector<CLine> Place(std::vector<CLine> lines, const CZoomWindow& window) const {
        for (CLine& line : lines) {
            for (double* const p : {&line.x0, &line.x1}) {
                *p = (384 + 4352 * (*p - window.dXMin) / (window.dXMax - window.dXMin)) / 20 - 0.5;
            }
            for (double* const p : {&line.y0, &line.y1}) {
                *p = (368 + 2944 * (window.dYMax - *p) / (window.dYMax - window.dYMin)) / 20 - 0.5;
            }
        }
        return lines;
    }

    /// Fails where a curve's pixel lies on no line of its colour.
    void ExpectNothingBeside(const std::vector<CLine>& lines) {
        for (int y = 0; y < 184; ++y) {
            for (int x = 0; x < 256; ++x) {
                const int nColor = ColorAt(x, y);
                const auto isNear = [&](const CLine& line) {
                    return line.nColor == nColor && line.DistanceTo(x, y) <= NEAR;
                };
                ASSERT_TRUE(nColor == -1 || std::any_of(lines.begin(), lines.end(), isNear))
                    << "a false pixel at " << x << ' ' << y;
            }
        }
    }

    void ExpectAll(const std::vector<CLine>& lines) {
        for (const CLine& line : lines) {
            for (const double t : {0.0, 0.13, 0.5, 0.77, 1.0}) {
                const double x = std::lerp(line.x0, line.x1, t);
                const double y = std::lerp(line.y0, line.y1, t);
                ASSERT_TRUE(HasPixelNear(x, y)) << "a line is missing at " << x << ' ' << y;
            }
        }
    }

private:
    int ColorAt(int x, int y) {
        const COLORREF color = m_image.GetPixel(x, y);
        return color == CLR_INVALID ? -1 : m_plot.CurveFromColor(color);
    }
    bool HasPixelNear(double dX, double dY) {
        for (int y = static_cast<int>(dY) - 2; y <= dY + 2; ++y) {
            for (int x = static_cast<int>(dX) - 2; x <= dX + 2; ++x) {
                if (std::hypot(dX - x, dY - y) <= NEAR && ColorAt(x, y) != -1) {
                    return true;
                }
            }
        }
        return false;
    }

    CTestPlot& m_plot;
    CImageDC m_image;
};

/// Coarse values, so that points come twice, lie on edges and line up; now and then none.
class CCoarseValues {
public:
    explicit CCoarseValues(unsigned nSeed) : m_random(nSeed) {}

    int Below(int nEnd) { return static_cast<int>(m_random() % static_cast<unsigned>(nEnd)); }
    double Coordinate() {
        constexpr double NONE[] = {std::numeric_limits<double>::quiet_NaN(),
                                   std::numeric_limits<double>::infinity(),
                                   -std::numeric_limits<double>::infinity()};
        return Below(14) == 0 ? NONE[Below(3)] : Below(9) * 0.5 - 2;
    }
    CZoomWindow Window() {
        const double dX = Below(7) * 0.5 - 2;
        const double dY = Below(7) * 0.5 - 2;
        const double dShift = Below(3) * 0.125; // on the data, or beside it
        return {dX + 0.5 + Below(4) * 0.5 + dShift, dX + dShift, dY + 0.5 + Below(4) * 0.5 + dShift,
                dY + dShift};
    }
    std::unique_ptr<CMultipartCurve> Curve() {
        auto pCurve = std::make_unique<CMultipartCurve>(2 + Below(9));
        for (int i = 0; i < pCurve->m_nPoints; ++i) {
            pCurve->m_pX[i] = Coordinate();
            pCurve->m_pY[i] = Coordinate();
        }
        for (int nFirst = 0; nFirst < pCurve->m_nPoints;) {
            const int nEnd = std::min(pCurve->m_nPoints, nFirst + 1 + Below(pCurve->m_nPoints));
            pCurve->BeginPart(nFirst, Below(3));
            pCurve->EndPart(nEnd - 1);
            nFirst = nEnd;
        }
        pCurve->SetNumColors(3);
        return pCurve;
    }

private:
    std::mt19937 m_random;
};

int CountRounds() {
    const char* const pszRounds = std::getenv("TESSARA_CUT_ROUNDS");
    return pszRounds ? std::max(1, std::atoi(pszRounds)) : 300;
}

TEST(CurvePlotCut, ShowsTheLinesInItsWindowAndNothingElse) {
    for (int nRound = 0; nRound < CountRounds(); ++nRound) {
        SCOPED_TRACE(nRound);
        CCoarseValues values(static_cast<unsigned>(nRound));
        const auto pCurve = values.Curve();
        const CZoomWindow window = values.Window();
        CTestPlot plot;
        if (nRound % 3 == 0) { // one function over all points
            plot.SetOutputData(pCurve->m_pX, pCurve->m_pY, pCurve->m_nPoints);
            pCurve->m_nParts = 1;
            pCurve->m_pParts[0] = {0, pCurve->m_nPoints, 0};
        } else {
            plot = pCurve.get();
        }
        if (nRound % 2) {
            plot.ZoomTo(window);
        } else {
            plot.UseCustomScale(1, window.dXMin, window.dXMax, 0.5, 0);
            plot.UseCustomScale(2, window.dYMin, window.dYMax, 0.5, 0);
            plot.CutToAxes(1);
        }
        CCutPicture picture(plot);
        picture.ExpectNothingBeside(picture.Place(LinesIn(*pCurve, window, true), window));
        picture.ExpectAll(picture.Place(LinesIn(*pCurve, window, false), window));
        ASSERT_FALSE(HasFatalFailure());
    }
}

} // namespace

} // namespace tessara
