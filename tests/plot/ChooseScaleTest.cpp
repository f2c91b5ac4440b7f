#include "tessara/plot/ChooseScale.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <utility>

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

TEST(ChooseScale, PicksRoundAxesForTypicalRanges) {
    const struct {
        double dMin, dMax, numbers[5]; ///< step, lower end, first tick, last tick, upper end
        int nExponent;
    } cases[] = {
        {0, 1, {0.2, 0, 0, 1, 1}, 1},
        {0.13, 0.87, {0.2, 0.1, 0.2, 0.8, 0.9}, 1},
        {-2.5, 12, {5, -2.5, 0, 10, 12.5}, 0},
        {1, 5, {1, 1, 1, 5, 5}, 0},
        {0.001, 0.0042, {0.001, 0.001, 0.001, 0.004, 0.0045}, 3},
        {0, 7300, {2000, 0, 0, 8000, 8000}, -3},
        {3, 3, {1, 2, 2, 4, 4}, 0},
        {0, 0, {1, -1, -1, 1, 1}, 0},
        {1e10, 1e10 + 1, {1, 1e10, 1e10, 1e10 + 2, 1e10 + 2}, 0}, // as good as equal
        {5, 2, {1, 1, 1, 3, 3}, 0},                               // reversed: around the maximum
        {0, 11.25, {2, 0, 0, 12, 12}, 0},                         // the largest range of its decade
        {0, 1.125, {0.2, 0, 0, 1.2, 1.2}, 1},                     // the smallest is scaled up
        {0, 2.75, {1, 0, 0, 3, 3}, 0},                            // where the step changes
        {0, 5.5, {2, 0, 0, 6, 6}, 0},
        {0.5, 4, {1, 0.5, 1, 4, 4}, 0},        // exactly half a step above a multiple
        {0, 2500, {500, 0, 0, 2500, 2500}, 0}, // the largest step shown as it is
        {0, 5000, {1000, 0, 0, 5000, 5000}, -2},
        {0, 0.25, {0.05, 0, 0, 0.25, 0.25}, 2},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(testing::Message() << expected.dMin << " to " << expected.dMax);
        const CHOOSESCALE scale = Choose(expected.dMin, expected.dMax);
        const double dTolerance = 1e-12 * (1 + std::fabs(expected.numbers[4]));
        const double found[] = {scale.dStep, scale.dLower, scale.dFirstTick, scale.dLastTick, scale.dUpper};
        for (int i = 0; i < 5; ++i) {
            EXPECT_NEAR(found[i], expected.numbers[i], dTolerance) << i;
        }
        EXPECT_EQ(scale.nExponent, expected.nExponent);
        EXPECT_EQ(scale.dFactor, std::pow(10.0, expected.nExponent));
    }
}

TEST(ChooseScale, OptionsMoveTheEnds) {
    const auto ends = [](double dMin, double dMax, BYTE bOptions) {
        const CHOOSESCALE scale = Choose(dMin, dMax, bOptions);
        return std::pair(scale.dLower, scale.dUpper);
    };
    EXPECT_EQ(ends(3.3, 4.4, CS_FROMZERO).first, 0.0);
    EXPECT_EQ(ends(1.6, 5.2, 0), std::pair(1.5, 5.5)) << "half a step outside the ticks at either end";
    EXPECT_EQ(ends(1.6, 5.8, CS_WHOLESTEPS), std::pair(1.0, 6.0)) << "a whole step takes the half one back";
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
        ASSERT_TRUE(scale.dLower <= dMin + dTolerance && scale.dUpper >= dMax - dTolerance)
            << dMin << " to " << dMax;
    }
}

TEST(ChooseScale, EveryBitPatternEndsAtOnceWithAnAxisThatCanBeWalked) {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    constexpr double SPECIAL[] = {
        0.0,   -0.0,  5e-324,    -5e-324,    2.2e-308, 1e-300,    1e300,
        4e307, 1e308, 1.797e308, -1.797e308, INFINITE, -INFINITE, std::numeric_limits<double>::quiet_NaN()};
    std::mt19937_64 random(21);
    for (unsigned i = 0; i < 200000; ++i) {
        const bool bSpecial = i < std::size(SPECIAL) * std::size(SPECIAL);
        const double dMin = bSpecial ? SPECIAL[i % std::size(SPECIAL)] : std::bit_cast<double>(random());
        const double dMax = bSpecial ? SPECIAL[i / std::size(SPECIAL)] : std::bit_cast<double>(random());
        ASSERT_NO_FATAL_FAILURE(ExpectOrdered(Choose(dMin, dMax))) << dMin << " to " << dMax;
    }
}

TEST(TickWalk, NeverWalksMoreTicksThanCanBeSeenAndNoneThatCannotBeCounted) {
    CHOOSESCALE scale;
    scale.dFirstTick = scale.dLower = 0;
    scale.dLastTick = scale.dUpper = 1e9;
    scale.dStep = 1e-9;
    const tessara::CTickWalk dense(scale);
    EXPECT_LE(dense.GetCount(), tessara::CTickWalk::MAX_TICKS);
    EXPECT_GT(dense.At(dense.GetCount() - 1).dFraction, 0.99);
    for (const double dStep : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), 1e-320}) {
        scale.dStep = dStep;
        EXPECT_EQ(tessara::CTickWalk(scale).GetCount(), 0) << dStep;
    }
}

} // namespace
