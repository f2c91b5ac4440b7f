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
    const struct {
        CDoublePoint pt1, pt2;
        double line[3];
    } cases[] = {{{0, 0}, {0, 5}, {1, 0, 0}},
                 {{3, 1}, {3, 1}, {1, 0, -3}},
                 {{1, 2}, {4, 2}, {0, 1, -2}},
                 {{0, 0}, {2, 4}, {0.5, -0.25, 0}},
                 {{1, 1}, {3, 5}, {0.5, -0.25, -0.25}}};
    for (const auto& item : cases) {
        double line[3];
        LineEquation(item.pt1, item.pt2, line);
        EXPECT_TRUE(bits::Same(line[0], item.line[0]) && line[1] == item.line[1] && line[2] == item.line[2]);
    }
    double parallel1[] = {1, 2, 3};
    double parallel2[] = {2, 4, 0};
    CDoublePoint ptCross = {7, 8};
    EXPECT_EQ(LinesCrossPoint(parallel1, parallel2, ptCross), 0);
    EXPECT_TRUE(ptCross.x == 7 && ptCross.y == 8) << "a point that is not found is left alone";
}

TEST(PlaneGeometry, SegmentsCrossWithinBothBoxes) {
    const struct {
        CDoublePoint a1, a2, b1, b2;
        int nCross;
        CDoublePoint ptCross;
    } cases[] = {{{0, 0}, {2, 2}, {0, 2}, {2, 0}, 1, {1, 1}},
                 {{0, 0}, {1, 1}, {2, 0}, {3, 1}, 0, {9, 9}},
                 {{0, 0}, {2, 2}, {1, 1}, {3, 3}, 0, {9, 9}},
                 {{0, 0}, {4, 0}, {2, -1}, {2, 5}, 1, {2, 0}},
                 {{0, 0}, {4, 4}, {3, 0}, {4, 1}, 0, {INFINITE, INFINITE}},
                 {{0, 0}, {4, 1}, {2, 1}, {3, 3}, 0, {12.0 / 7, 3.0 / 7}},
                 {{0, 0}, {1, 0}, {1, 0}, {1, 1}, 1, {1, 0}},
                 {{NOT_A_NUMBER, 0}, {2, 2}, {0, 2}, {2, 0}, 0, {NOT_A_NUMBER, NOT_A_NUMBER}}};
    for (const auto& item : cases) {
        CDoublePoint ptCross = {9, 9};
        EXPECT_EQ(SegmentsCrossPoint(item.a1, item.a2, item.b1, item.b2, ptCross), item.nCross);
        if (std::isfinite(item.ptCross.x)) {
            EXPECT_NEAR(ptCross.x, item.ptCross.x, 1e-15);
            EXPECT_NEAR(ptCross.y, item.ptCross.y, 1e-15);
        }
    }
}

/// 1 when the nearest point of a segment to the centre is inside the disc, -1 when outside, 0 when it is too
/// near to the circle to tell.
int PlainlyMeets(double x1, double y1, double x2, double y2, double xc, double yc, double r) {
    const double dMargin = PointToSegmentDistance2D(x1, y1, x2, y2, xc, yc) - r;
    return std::fabs(dMargin) < 1e-9 ? 0 : dMargin < 0 ? 1 : -1;
}

TEST(PlaneGeometry, AnObliqueSegmentMeetsADiscWhenItsNearestPointIsInside) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(-3, 3);
    int nHits = 0;
    for (int nRound = 0; nRound < 20000; ++nRound) {
        const double s[] = {place(random), place(random), place(random), place(random)};
        const double c[] = {place(random), place(random), std::fabs(place(random))};
        const int nExpected = PlainlyMeets(s[0], s[1], s[2], s[3], c[0], c[1], c[2]);
        const int nFound = IsSegmentIntersectsCircle(s[0], s[1], s[2], s[3], c[0], c[1], c[2]);
        if (nExpected != 0) {
            ASSERT_EQ(nFound, nExpected > 0) << nRound;
        }
        nHits += nFound;
    }
    EXPECT_GT(nHits, 5000);
    EXPECT_EQ(IsSegmentIntersectsCircle(-1, -1, 1, 1, 0, 0, 10), 1) << "wholly inside";
    EXPECT_EQ(IsSegmentIntersectsCircle(NOT_A_NUMBER, -1, 1, 1, 0, 0, 10), 0);
}

