#include "tessara/plot/PlotMap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using testing::ElementsAre;

namespace {

constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr RECT FRAME{384, 368, 3456, 3312};

CHOOSESCALE Axis(double dLower, double dUpper) {
    CHOOSESCALE scale;
    scale.dLower = dLower;
    scale.dUpper = dUpper;
    return scale;
}

std::vector<std::vector<POINT>> MapAll(const tessara::CPlotMap& map, const std::vector<double>& x,
                                       const std::vector<double>& y) {
    std::vector<std::vector<POINT>> runs;
    std::vector<POINT> buffer;
    tessara::MapPolyline(map, x.data(), y.data(), static_cast<int>(x.size()), buffer,
                         [&](std::span<POINT> points) { runs.emplace_back(points.begin(), points.end()); });
    return runs;
}

TEST(PlotMap, TruncatesTowardZeroFromTheGivenEdgeAndIsTotal) {
    const tessara::CPlotMap top(FRAME, Axis(0, 1), Axis(0, 1));
    EXPECT_EQ(top.Map(0, 0), (POINT{384, 3312}));
    EXPECT_EQ(top.Map(1, 1), (POINT{3456, 368}));
    EXPECT_EQ(top.Map(0.5001, 0.5001), (POINT{1920, 1839}));
    EXPECT_EQ(top.Map(-0.2, 0), (POINT{-230, 3312})); // -230.4
    const tessara::CPlotMap map(FRAME, Axis(0, 1e-300), Axis(-1e308, 1e308));
    EXPECT_EQ(map.MapX(1e308), tessara::MAX_COORDINATE);
    EXPECT_EQ(map.MapX(-1e308), -tessara::MAX_COORDINATE);
    const tessara::CPlotMap flat(FRAME, Axis(2, 2), Axis(2, 2));
    EXPECT_EQ(flat.Map(7, 7), (POINT{1920, 1840})); // no extent: the middle
}

TEST(PlotMap, PointsWithoutAPlaceAreGaps) {
    const tessara::CPlotMap map({0, 0, 100, 100}, Axis(0, 1), Axis(0, 1));
    const auto runs =
        MapAll(map, {0, 0.1, NONE, 0.3, 0.4, 0.5, 0.6}, {0, 0.1, 0.2, 0.3, INFINITE, 0.5, NONE});
    EXPECT_THAT(runs, ElementsAre(ElementsAre(POINT{0, 100}, POINT{10, 90}), ElementsAre(POINT{30, 70}),
                                  ElementsAre(POINT{50, 50})));
    EXPECT_TRUE(MapAll(map, {}, {}).empty());
    EXPECT_EQ(MapAll(map, std::vector<double>(1000, 0.5), std::vector<double>(1000, 0.1))[0].size(), 1U);
}

/// What a column of pixels shows of a run.
struct CColumn {
    LONG nX, nFirst, nLow, nHigh, nLast;
    friend bool operator==(const CColumn&, const CColumn&) = default;
};

std::vector<CColumn> Columns(const std::vector<POINT>& points) {
    std::vector<CColumn> columns;
    for (const POINT point : points) {
        if (columns.empty() || columns.back().nX != point.x) {
            columns.push_back({point.x, point.y, point.y, point.y, point.y});
        }
        CColumn& column = columns.back();
        column = {point.x, column.nFirst, std::min(column.nLow, point.y), std::max(column.nHigh, point.y),
                  point.y};
    }
    return columns;
}

TEST(PlotMap, KeepsOfEachColumnWhatTheUnthinnedRunShows) {
    std::mt19937_64 random(1);
    std::normal_distribution<double> normal;
    for (int nRound = 0; nRound < 300; ++nRound) {
        // From many points a column, rising or falling, to a walk that leaves the frame.
        const double dStep = std::pow(10, -1 - nRound % 7);
        const double dWalk = nRound % 3 * dStep;
        const tessara::CPlotMap map(FRAME, Axis(-0.3, nRound % 11 ? 0.7 : -2), Axis(2, nRound % 2 ? 3 : 1),
                                    nRound % 5 ? tessara::CPlotMap::Base::top
                                               : tessara::CPlotMap::Base::bottom);
        std::vector<double> x{normal(random)};
        std::vector<double> y{2 + normal(random)};
        std::vector<POINT> plain{map.Map(x[0], y[0])};
        for (int i = 1; i < 2000; ++i) {
            x.push_back(x.back() + (nRound % 2 ? dStep : -dStep) + dWalk * normal(random));
            y.push_back(y.back() + 0.1 * normal(random));
            plain.push_back(map.Map(x.back(), y.back()));
        }
        const auto runs = MapAll(map, x, y);
        ASSERT_EQ(runs.size(), 1U);
        EXPECT_EQ(Columns(runs[0]), Columns(plain)) << nRound;
        EXPECT_LE(runs[0].size(), 4 * Columns(plain).size());
    }
}

} // namespace
