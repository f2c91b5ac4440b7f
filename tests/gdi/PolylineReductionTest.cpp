#include "tessara/platform/gdi/PolylineReduction.h"

#include <algorithm>
#include <climits>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using tessara::ClipPolyline;
using tessara::MergeColumns;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Points = std::vector<POINT>;

Points Merged(Points points) {
    points.resize(MergeColumns(points));
    return points;
}

std::vector<Points> Clipped(const Points& points, const RECT& box) {
    std::vector<Points> pieces;
    ClipPolyline(points, box,
                 [&](std::span<const POINT> piece) { pieces.emplace_back(piece.begin(), piece.end()); });
    return pieces;
}

/// Walks that often stay in their column or on their point.
Points RandomWalk(unsigned nSeed) {
    std::mt19937 random(nSeed);
    std::uniform_int_distribution<int> step(-3, 3);
    const int nMoveOneIn = 1 + static_cast<int>(nSeed % 7);
    Points points(1 + random() % 200, POINT{0, 0});
    for (std::size_t i = 1; i < points.size(); ++i) {
        const bool bMove = random() % static_cast<unsigned>(nMoveOneIn) == 0;
        points[i] = {points[i - 1].x + (bMove ? step(random) : 0), points[i - 1].y + step(random)};
    }
    return points;
}

/// Lowest and highest y of each run of points in one column.
std::vector<std::array<LONG, 3>> Runs(const Points& points) {
    std::vector<std::array<LONG, 3>> runs;
    for (const POINT& point : points) {
        if (runs.empty() || runs.back()[0] != point.x) {
            runs.push_back({point.x, point.y, point.y});
        }
        runs.back()[1] = std::min(runs.back()[1], point.y);
        runs.back()[2] = std::max(runs.back()[2], point.y);
    }
    return runs;
}

bool IsSubsequence(const Points& part, const Points& whole) {
    auto at = whole.begin();
    return std::all_of(part.begin(), part.end(), [&](const POINT& point) {
        at = std::find(at, whole.end(), point);
        return at != whole.end() && at++ != whole.end();
    });
}

} // namespace

TEST(MergeColumns, KeepsEndsAndExtremesOfEveryRunAndNoMore) {
    for (unsigned nSeed = 0; nSeed < 500; ++nSeed) {
        const Points whole = RandomWalk(nSeed);
        const Points kept = Merged(whole);
        ASSERT_TRUE(IsSubsequence(kept, whole)) << nSeed;
        ASSERT_EQ(kept.front(), whole.front()) << nSeed;
        ASSERT_EQ(kept.back(), whole.back()) << nSeed;
        ASSERT_EQ(Runs(kept), Runs(whole)) << nSeed;
        ASSERT_LE(kept.size(), 4 * Runs(whole).size()) << nSeed;
        ASSERT_EQ(Merged(kept), kept) << nSeed;
        ASSERT_EQ(std::adjacent_find(kept.begin(), kept.end()), kept.end()) << nSeed;
    }
}

TEST(MergeColumns, KeepsTheOrderInsideAColumn) {
    EXPECT_EQ(Merged({{5, 3}}), (Points{{5, 3}}));
    EXPECT_EQ(Merged({{5, 3}, {5, 3}}), (Points{{5, 3}}));
    EXPECT_EQ(Merged({{5, 3}, {6, 3}}), (Points{{5, 3}, {6, 3}}));
    EXPECT_EQ(Merged({{5, 3}, {5, 9}, {5, 4}, {5, 1}, {5, 2}}), (Points{{5, 3}, {5, 9}, {5, 1}, {5, 2}}));
    EXPECT_EQ(Merged({{5, 3}, {5, 1}, {5, 2}, {5, 9}}), (Points{{5, 3}, {5, 1}, {5, 9}}));
    EXPECT_EQ(Merged({{5, 3}, {6, 0}, {5, 3}}), (Points{{5, 3}, {6, 0}, {5, 3}}));
}

TEST(MergeColumns, OfNothingIsNothing) {
    EXPECT_EQ(MergeColumns({}), 0U);
}

TEST(ClipPolyline, HandsOutInsideLinesAsTheyAre) {
    for (const Points& inside : {Points{{0, 0}, {9, 9}, {9, 9}, {0, 9}}, Points{{4, 4}}}) {
        EXPECT_THAT(Clipped(inside, {0, 0, 9, 9}), ElementsAre(inside));
    }
}

TEST(ClipPolyline, CutsAtTheEdges) {
    constexpr RECT box{0, 0, 10, 10};
    const struct {
        Points line;
        std::vector<Points> pieces;
    } cases[] = {
        {{{-10, 5}, {20, 5}}, {{{0, 5}, {10, 5}}}},
        {{{-10, -10}, {20, 20}}, {{{0, 0}, {10, 10}}}},
        {{{5, 5}, {5, 25}, {9, 25}, {9, 5}}, {{{5, 5}, {5, 10}}, {{9, 10}, {9, 5}}}},
        {{{5, 5}, {15, 5}, {5, 5}}, {{{5, 5}, {10, 5}, {5, 5}}}},
        {{{-5, 11}, {15, 11}}, {}},
        {{{11, 0}, {11, 0}}, {}},
        {{{12, 3}}, {}},
        {{{-1, 11}, {-1, -1}, {11, -1}}, {}},
        {{{-5, 10}, {15, 10}}, {{{0, 10}, {10, 10}}}},
        {{{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}}, {{{0, 0}, {10, 10}}}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Clipped(c.line, box), c.pieces) << "from " << c.line.front().x << "," << c.line.front().y;
    }
}

TEST(ClipPolyline, KeepsEveryInsidePointAndNothingOutside) {
    constexpr RECT box{-8, -20, 12, 15};
    const auto isInside = [&](POINT point) {
        return point.x >= box.left && point.x <= box.right && point.y >= box.top && point.y <= box.bottom;
    };
    for (unsigned nSeed = 0; nSeed < 500; ++nSeed) {
        const Points whole = RandomWalk(nSeed);
        Points handed, inside;
        for (const Points& piece : Clipped(whole, box)) {
            ASSERT_THAT(piece, testing::Not(IsEmpty())) << nSeed;
            handed.insert(handed.end(), piece.begin(), piece.end());
        }
        std::copy_if(whole.begin(), whole.end(), std::back_inserter(inside), isInside);
        ASSERT_TRUE(std::all_of(handed.begin(), handed.end(), isInside)) << nSeed;
        ASSERT_TRUE(IsSubsequence(inside, handed)) << nSeed;
    }
}
