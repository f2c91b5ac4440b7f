#include "tessara/numeric/PlaneGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tessara/numeric/Table.h"
#include "tests/numeric/Bits.h"
#include "tests/numeric/Samples.h"

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

TEST(PlaneGeometry, LinesOfEveryDirection) {
    const double cases[][7] = {{0, 0, 0, 5, 1, 0, 0},
                               {3, 1, 3, 1, 1, 0, -3},
                               {1, 2, 4, 2, 0, 1, -2},
                               {0, 0, 2, 4, 0.5, -0.25, 0},
                               {1, 1, 3, 5, 0.5, -0.25, -0.25}};
    for (const auto& [x1, y1, x2, y2, a, b, c] : cases) {
        double line[3];
        LineEquation({x1, y1}, {x2, y2}, line);
        EXPECT_TRUE(bits::Same(line[0], a) && line[1] == b && line[2] == c);
    }
    double parallel1[] = {1, 2, 3};
    double parallel2[] = {2, 4, 0};
    CDoublePoint ptCross = {7, 8};
    EXPECT_EQ(LinesCrossPoint(parallel1, parallel2, ptCross), 0);
    EXPECT_TRUE(ptCross.x == 7 && ptCross.y == 8) << "a point that is not found is left alone";
}

TEST(PlaneGeometry, SegmentsCrossWithinBothBoxes) {
    const double cases[][11] = {
        {0, 0, 2, 2, 0, 2, 2, 0, 1, 1, 1}, // two segments, whether they cross, where
        {0, 0, 1, 1, 2, 0, 3, 1, 0, 9, 9},  {0, 0, 2, 2, 1, 1, 3, 3, 0, 9, 9},
        {0, 0, 4, 0, 2, -1, 2, 5, 1, 2, 0}, {0, 0, 4, 1, 2, 1, 3, 3, 0, 12.0 / 7, 3.0 / 7},
        {0, 0, 1, 0, 1, 0, 1, 1, 1, 1, 0}};
    for (const auto& [ax, ay, bx, by, cx, cy, dx, dy, dCross, x, y] : cases) {
        CDoublePoint ptCross = {9, 9};
        EXPECT_EQ(SegmentsCrossPoint({ax, ay}, {bx, by}, {cx, cy}, {dx, dy}, ptCross), dCross);
        EXPECT_NEAR(ptCross.x, x, 1e-15);
        EXPECT_NEAR(ptCross.y, y, 1e-15);
    }
    CDoublePoint ptCross;
    EXPECT_EQ(SegmentsCrossPoint({0, 0}, {4, 4}, {3, 0}, {4, 1}, ptCross), 0) << "parallel";
    EXPECT_EQ(SegmentsCrossPoint({NOT_A_NUMBER, 0}, {2, 2}, {0, 2}, {2, 0}, ptCross), 0);
}

TEST(PlaneGeometry, AnObliqueSegmentMeetsADiscWhenItsNearestPointIsInside) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(-3, 3);
    int nHits = 0;
    for (int nRound = 0; nRound < 20000; ++nRound) {
        const double x1 = place(random), y1 = place(random), x2 = place(random), y2 = place(random);
        const double x = place(random), y = place(random), r = std::fabs(place(random));
        const double dMargin = r - PointToSegmentDistance2D(x1, y1, x2, y2, x, y);
        const int nFound = IsSegmentIntersectsCircle(x1, y1, x2, y2, x, y, r);
        ASSERT_TRUE(nFound == (dMargin > 0) || std::fabs(dMargin) < 1e-9) << nRound;
        nHits += nFound;
    }
    EXPECT_GT(nHits, 5000);
}

TEST(PlaneGeometry, ASegmentAlongAnAxisMeetsADiscExactlyWhenOneOfItsPointsIsInside) {
    // Whole numbers: the squares are exact, and so is what is expected.
    for (int nCase = 0; nCase < 6 * 13 * 15 * 15; ++nCase) {
        const int x1 = nCase % 15 - 7, x2 = nCase / 15 % 15 - 7, y = nCase / 225 % 13 - 6,
                  nRadius = nCase / 2925;
        const int nNearest = x1 * x2 <= 0 ? 0 : std::min(std::abs(x1), std::abs(x2));
        const int nInside = nNearest * nNearest + y * y < nRadius * nRadius;
        if (x1 != x2) {
            ASSERT_EQ(IsSegmentIntersectsCircle(10 + x1, y, 10 + x2, y, 10, 0, nRadius), nInside);
            ASSERT_EQ(IsSegmentIntersectsCircle(y, x1 - 9, y, x2 - 9, 0, -9, nRadius), nInside);
        }
    }
}

