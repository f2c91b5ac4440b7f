#include "tessara/numeric/MultipartCurve.h"

#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/Table.h"
#include "tessara/platform/base/Exception.h"
#include "tests/numeric/Samples.h"

namespace {

using samples::CSampleCurve;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::vector<int>> Parts(const CMultipartCurve& curve) {
    std::vector<std::vector<int>> parts;
    for (int i = 0; i < curve.m_nParts; ++i) {
        parts.push_back({curve.m_pParts[i].nFirst, curve.m_pParts[i].nPoints, curve.m_pParts[i].nColor});
    }
    return parts;
}

std::vector<std::vector<double>> Section(const CMultipartCurve& curve, int bByY, double dLevel) {
    const std::unique_ptr<CTable> pSection(curve.Value(bByY, dLevel));
    return samples::Rows(pSection.get());
}

TEST(MultipartCurve, CurvesBecomeParts) {
    CSampleCurve first({0, 1, 2}, {0, 1, 0});
    CSampleCurve second({2, 3}, {5, 6});
    CMultipartCurve curve;
    curve.AddCurve(&first.curve, 1);
    curve.AddCurve(&second.curve, 2);
    EXPECT_THAT(Parts(curve), ElementsAre(ElementsAre(0, 3, 1), ElementsAre(3, 2, 2)));
    EXPECT_THAT(samples::Values(curve.m_pX, curve.m_nPoints), ElementsAre(0, 1, 2, 2, 3));
    EXPECT_THAT(samples::Values(curve.m_pY, curve.m_nPoints), ElementsAre(0, 1, 0, 5, 6));
    EXPECT_EQ(curve.m_nMaxParts, 64);

    curve.AddMultipartCurve(&curve);
    EXPECT_THAT(Parts(curve), ElementsAre(ElementsAre(0, 3, 1), ElementsAre(3, 2, 2), ElementsAre(5, 3, 1),
                                          ElementsAre(8, 2, 2)));
    EXPECT_EQ(curve.m_pY[9], 6);
}

TEST(MultipartCurve, ABorrowingCurveCopiesPartsAndBorrowsPoints) {
    double x[] = {0, 1, 2, 3, 4};
    double y[] = {0, 1, 2, 3, 4};
    CCurvePartInfo parts[] = {{0, 2, 0}, {2, 3, 1}};
    CMultipartCurve curve(5, x, y, 2, parts, 2);
    parts[1].nFirst = 99;
    EXPECT_THAT(Parts(curve), ElementsAre(ElementsAre(0, 2, 0), ElementsAre(2, 3, 1)));
    EXPECT_EQ(curve.m_nMaxParts, 2);
    EXPECT_EQ(curve.GetNumColors(), 2);
    curve.ReAllocate(50);
    EXPECT_EQ(curve.m_nPoints, 5);
    CSampleCurve more({5}, {5});
    EXPECT_THROW(curve.AddCurve(&more.curve, 0), CInvalidArgException);
    curve.BeginPart(0, 0); // needs a record that the copy does not have
    curve.EndPart(0);
    EXPECT_EQ(curve.m_nParts, 3);

    CMultipartCurve owning(4);
    owning.AddMultipartCurve(&curve);
    EXPECT_THAT(Parts(owning), ElementsAre(ElementsAre(4, 2, 0), ElementsAre(6, 3, 1), ElementsAre(4, 1, 0)));
    EXPECT_EQ(owning.GetNumColors(), 1) << "the source's colour count is not taken over";
}

TEST(MultipartCurve, EvaluatesAcrossPartsAsOnePolyline) {
    CSampleCurve first({0, 1}, {0, 10});
    CSampleCurve second({3, 4}, {30, 20});
    CMultipartCurve curve;
    curve.AddCurve(&first.curve, 0);
    curve.AddCurve(&second.curve, 1);
    EXPECT_EQ(curve.Value(2.0), 20);
    EXPECT_EQ(curve.Value(-1.0), 0);
    EXPECT_EQ(curve.Value(9.0), 20);
}

TEST(MultipartCurve, SectionsByEitherCoordinate) {
    CSampleCurve peak({0, 1, 2}, {0, 1, 0});
    CSampleCurve rise({4, 8}, {0.5, 1.5});
    CMultipartCurve curve;
    curve.AddCurve(&peak.curve, 0);
    curve.AddCurve(&rise.curve, 1);
    EXPECT_THAT(Section(curve, 1, 1), ElementsAre(ElementsAre(1, 1), ElementsAre(6, 1)));
    EXPECT_THAT(Section(curve, 1, 1.5), ElementsAre(ElementsAre(8, 1.5)));
    EXPECT_THAT(Section(curve, 0, 5), ElementsAre(ElementsAre(5, 0.75)));
    EXPECT_THAT(Section(curve, 0, 3), IsEmpty()) << "between parts there is no segment";
    EXPECT_THAT(Section(CMultipartCurve(), 0, 0), IsEmpty());
}

} // namespace
