#include "tessara/plot/ChooseScale.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "tessara/plot/TickWalk.h"

namespace {

CHOOSESCALE Choose(double dMin, double dMax, BYTE bOptions = 0) {
    CHOOSESCALE scale;
    scale.dMin = dMin;
    scale.dMax = dMax;
    scale.bOptions = bOptions;
    ChooseScale(&scale);
    return scale;
}

struct CExpectedScale {
    double dMin, dMax, dStep, dLower, dFirstTick, dLastTick, dUpper;
    int nExponent;
};

void ExpectScale(const CHOOSESCALE& scale, const CExpectedScale& expected) {
    const double dTolerance = 1e-12 * (1 + std::fabs(expected.dUpper));
    EXPECT_NEAR(scale.dStep, expected.dStep, dTolerance);
    EXPECT_NEAR(scale.dLower, expected.dLower, dTolerance);
    EXPECT_NEAR(scale.dFirstTick, expected.dFirstTick, dTolerance);
    EXPECT_NEAR(scale.dLastTick, expected.dLastTick, dTolerance);
    EXPECT_NEAR(scale.dUpper, expected.dUpper, dTolerance);
    EXPECT_EQ(scale.nExponent, expected.nExponent);
    EXPECT_EQ(scale.dFactor, std::pow(10.0, expected.nExponent));
}

TEST(ChooseScale, PicksRoundAxesForTypicalRanges) {
    const CExpectedScale cases[] = {
        {0, 1, 0.2, 0, 0, 1, 1, 1},
        {0.13, 0.87, 0.2, 0.1, 0.2, 0.8, 0.9, 1},
        {-2.5, 12, 5, -2.5, 0, 10, 12.5, 0},
        {1, 5, 1, 1, 1, 5, 5, 0},
        {0.001, 0.0042, 0.001, 0.001, 0.001, 0.004, 0.0045, 3},
        {0, 7300, 2000, 0, 0, 8000, 8000, -3},
        {3, 3, 1, 2, 2, 4, 4, 0},
        {0, 0, 1, -1, -1, 1, 1, 0},
        {5, 2, 1, 1, 1, 3, 3, 0},           // reversed: around the maximum
        {0, 11.25, 2, 0, 0, 12, 12, 0},     // the largest range of its decade
        {0, 1.125, 0.2, 0, 0, 1.2, 1.2, 1}, // the smallest is scaled up
        {0, 2.75, 1, 0, 0, 3, 3, 0},        // where the step changes
        {0, 5.5, 2, 0, 0, 6, 6, 0},
        {0.5, 4, 1, 0.5, 1, 4, 4, 0},        // exactly half a step above a multiple
        {0, 2500, 500, 0, 0, 2500, 2500, 0}, // the largest step shown as it is
        {0, 5000, 1000, 0, 0, 5000, 5000, -2},
        {0, 0.25, 0.05, 0, 0, 0.25, 0.25, 2},
    };
    for (const CExpectedScale& expected : cases) {
        SCOPED_TRACE(testing::Message() << expected.dMin << " to " << expected.dMax);
        ExpectScale(Choose(expected.dMin, expected.dMax), expected);
    }
}

TEST(ChooseScale, RelativeRangeDecidesWhatCountsAsEqual) {
    EXPECT_EQ(Choose(1e10, 1e10 + 1).dStep, 1.0);
    EXPECT_EQ(Choose(1e10, 1e10 + 1).dLower, 1e10);
    EXPECT_LT(Choose(1e10, 1e10 + 30).dFirstTick, 1e10 + 6);
    EXPECT_EQ(Choose(-1e-13, 1e-13).nExponent, 14); // tiny, but far from equal
}

TEST(ChooseScale, OptionsMoveTheEnds) {
    EXPECT_EQ(Choose(3.3, 4.4, CS_FROMZERO).dLower, 0.0);
    EXPECT_EQ(Choose(3.3, 4.4, CS_FROMZERO).dFirstTick, 0.0);
    // 1.6 .. 5.2 has step 1: half a step below the first tick at the lower end, half a step at the upper one.
    EXPECT_EQ(Choose(1.6, 5.2).dLower, 1.5);
    EXPECT_EQ(Choose(1.6, 5.2).dUpper, 5.5);
    // A whole step at the top takes the half step at the bottom back.
    EXPECT_EQ(Choose(1.6, 5.8, CS_WHOLESTEPS).dLower, 1.0);
    EXPECT_EQ(Choose(1.6, 5.8, CS_WHOLESTEPS).dUpper, 6.0);
    // A half step at the top becomes a whole one when the bottom has none.
    EXPECT_EQ(Choose(1.2, 5.2).dUpper, 5.5);
    EXPECT_EQ(Choose(1.2, 5.2, CS_WHOLESTEPS).dUpper, 6.0);
}

void ExpectOrdered(const CHOOSESCALE& scale) {
    const double dTolerance = 1e-9 * (std::fabs(scale.dUpper) + std::fabs(scale.dLower) + scale.dStep);
    ASSERT_TRUE(std::isfinite(scale.dLower) && std::isfinite(scale.dUpper) && scale.dStep > 0);
    ASSERT_LE(scale.dLower, scale.dFirstTick + dTolerance);
    ASSERT_LE(scale.dFirstTick, scale.dLastTick + dTolerance);
    ASSERT_LE(scale.dLastTick, scale.dUpper + dTolerance);
    ASSERT_LE(tessara::CTickWalk(scale).GetCount(), 13);
}

TEST(ChooseScale, AMillionRandomRangesGiveOrderedAxesAroundTheData) {
    std::mt19937_64 random(20);
    std::uniform_real_distribution<double> exponent(-280, 300);
    std::normal_distribution<double> normal;
    for (int i = 0; i < 1000000; ++i) {
        const double dScale = std::pow(10.0, exponent(random));
        const double dMin = normal(random) * dScale;
        const double dMax = dMin + std::fabs(normal(random)) * dScale;
        const CHOOSESCALE scale = Choose(dMin, dMax);
        ASSERT_NO_FATAL_FAILURE(ExpectOrdered(scale)) << dMin << " to " << dMax;
        const double dTolerance = 1e-9 * scale.dStep + 1e-14 * (std::fabs(dMin) + std::fabs(dMax));
        ASSERT_LE(scale.dLower, dMin + dTolerance) << dMin << " to " << dMax;
        ASSERT_GE(scale.dUpper, dMax - dTolerance) << dMin << " to " << dMax;
    }
}

TEST(ChooseScale, EveryBitPatternEndsAtOnceWithAnAxisThatCanBeWalked) {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
    constexpr double SPECIAL[] = {0.0,   -0.0,  5e-324,    -5e-324,    2.2e-308, 1e-300,    1e300,
                                  4e307, 1e308, 1.797e308, -1.797e308, INFINITE, -INFINITE, NONE};
    for (const double dMin : SPECIAL) {
        for (const double dMax : SPECIAL) {
            ASSERT_NO_FATAL_FAILURE(ExpectOrdered(Choose(dMin, dMax))) << dMin << " to " << dMax;
        }
    }
    std::mt19937_64 random(21);
    for (int i = 0; i < 200000; ++i) {
        const double dMin = std::bit_cast<double>(random());
        const double dMax = std::bit_cast<double>(random());
        ASSERT_NO_FATAL_FAILURE(ExpectOrdered(Choose(dMin, dMax))) << dMin << " to " << dMax;
    }
}

TEST(TickWalk, NeverWalksMoreTicksThanCanBeSeenAndNoneThatCannotBeCounted) {
    CHOOSESCALE scale;
    scale.dFirstTick = 0;
    scale.dLastTick = 1e9;
    scale.dLower = 0;
    scale.dUpper = 1e9;
    scale.dStep = 1e-9;
    const tessara::CTickWalk dense(scale);
    EXPECT_LE(dense.GetCount(), tessara::CTickWalk::MAX_TICKS);
    EXPECT_GT(dense.At(dense.GetCount() - 1).dFraction, 0.99);
    for (const double dStep : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), 1e-320}) {
        scale.dStep = dStep;
        EXPECT_EQ(tessara::CTickWalk(scale).GetCount(), 0) << dStep;
    }
}

TEST(TickWalk, ShowsZeroWithoutRoundingResidue) {
    const CHOOSESCALE scale = Choose(-0.3, 0.3);
    const tessara::CTickWalk walk(scale);
    bool bZero = false;
    for (int i = 0; i < walk.GetCount(); ++i) {
        bZero = bZero || walk.At(i).dValue == 0.0;
        EXPECT_TRUE(walk.At(i).dValue == 0.0 || std::fabs(walk.At(i).dValue) > 0.05);
    }
    EXPECT_TRUE(bZero);
}

} // namespace
