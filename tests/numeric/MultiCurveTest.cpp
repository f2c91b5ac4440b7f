#include "tessara/numeric/MultiCurve.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/numeric/Samples.h"

namespace {

using testing::ElementsAre;

/// Two columns, three points.
void Fill(CMultiCurve& curve) {
    curve.SetDimensions(2);
    curve.Allocate(3);
    for (int i = 0; i < 3; ++i) {
        curve.m_pX[i] = i;
        curve.m_ppY[0][i] = 10 + i;
        curve.m_ppY[1][i] = 20 - i;
    }
}

TEST(MultiCurve, ChangingTheColumnsDropsThePointsAndTheSameCountDoesNot) {
    CMultiCurve curve;
    Fill(curve);
    curve.SetDimensions(2);
    EXPECT_EQ(curve.m_nPoints, 3);
    EXPECT_EQ(curve.Min(0), 10);
    EXPECT_EQ(curve.Max(1), 20);
    curve.SetDimensions(5);
    EXPECT_EQ(curve.m_nPoints, 0);
    EXPECT_THAT(std::vector<double*>(curve.m_ppY, curve.m_ppY + 5), testing::Each(nullptr));
    curve.Allocate(2);
    curve.m_ppY[4][1] = 1;
    curve.SetDimensions(0);
    EXPECT_EQ(curve.m_ppY, nullptr);
    EXPECT_EQ(curve.m_nPoints, 0);
}

TEST(MultiCurve, AssignmentCopiesIntoEveryShape) {
    CMultiCurve source;
    Fill(source);
    const struct {
        int nDimensions;
        int nPoints;
    } shapes[] = {{0, 0}, {2, 0}, {2, 3}, {2, 9}, {2, 1}, {5, 3}, {1, 0}, {0, 4}};
    for (const auto& shape : shapes) {
        CMultiCurve curve(shape.nDimensions);
        curve.Allocate(shape.nPoints);
        curve = source;
        EXPECT_EQ(curve.m_nDimensions, 2);
        EXPECT_THAT(samples::Values(curve.m_pX, curve.m_nPoints), ElementsAre(0, 1, 2));
        EXPECT_THAT(samples::Values(curve.m_ppY[1], 3), ElementsAre(20, 19, 18));
        curve.m_ppY[1][0] = 0;
        EXPECT_EQ(source.m_ppY[1][0], 20) << "the copy is independent";
    }
}

TEST(MultiCurve, AssignmentFromNoPointsOrNoColumnsAndFromItself) {
    CMultiCurve curve;
    Fill(curve);
    CMultiCurve& same = curve;
    curve = same;
    EXPECT_EQ(curve.m_ppY[1][2], 18);
    CMultiCurve empty(4);
    curve = empty;
    EXPECT_EQ(curve.m_nDimensions, 4);
    EXPECT_EQ(curve.m_nPoints, 0);
    CMultiCurve noColumns;
    noColumns.Allocate(2);
    curve = noColumns;
    EXPECT_EQ(curve.m_nPoints, 0);
    EXPECT_EQ(curve.m_ppY, nullptr);
}

} // namespace
