#include "examples/flory/model/Functions.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

using namespace flory;

constexpr double INF = std::numeric_limits<double>::infinity();

TEST(ExcessHTest, TendsToItsSquareLawAndToItsStraightLine) {
    EXPECT_NEAR(ExcessH(1e-6) / (1e-12 / 12), 1, 1e-12);
    EXPECT_NEAR(ExcessH(1e-160) / 1e-160, 0, 1e-12);
    EXPECT_DOUBLE_EQ(ExcessH(2e5), 99999);
    EXPECT_EQ(ExcessH(-3), ExcessH(3));
    EXPECT_EQ(ExcessH(0), 0);
}

TEST(ExcessHTest, JoinsSeriesAndClosedForm) {
    // The continued fraction x^2/4 / (3 + x^2/4 / (5 + ...)) holds on both sides.
    for (const double x : {0.05, 0.29999, 0.30001, 1., 4., 9.}) {
        double dTail = 0;
        for (int k = 61; k >= 3; k -= 2) {
            dTail = x * x / 4 / (k + dTail);
        }
        EXPECT_NEAR(ExcessH(x) / dTail, 1, 3e-14) << x;
    }
}

TEST(ExcessHTest, InverseUndoesIt) {
    for (double x = 1e-9; x < 1e7; x *= 1.7) {
        EXPECT_NEAR(InverseExcessH(ExcessH(x)) / x, 1, 2e-14) << x;
    }
}

TEST(ExcessHTest, InverseIsTotal) {
    EXPECT_EQ(InverseExcessH(0), 0);
    EXPECT_EQ(InverseExcessH(-1), 0);
    EXPECT_EQ(InverseExcessH(INF), INF);
    EXPECT_TRUE(std::isnan(InverseExcessH(NAN)));
}

TEST(MixingExcessTest, KeepsItsDigitsNearZeroAndItsEnds) {
    EXPECT_NEAR(MixingExcess(1e-9) / 0.5e-18, 1, 1e-8);
    EXPECT_NEAR(MixingExcess(0.0999999) / MixingExcess(0.1000001), std::pow(0.0999999 / 0.1000001, 2.035),
                1e-7);
    EXPECT_EQ(MixingExcess(1), 1);
    EXPECT_NEAR(MixingExcess(-1), 2 * std::log(2.) - 1, 1e-15);
}

TEST(StretchExcessTest, KeepsItsDigitsNearZeroAndItsEnds) {
    EXPECT_NEAR(StretchExcess(-1e-9) / 0.5e-18, 1, 1e-8);
    EXPECT_NEAR(StretchExcess(0.49999999) / StretchExcess(0.50000001), 1, 2e-7);
    EXPECT_NEAR(StretchExcess(1), 1, 1e-15);
    EXPECT_EQ(StretchExcess(-1e5), 1);
}

} // namespace
