#include <gtest/gtest.h>

#include <array>

#include "tests/curveplot/Plots.h"

using tessara::CTestPlot;

namespace {

TEST(CurvePlotValues, InterpolateBetweenThePointsAndHoldTheEnds) {
    std::array<double, 5> x{0, 1, 2, 2, 3};
    std::array<double, 5> y{0, 10, 20, 30, 40};
    CTestPlot plot;
    plot.SetOutputData(x.data(), y.data(), 5);
    struct {
        double x, y;
    } const cases[] = {{-5, 0}, {0, 0},    {0.25, 2.5}, {1, 10}, {1.5, 15},
                       {2, 30}, {2.5, 35}, {3, 40},     {99, 40}};
    for (const auto& given : cases) {
        EXPECT_EQ(plot.Value(0, given.x), given.y) << given.x;
    }
}

TEST(CurvePlotValues, TwoPointsAtOneAbscissaGiveTheLeftOneAtTheStart) {
    std::array<double, 3> x{1, 1, 2};
    std::array<double, 3> y{5, 7, 9};
    CTestPlot plot;
    plot.SetOutputData(x.data(), y.data(), 3);
    EXPECT_EQ(plot.Value(0, 1), 5);
}

TEST(CurvePlotValues, OfAMultipartCurveAreItsOwnAlsoAfterPainting) {
    CMultipartCurve curve;
    CCurve piece(2);
    for (int nPart = 0; nPart < 2; ++nPart) {
        piece.m_pX[0] = nPart;
        piece.m_pX[1] = nPart + 1;
        piece.m_pY[0] = 10.0 * nPart;
        piece.m_pY[1] = 10.0 * (nPart + 1);
        curve.AddCurve(&piece, nPart);
    }
    CTestPlot plot;
    plot = &curve;
    EXPECT_EQ(plot.Value(0, 0.5), 5);
    tessara::CLoggedSurface surface;
    PaintLogged(plot, surface);
    EXPECT_EQ(plot.Value(0, 0.5), 5);
    EXPECT_EQ(plot.Value(0, 1.5), 15);
}

TEST(CurvePlotValues, OfAnEmptyPlotAreZero) {
    CTestPlot plot;
    EXPECT_EQ(plot.Value(0, 1), 0);
}

TEST(CurvePlotValues, AreValidOnTheArgumentAxisEndsIncluded) {
    CTestPlot plot;
    plot.UseCustomScale(1, 2, 4, 1, 0);
    EXPECT_TRUE(plot.IsValidValue(2));
    EXPECT_TRUE(plot.IsValidValue(4));
    EXPECT_FALSE(plot.IsValidValue(4.001));
    EXPECT_FALSE(plot.IsValidValue(std::numeric_limits<double>::quiet_NaN()));
}

} // namespace
