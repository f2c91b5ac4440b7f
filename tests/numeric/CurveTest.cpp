#include "tessara/numeric/Curve.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "tests/numeric/Samples.h"

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(Curve, AVerticalStepHasTheLaterOrdinateExceptInTheFirstInterval) {
    const samples::CSampleCurve later({0, 1, 2, 2, 3}, {0, 10, 20, 30, 40});
    EXPECT_EQ(later.curve.Value(2), 30);
    const samples::CSampleCurve first({0, 1, 1, 2}, {0, 10, 20, 30});
    EXPECT_EQ(first.curve.Value(1), 10);
}

TEST(Curve, APieceNeverGivesAValueFromOutsideIt) {
    const samples::CSampleCurve sample({0, 1, 2, 3, 4}, {0, 10, 20, 30, 40});
    EXPECT_EQ(sample.curve.Value(0.5, 1, 3), 10);
    EXPECT_EQ(sample.curve.Value(3.5, 1, 3), 30);
    EXPECT_EQ(sample.curve.Value(2.5, 1, 3), 25);
    EXPECT_EQ(sample.curve.Value(2.5, 2, 2), 20);
    EXPECT_EQ(sample.curve.Value(2.5, 3, 1), 30);
    EXPECT_EQ(sample.curve.Value(NOT_A_NUMBER, 4, 4), 40);
}

TEST(Curve, OfOnePointIsConstantAndOfNoneNaN) {
    const samples::CSampleCurve one({7}, {3});
    for (const double dX : {-1.0, 7.0, 8.0, NOT_A_NUMBER}) {
        EXPECT_EQ(one.curve.Value(dX), 3);
    }
    const CCurve none(0);
    EXPECT_TRUE(std::isnan(none.Value(0)));
    EXPECT_TRUE(std::isnan(none.Value(0, 0, 0)));
    EXPECT_TRUE(std::isnan(none.Min()));
    EXPECT_TRUE(std::isnan(none.Max()));
}

TEST(Curve, ExtremesKeepTheFirstOfEqualOrdinates) {
    const samples::CSampleCurve sample({0, 1, 2, 3}, {0.0, -0.0, 0.0, -0.0});
    EXPECT_FALSE(std::signbit(sample.curve.Min()));
    EXPECT_FALSE(std::signbit(sample.curve.Max()));
    const samples::CSampleCurve nanFirst({0, 1}, {NOT_A_NUMBER, 1});
    EXPECT_TRUE(std::isnan(nanFirst.curve.Min()));
    const samples::CSampleCurve nanLater({0, 1, 2}, {1, NOT_A_NUMBER, 2});
    EXPECT_EQ(nanLater.curve.Min(), 1);
    EXPECT_EQ(nanLater.curve.Max(), 2);
}

TEST(Curve, ResizingKeepsTheLeadingPointsOfAnOwningCurve) {
    double borrowed[] = {1, 2};
    CCurve view(2, borrowed, borrowed);
    view.ReAllocate(100);
    EXPECT_EQ(view.m_nPoints, 2) << "a borrowed array is not resized";

    CCurve curve(2);
    curve.m_pX[0] = 1, curve.m_pY[0] = 2;
    for (const int nPoints : {1000, 1}) {
        curve.ReAllocate(nPoints);
        EXPECT_EQ(curve.m_nPoints, nPoints);
        EXPECT_EQ(curve.m_pX[0] + curve.m_pY[0], 3);
    }
    curve.ReAllocate(0);
    curve.ReAllocate(3);
    EXPECT_EQ(curve.m_nPoints, 3);
    curve.m_pX[2] = curve.m_pY[2] = 0;
}

TEST(LinearInterpolation, HasTheOrderOfTheFormula) {
    EXPECT_EQ(LinearInterpolation(3, 10, 20, 1, 2), 30);
    EXPECT_EQ(LinearInterpolation(99, 10, 20, 1, 1), 10);
    EXPECT_EQ(LinearInterpolation(2, 0.1, 0.3, 1, 2), 0.3);
    // The two orders that look the same differ here in the last bit.
    EXPECT_EQ(LinearInterpolation(0.1, 0.1, 0.7, 0, 0.3), 0.7 - ((0.3 - 0.1) / 0.3) * (0.7 - 0.1));
    EXPECT_NE(LinearInterpolation(0.1, 0.1, 0.7, 0, 0.3), 0.1 + (0.1 / 0.3) * (0.7 - 0.1));
}

} // namespace
