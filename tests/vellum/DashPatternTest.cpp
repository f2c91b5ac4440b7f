#include "tessara/platform/vellum/DashPattern.h"

#include <climits>
#include <cmath>
#include <set>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

namespace {

using Points = std::vector<POINT>;

std::vector<Points> Dashes(const Points& line, std::vector<double> pattern) {
    std::vector<Points> dashes;
    tessara::CutIntoDashes(
        line, pattern, [&](std::span<const POINT> dash) { dashes.emplace_back(dash.begin(), dash.end()); });
    return dashes;
}

} // namespace

TEST(DashPattern, StylesDifferAndBeginAgainAfterTheLast) {
    std::set<std::vector<double>> patterns;
    for (int nStyle = 0; nStyle < 6; ++nStyle) {
        const auto pattern = tessara::GetDashPattern(nStyle);
        patterns.emplace(pattern.begin(), pattern.end());
        EXPECT_EQ(tessara::GetDashPattern(nStyle + 6).data(), pattern.data());
        EXPECT_EQ(pattern.size() % 2, 0U);
    }
    EXPECT_EQ(patterns.size(), 6U);
    for (const int nStyle : {-1, INT_MIN, INT_MAX}) {
        tessara::GetDashPattern(nStyle);
    }
}

TEST(CutIntoDashes, FollowsThePatternAlongALine) {
    EXPECT_EQ(Dashes({{0, 0}, {100, 0}}, {30, 10}),
              (std::vector<Points>{{{0, 0}, {30, 0}}, {{40, 0}, {70, 0}}, {{80, 0}, {100, 0}}}));
    EXPECT_EQ(Dashes({{0, 0}, {0, -60}}, {20, 5, 10, 5}),
              (std::vector<Points>{{{0, 0}, {0, -20}}, {{0, -25}, {0, -35}}, {{0, -40}, {0, -60}}}));
    EXPECT_EQ(Dashes({{0, 0}, {35, 0}}, {30, 10}), (std::vector<Points>{{{0, 0}, {30, 0}}}));
}

TEST(CutIntoDashes, GoesRoundCornersInsideADashAndInsideAGap) {
    EXPECT_EQ(Dashes({{0, 0}, {20, 0}, {20, 20}, {40, 20}}, {30, 20}),
              (std::vector<Points>{{{0, 0}, {20, 0}, {20, 10}}, {{30, 20}, {40, 20}}}));
}

TEST(CutIntoDashes, CountsLengthAcrossManyShortSegments) {
    Points fine;
    for (LONG x = 0; x <= 1000; ++x) {
        fine.push_back({x, 0});
    }
    const auto expected = Dashes({{0, 0}, {1000, 0}}, {72, 36, 4, 36});
    const auto dashes = Dashes(fine, {72, 36, 4, 36});
    ASSERT_EQ(dashes.size(), expected.size());
    for (std::size_t i = 0; i < dashes.size(); ++i) {
        EXPECT_EQ(dashes[i].front(), expected[i].front());
        EXPECT_EQ(dashes[i].back(), expected[i].back());
    }
}

TEST(CutIntoDashes, KeepsTheLengthsOnASlantedLine) {
    const auto dashes = Dashes({{0, 0}, {3000, 4000}}, {100, 50});
    ASSERT_EQ(dashes.size(), 34U);
    for (std::size_t i = 0; i + 1 < dashes.size(); ++i) {
        const POINT from = dashes[i].front(), to = dashes[i].back();
        EXPECT_NEAR(std::hypot(to.x - from.x, to.y - from.y), 100, 1.5);
    }
}

TEST(CutIntoDashes, HandsOutWholeWhatNeedsNoCutting) {
    const Points point{{7, 7}}, still{{7, 7}, {7, 7}}, solid{{0, 0}, {500, 0}, {0, 0}};
    const Points endless{{INT_MIN, 0}, {INT_MAX, 0}, {INT_MIN, INT_MAX}};
    EXPECT_THAT(Dashes(point, {30, 10}), ElementsAre(point));
    EXPECT_THAT(Dashes(still, {30, 10}), ElementsAre(still));
    EXPECT_THAT(Dashes(solid, {}), ElementsAre(solid));
    EXPECT_THAT(Dashes(endless, {30, 10}), ElementsAre(endless));
    EXPECT_THAT(Dashes({}, {30, 10}), testing::IsEmpty());
}