TEST(PlaneGeometry, SpecialSegmentsAndDiscs) {
    const struct {
        double x1, y1, x2, y2, r;
        int nMeets;
        const char* pszWhat;
    } cases[] = {{-1, -1, 1, 1, 10, 1, "wholly inside"},
                 {NOT_A_NUMBER, -1, 1, 1, 10, 0, "nowhere"},
                 {-INFINITE, 1, INFINITE, 1, 2, 1, "endless"},
                 {NOT_A_NUMBER, 1, 1, 1, 2, 0, "level, nowhere"},
                 {0, NOT_A_NUMBER, 0, 1, 2, 0, "upright, nowhere"},
                 {-1, 1e-200, 1, 1e-200, 2e-200, 1, "no square underflows"},
                 {-1, 0, 1, 0, -1, 0, "no point is inside"},
                 {0.9, 0.9, 0.9, 0.9, 1, 1, "a point is measured against the square"},
                 {1, 0, 1, 0, 1, 0, "a point on its side"}};
    for (const auto& it : cases) {
        EXPECT_EQ(IsSegmentIntersectsCircle(it.x1, it.y1, it.x2, it.y2, 0, 0, it.r), it.nMeets) << it.pszWhat;
    }
}

TEST(PlaneGeometry, DistancesEndAtTheEnds) {
    const double cases[][7] = {{0, 0, 4, 0, 2, 3, 3},
                               {0, 0, 4, 0, 7, 4, 5},
                               {0, 0, 4, 0, -3, -4, 5},
                               {1, 1, 1, 1, 4, 5, 5},
                               {0, 0, 3, 3, 3, 0, std::sqrt(4.5)},
                               {0, 0, 0, 0, 3e200, 4e200, 5e200}};
    for (const auto& [x1, y1, x2, y2, x, y, dExpected] : cases) {
        EXPECT_DOUBLE_EQ(PointToSegmentDistance2D(x1, y1, x2, y2, x, y), dExpected);
        EXPECT_DOUBLE_EQ(PointToSegmentDistance2D(x2, y2, x1, y1, x, y), dExpected);
    }
    EXPECT_TRUE(std::isnan(PointToSegmentDistance2D(NOT_A_NUMBER, 0, 1, 1, 0, 0)));
}

TEST(PlaneGeometry, ASphereIsACubeButForASinglePoint) {
    const double ends[][3] = {{0, 0, 0}, {4, 0, 0}, {3, 4, 0}};
    const struct {
        int nEnd;
        double center[3], r;
        int nNear;
    } cases[] = {{0, {3, 4, 0}, 5, 0},   {0, {3, 4, 0}, 5.01, 1}, {1, {2, 0.9, 0.9}, 1, 1},
                 {1, {2, 1, 0}, 1, 0},   {1, {5, 0, 0}, 1, 0},    {1, {4.5, 0, 0}, 1, 1},
                 {2, {0, 4, 0}, 0.5, 1}, {2, {0, 5, 0}, 0.5, 0}};
    for (const auto& item : cases) {
        EXPECT_EQ(IsSegmentIntersectsSphere(3, ends[0], ends[item.nEnd], item.center, item.r), item.nNear)
            << &item - cases;
    }
}

TEST(PlaneGeometry, ATableIsNearAPointWhenOneOfItsSegmentsIs) {
    CTable table(3);
    table.Allocate(5);
    samples::FillRows(table.m_ppData, {{0, 0, 9}, {4, 0, 9}, {4, 4, 9}, {4, 4, 9}, {8, 4, 9}});
    const double outside[] = {2, 2};
    EXPECT_EQ(IsTableNearPoint(2, &table, outside, 0.5), 0);
    const double inside[][2] = {{2, 0.1}, {4.1, 2}, {7, 4.1}};
    for (const auto& point : inside) {
        EXPECT_EQ(IsTableNearPoint(2, &table, point, 0.5), 1) << point[0];
    }
    table.ReAllocate(1);
    const double first[] = {0, 0};
    EXPECT_EQ(IsTableNearPoint(2, &table, first, 0.5), 0) << "one row is no segment";
}

} // namespace
