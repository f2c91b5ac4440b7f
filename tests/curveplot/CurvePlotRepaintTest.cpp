#include <gtest/gtest.h>

#include <optional>

#include "tests/curveplot/Plots.h"
#include "tests/support/InPlaceChanges.h"

// What a plot keeps from one paint for the next must never be seen: a repaint beside a plot that paints for
// the first time.

namespace tessara {

namespace {

constexpr int SIZES[] = {1, 2, 21, 300, 9000};

std::span<double> ValuesOf(double* pValues, int nCount) {
    return {pValues, static_cast<std::size_t>(nCount)};
}

template <class CURVE>
void ExpectPaintedAsNew(CTestPlot& plot, CURVE& curve, const char* pszWhat, int nRound) {
    CTestPlot fresh;
    fresh = &curve;
    if (plot.IsZoomed()) {
        fresh.ZoomTo(plot.GetZoomWindow());
    }
    ASSERT_TRUE(PixelsOf(plot) == PixelsOf(fresh))
        << pszWhat << ", " << curve.m_nPoints << " points, round " << nRound;
}

TEST(CurvePlotRepaint, ShowsValuesThatWereChangedInPlaceInAnyWay) {
    std::mt19937 random(11);
    for (const int nPoints : SIZES) {
        const auto pLines = MakeLines(2, nPoints);
        CTestPlot plot;
        plot = pLines.get();
        for (int nRound = 0; nRound < 30; ++nRound) {
            ExpectPaintedAsNew(plot, *pLines, "functions", nRound);
            ASSERT_FALSE(HasFatalFailure());
            double* const arrays[] = {pLines->m_pX, pLines->m_ppY[0], pLines->m_ppY[1]};
            ChangeInPlace(ValuesOf(arrays[random() % 3], nPoints), random);
            if (random() % 4 == 0) {
                plot.ZoomTo({nPoints / 1.5, nPoints / 4.0, nPoints / 1.5, nPoints / -2.0});
            } else if (random() % 4 == 0) {
                plot.ShowWhole();
            }
        }
    }
}

/// The axes stay the same: nothing else makes the next paint look.
TEST(CurvePlotRepaint, ShowsAllOrdinatesTurnedRound) {
    for (const int nPoints : SIZES) {
        const auto pLines = MakeLines(1, nPoints);
        for (double& dY : ValuesOf(pLines->m_ppY[0], nPoints)) {
            dY -= (nPoints - 1) / 2.0;
        }
        CTestPlot plot;
        plot = pLines.get();
        ExpectPaintedAsNew(plot, *pLines, "before", 0);
        for (double& dY : ValuesOf(pLines->m_ppY[0], nPoints)) {
            dY = -dY;
        }
        ExpectPaintedAsNew(plot, *pLines, "turned round", 0);
    }
}

/// Parts, and a curve that takes the place of another.
TEST(CurvePlotRepaint, ShowsChangedPartsAndAnotherCurveAtTheSameAddress) {
    constexpr int POINTS = 24;
    std::vector<double> x(POINTS);
    std::vector<double> y(POINTS);
    for (std::size_t i = 0; i < POINTS; ++i) {
        x[i] = static_cast<double>(i);
        y[i] = static_cast<double>(i * i % 17);
    }
    CCurvePartInfo parts[] = {{0, 8, 0}, {8, 8, 1}, {16, 8, 2}};
    std::mt19937 random(3);
    std::optional<CMultipartCurve> curve;
    curve.emplace(POINTS, x.data(), y.data(), 3, parts, 3);
    CTestPlot plot;
    plot = &*curve;
    for (int nRound = 0; nRound < 200; ++nRound) {
        ExpectPaintedAsNew(plot, *curve, "parts", nRound);
        ASSERT_FALSE(HasFatalFailure());
        CCurvePartInfo& part = curve->m_pParts[random() % 3];
        switch (random() % 6) {
        case 0:
            part.nColor = static_cast<int>(random() % 6);
            break;
        case 1:
            part.nFirst = static_cast<int>(random() % 16);
            break;
        case 2:
            part.nPoints = static_cast<int>(random() % 9);
            break;
        case 3:
            plot.m_nParts = curve->m_nParts = static_cast<int>(1 + random() % 3);
            break;
        case 4:
            ChangeInPlace(random() % 2 ? y : x, random);
            break;
        default:
            for (double& dY : y) {
                dY = -dY;
            }
            curve.emplace(POINTS, x.data(), y.data(), 3, parts, static_cast<int>(1 + random() % 3));
            plot.m_nParts = 3;
        }
    }
}

TEST(CurvePlotRepaint, TakesAnnouncedChangesAtTheirWord) {
    const auto pLines = MakeLines(2, 50);
    CTestPlot plot;
    plot = pLines.get();
    plot.AnnounceChanges(1);
    const auto before = PixelsOf(plot);
    const auto turn = [&] {
        for (double& dY : ValuesOf(pLines->m_ppY[1], 50)) {
            dY = -dY;
        }
    };
    turn();
    EXPECT_TRUE(PixelsOf(plot) == before) << "the values were looked at";
    plot.DataChanged();
    ExpectPaintedAsNew(plot, *pLines, "told", 0);
    turn();
    plot = pLines.get();
    ExpectPaintedAsNew(plot, *pLines, "set again", 0);
    turn();
    plot.AnnounceChanges(0);
    ExpectPaintedAsNew(plot, *pLines, "no longer promised", 0);
    plot.AnnounceChanges(1);
    std::vector<double> other(50, 7);
    plot.m_pY[0] = other.data();
    plot.m_nFunctions = 1;
    CTestPlot fresh;
    fresh.SetOutputData(pLines->m_pX, other.data(), 50);
    EXPECT_TRUE(PixelsOf(plot) == PixelsOf(fresh)) << "another array";
}

} // namespace

} // namespace tessara
