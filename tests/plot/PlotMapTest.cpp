#include "tessara/plot/PlotMap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

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
}

TEST(PlotMap, AMillionNoisyPointsBecomeFourAColumnAtMost) {
    const tessara::CPlotMap map(FRAME, Axis(0, 1), Axis(-1, 1));
    std::vector<double> x(1000000);
    std::vector<double> y(x.size());
    for (std::size_t i = 0; i < x.size(); ++i) {
        x[i] = static_cast<double>(i) / static_cast<double>(x.size());
        y[i] = std::sin(1e6 * x[i] * x[i]);
    }
    const auto runs = MapAll(map, x, y);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_LE(runs[0].size(), 4U * 3073U);
    EXPECT_GE(runs[0].size(), 2U * 3072U);
}

} // namespace