TEST(PlaneGeometry, ASegmentAlongAnAxisMeetsADiscExactlyWhenOneOfItsPointsIsInside) {
    // Whole numbers: the squares are exact, and so is what is expected.
    for (int nRadius = 0; nRadius <= 5; ++nRadius) {
        for (int y = -6; y <= 6; ++y) {
            for (int x1 = -7; x1 <= 7; ++x1) {
                for (int x2 = -7; x2 <= 7; ++x2) {
                    const int nNearest = x1 * x2 <= 0 ? 0 : std::min(std::abs(x1), std::abs(x2));
                    const int nInside = nNearest * nNearest + y * y < nRadius * nRadius;
                    if (x1 != x2) {
                        ASSERT_EQ(IsSegmentIntersectsCircle(10 + x1, y, 10 + x2, y, 10, 0, nRadius), nInside);
                        ASSERT_EQ(IsSegmentIntersectsCircle(y, x1 - 9, y, x2 - 9, 0, -9, nRadius), nInside);
                    }
                }
            }
        }
    }
    EXPECT_EQ(IsSegmentIntersectsCircle(-INFINITE, 1, INFINITE, 1, 0, 0, 2), 1);
    EXPECT_EQ(IsSegmentIntersectsCircle(NOT_A_NUMBER, 1, 1, 1, 0, 0, 2), 0);
    EXPECT_EQ(IsSegmentIntersectsCircle(0, NOT_A_NUMBER, 0, 1, 0, 0, 2), 0);
    EXPECT_EQ(IsSegmentIntersectsCircle(-1, 1e-200, 1, 1e-200, 0, 0, 2e-200), 1) << "no square underflows";
    EXPECT_EQ(IsSegmentIntersectsCircle(-1, 0, 1, 0, 0, 0, -1), 0) << "no point is inside";
}

TEST(PlaneGeometry, ASegmentOfOnePointIsMeasuredAgainstTheSquare) {
    EXPECT_EQ(IsSegmentIntersectsCircle(0.9, 0.9, 0.9, 0.9, 0, 0, 1), 1);
    EXPECT_EQ(IsSegmentIntersectsCircle(1, 0, 1, 0, 0, 0, 1), 0);
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
    const double a[] = {0, 0, 0};
    const double b[] = {4, 0, 0};
    const double c[] = {3, 4, 0};
    const struct {
        const double* pA;
        const double* pB;
        double center[3];
        double r;
        int nNear;
    } cases[] = {{a, a, {3, 4, 0}, 5, 0},   {a, a, {3, 4, 0}, 5.01, 1}, {a, b, {2, 0.9, 0.9}, 1, 1},
                 {a, b, {2, 1, 0}, 1, 0},   {a, b, {5, 0, 0}, 1, 0},    {a, b, {4.5, 0, 0}, 1, 1},
                 {a, c, {0, 4, 0}, 0.5, 1}, {a, c, {0, 5, 0}, 0.5, 0}};
    for (const auto& item : cases) {
        EXPECT_EQ(IsSegmentIntersectsSphere(3, item.pA, item.pB, item.center, item.r), item.nNear)
            << &item - cases;
    }
}

TEST(PlaneGeometry, ATableIsNearAPointWhenOneOfItsSegmentsIs) {
    CTable table(3);
    table.Allocate(4);
    samples::FillRows(table.m_ppData, {{0, 0, 9}, {4, 0, 9}, {4, 4, 9}, {4, 4, 9}});
    const double inside[] = {4.1, 2};
    const double outside[] = {2, 2};
    EXPECT_EQ(IsTableNearPoint(2, &table, inside, 0.5), 1);
    EXPECT_EQ(IsTableNearPoint(2, &table, outside, 0.5), 0);
    table.ReAllocate(1);
    const double first[] = {0, 0};
    EXPECT_EQ(IsTableNearPoint(2, &table, first, 0.5), 0) << "one row is no segment";
}

} // namespace
