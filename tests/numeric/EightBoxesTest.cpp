#include <cmath>
#include <iterator>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tessara/numeric/EightBoxes.h"

namespace {

using tessara::CEightBoxes;

/// Boxes whose bounds are often the same, infinite or no numbers.
CEightBoxes RandomBoxes(std::mt19937_64& random) {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    const double values[] = {0, -0.0, 1, 2, 3, 4, INFINITE, -INFINITE, std::nan("")};
    CEightBoxes boxes;
    const auto draw = [&] { return values[random() % std::size(values)]; };
    for (int i = 0; i < CEightBoxes::COUNT; ++i) {
        if (random() % 8 != 0) {
            boxes.Set(i, tessara::CornerBox(draw(), draw(), draw(), draw()));
        }
    }
    return boxes;
}

tessara::CPairBits PairsOneByOne(const CEightBoxes& a, const CEightBoxes& b) {
    tessara::CPairBits nPairs = 0;
    for (int n = 0; n < CEightBoxes::COUNT * CEightBoxes::COUNT; ++n) {
        const int i = n / CEightBoxes::COUNT, j = n % CEightBoxes::COUNT;
        const bool bOverlap = a.lowX[i] <= b.highX[j] && b.lowX[j] <= a.highX[i] && a.lowY[i] <= b.highY[j] &&
                              b.lowY[j] <= a.highY[i];
        nPairs |= tessara::CPairBits{bOverlap} << n;
    }
    return nPairs;
}

TEST(EightBoxes, EveryWayToCompareFindsThePairsThatOverlap) {
    std::mt19937_64 random(1);
    for (int nTrial = 0; nTrial < 3000; ++nTrial) {
        const CEightBoxes a = RandomBoxes(random), b = RandomBoxes(random);
        for (int nLanes = 2; nLanes <= tessara::ComparableLanes(); nLanes *= 2) {
            ASSERT_EQ(OverlappingPairs(a, b, nLanes), PairsOneByOne(a, b)) << nLanes << " at a time";
        }
    }
}

} // namespace
