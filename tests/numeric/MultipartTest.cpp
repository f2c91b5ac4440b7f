#include <algorithm>
#include <cmath>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Table.h"
#include "tessara/numeric/TableReference.h"
#include "tessara/platform/base/Exception.h"
#include "tests/numeric/Samples.h"

namespace {

using samples::CSampleCurve;
using testing::ElementsAre;
using testing::IsEmpty;

/// The parts of a multipart container as first point, points and colour.
template <class MULTIPART>
std::vector<std::vector<int>> Parts(const MULTIPART& container) {
    std::vector<std::vector<int>> parts;
    for (int i = 0; i < container.m_nParts; ++i) {
        const CCurvePartInfo& part = container.m_pParts[i];
        parts.push_back({part.nFirst, part.nPoints, part.nColor});
    }
    return parts;
}

std::vector<std::vector<double>> Section(const CMultipartCurve& curve, int bByY, double dLevel) {
    const std::unique_ptr<CTable> pSection(curve.Value(bByY, dLevel));
    return samples::Rows(pSection.get());
}

TEST(MultipartCurve, CurvesBecomePartsAndAreCutByEitherCoordinate) {
    CSampleCurve first({0, 1, 2}, {0, 1, 0});
    CSampleCurve second({4, 8}, {0.5, 1.5});
    CMultipartCurve curve;
    curve.AddCurve(&first.curve, 1);
    curve.AddCurve(&second.curve, 2);
    EXPECT_THAT(Parts(curve), ElementsAre(ElementsAre(0, 3, 1), ElementsAre(3, 2, 2)));
    EXPECT_EQ(curve.Value(3), 0.25) << "one polyline across the parts";
    EXPECT_THAT(Section(curve, 1, 1), ElementsAre(ElementsAre(1, 1), ElementsAre(6, 1)));
    EXPECT_THAT(Section(curve, 0, 5), ElementsAre(ElementsAre(5, 0.75)));
    EXPECT_THAT(Section(curve, 0, 3), IsEmpty()) << "between parts there is no segment";
    curve.AddMultipartCurve(&curve);
    EXPECT_THAT(Parts(curve), ElementsAre(ElementsAre(0, 3, 1), ElementsAre(3, 2, 2), ElementsAre(5, 3, 1),
                                          ElementsAre(8, 2, 2)));
}

TEST(MultipartCurve, ABorrowingCurveCopiesPartsAndBorrowsPoints) {
    double x[] = {0, 1, 2, 3, 4};
    double y[] = {0, 1, 2, 3, 4};
    CCurvePartInfo parts[] = {{0, 2, 0}, {2, 3, 1}};
    CMultipartCurve curve(5, x, y, 2, parts, 2);
    parts[1].nFirst = 99;
    CCurve more(0);
    EXPECT_THROW(curve.AddCurve(&more, 0), CInvalidArgException);
    curve.BeginPart(0, 0); // needs a record that the copy does not have
    curve.EndPart(0);
    CMultipartCurve owning(4);
    owning.AddMultipartCurve(&curve);
    EXPECT_THAT(Parts(owning), ElementsAre(ElementsAre(4, 2, 0), ElementsAre(6, 3, 1), ElementsAre(4, 1, 0)));
}

/// The section of a table with one column and one part that holds all values.
std::vector<double> Section(std::initializer_list<double> values, double dLevel) {
    CMultipartTable table(1);
    table.Allocate(static_cast<int>(values.size()));
    std::copy(values.begin(), values.end(), table.m_ppData[0]);
    table.BeginPart(0, 0);
    table.EndPart(table.m_nPoints - 1);
    const std::unique_ptr<CTable> pSection(table.Value(0, dLevel));
    return pSection ? samples::Values(pSection->m_ppData[0], pSection->m_nPoints) : std::vector<double>();
}

TEST(MultipartTable, TablesAreAppendedOrWrittenFromAPosition) {
    CTable piece(1);
    piece.Allocate(2);
    samples::FillRows(piece.m_ppData, {{1}, {2}});
    CMultipartTable table(1);
    table.AddTable(&piece, 4, -1);
    table.AddTable(&piece, 5, -1);
    EXPECT_THAT(Parts(table), ElementsAre(ElementsAre(0, 2, 4), ElementsAre(2, 2, 5)));
    table.AddTable(&piece, 6, 1); // cuts the table off; the second part now reaches beyond it
    EXPECT_THAT(samples::Values(table.m_ppData[0], table.m_nPoints), ElementsAre(1, 1, 2));
    EXPECT_THAT(Parts(table), ElementsAre(ElementsAre(0, 2, 4), ElementsAre(2, 2, 5), ElementsAre(1, 2, 6)));
    const std::unique_ptr<CTable> pSection(table.Value(0, 1.5));
    EXPECT_THAT(samples::Rows(pSection.get()), ElementsAre(ElementsAre(1.5))) << "only rows that exist";
    table.SetNumColors(7);
    CMultipartTable copy(&table);
    EXPECT_EQ(copy.GetNumColors(), 7);
    copy.AddMultipartTable(&copy, -1);
    EXPECT_THAT(samples::Values(copy.m_ppData[0], copy.m_nPoints), ElementsAre(1, 1, 2, 1, 1, 2));
    EXPECT_THAT(Parts(copy)[5], ElementsAre(4, 2, 6));
    copy.Free();
    EXPECT_TRUE(std::isnan(copy.Max(0))) << "the columns are kept and empty";
    EXPECT_EQ(table.Max(0), 2) << "the copy is independent";
}

TEST(MultipartTable, ATableIsAddedToItselfWholeThoughItsRecordsMoveMeanwhile) {
    CMultipartTable table(2);
    table.Allocate(60);
    for (int i = 0; i < 60; ++i) {
        table.m_ppData[0][i] = i;
        table.m_ppData[1][i] = -i;
        table.BeginPart(i, 100 + i);
        table.EndPart(i);
    }
    table.AddMultipartTable(&table, -1);
    ASSERT_EQ(table.m_nPoints, 120);
    ASSERT_EQ(table.m_nParts, 120);
    for (int i = 0; i < 120; ++i) {
        EXPECT_EQ(Parts(table)[static_cast<std::size_t>(i)], (std::vector{i, 1, 100 + i % 60}));
        EXPECT_TRUE(table.m_ppData[0][i] == i % 60 && table.m_ppData[1][i] == -(i % 60)) << i;
    }
    CMultipartTable rising(1);
    rising.Allocate(3);
    samples::FillRows(rising.m_ppData, {{1}, {2}, {3}});
    rising.BeginPart(0, 4);
    rising.EndPart(2);
    rising.AddMultipartTable(&rising, 1);
    EXPECT_THAT(samples::Values(rising.m_ppData[0], rising.m_nPoints), ElementsAre(1, 1, 2, 3));
    EXPECT_THAT(Parts(rising), ElementsAre(ElementsAre(0, 3, 4), ElementsAre(1, 3, 4)));
}

TEST(MultipartTable, ASegmentCountsThatStartsOnTheLevelOrPassesIt) {
    EXPECT_THAT(Section({0, 1, 2}, 1), ElementsAre(1));
    EXPECT_THAT(Section({0, 1, 0}, 1), ElementsAre(1)) << "a peak counts once";
    EXPECT_THAT(Section({0, 1}, 1), ElementsAre(1)) << "the last row counts by itself";
    EXPECT_THAT(Section({1, 1, 1}, 1), ElementsAre(1)) << "segments on the level do not count";
    EXPECT_THAT(Section({0, 3, 0, 3}, 1.5), ElementsAre(1.5, 1.5, 1.5));
    EXPECT_THAT(Section({0, 1, 2}, std::nan("")), IsEmpty());
    EXPECT_THAT(Section({}, 0), IsEmpty());
}

TEST(MultipartTable, ASectionInterpolatesEveryColumnWithinPartsAndAPartIsAReference) {
    CMultipartTable table(3);
    table.Allocate(5);
    samples::FillRows(table.m_ppData, {{0, 10, 0}, {2, 30, -1}, {4, 0, 9}, {0, 5, 9}, {4, 7, 9}});
    table.BeginPart(0, 0);
    table.EndPart(1);
    table.BeginPart(2, 0);
    table.EndPart(3);
    const std::unique_ptr<CTable> pSection(table.Value(0, 1));
    EXPECT_THAT(samples::Rows(pSection.get()),
                ElementsAre(ElementsAre(1, 20, -0.5), ElementsAre(1, 3.75, 9)));
    // The last row belongs to no part and counts nevertheless.
    const std::unique_ptr<CTable> pLast(table.Value(0, 4));
    EXPECT_THAT(samples::Rows(pLast.get()), ElementsAre(ElementsAre(4, 0, 9), ElementsAre(4, 7, 9)));

    const std::unique_ptr<CTableReference> pPart(table.GetPart(1));
    table.m_ppData[1][2] = 25; // the part shows its rows without copying
    EXPECT_THAT(samples::Rows(pPart.get()), ElementsAre(ElementsAre(4, 25, 9), ElementsAre(0, 5, 9)));
    EXPECT_THROW(table.GetPart(-1), CInvalidArgException);
    EXPECT_THROW(table.GetPart(2), CInvalidArgException);
}

} // namespace
