#include "tessara/numeric/Intersections.h"

#include <cmath>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/numeric/CrossingSearch.h"
#include "tessara/numeric/Table.h"
#include "tessara/platform/base/Exception.h"
#include "tests/numeric/Samples.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using CRows = std::initializer_list<std::initializer_list<double>>;

/// A table whose parts are given by their rows.
std::unique_ptr<CMultipartTable> Table(int nColumns, std::initializer_list<CRows> parts) {
    auto pTable = std::make_unique<CMultipartTable>(nColumns);
    for (const CRows& rows : parts) {
        CTable part(nColumns);
        part.Allocate(static_cast<int>(rows.size()));
        samples::FillRows(part.m_ppData, rows);
        pTable->AddTable(&part, 5, -1);
    }
    return pTable;
}

std::vector<std::vector<double>> SelfRows(int nColumns, std::initializer_list<CRows> parts) {
    const auto pTable = Table(nColumns, parts);
    const std::unique_ptr<CMultipartTable> pResult(Find2DSelfIntersections(pTable.get(), 0, 1));
    return samples::Rows(pResult.get());
}

TEST(Intersections, AFigureEightCrossesItselfOnce) {
    const auto pTable = Table(2, {{{0, 0}, {2, 2}, {2, 0}, {0, 2}}});
    const std::unique_ptr<CMultipartTable> pResult(Find2DSelfIntersections(pTable.get(), 0, 1));
    ASSERT_TRUE(pResult);
    EXPECT_THAT(samples::Rows(pResult.get()), ElementsAre(ElementsAre(1, 1), ElementsAre(1, 1)));
    EXPECT_EQ(pResult->m_nParts, 1);
    EXPECT_EQ(pResult->m_pParts[0].nFirst, 0);
    EXPECT_EQ(pResult->m_pParts[0].nPoints, 2);
    EXPECT_EQ(pResult->m_pParts[0].nColor, 0);
    EXPECT_EQ(pResult->GetNumColors(), 1);
}

TEST(Intersections, NeighboursThatShareAPointDoNotCross) {
    EXPECT_THAT(SelfRows(2, {{{0, 0}, {2, 0}, {2, 2}, {5, 2}}}), IsEmpty());
    EXPECT_THAT(SelfRows(2, {{{0, 0}, {2, 1}}, {{2, 3}, {2, 4}}}), IsEmpty());
}

TEST(Intersections, APointHeldForARowIsACrossingOfTheSegmentsAroundIt) {
    EXPECT_THAT(SelfRows(2, {{{0, 0}, {1, 1}, {1, 1}, {2, 0}}}),
                ElementsAre(ElementsAre(1, 1), ElementsAre(1, 1)));
}

TEST(Intersections, TwoPartsCrossOnce) {
    EXPECT_THAT(SelfRows(2, {{{0, 0}, {2, 2}}, {{0, 2}, {2, 0}}}),
                ElementsAre(ElementsAre(1, 1), ElementsAre(1, 1)));
}

TEST(Intersections, CollinearSegmentsDoNotCross) {
    EXPECT_THAT(SelfRows(2, {{{0, 0}, {4, 4}}, {{1, 1}, {6, 6}}}), IsEmpty());
    EXPECT_THAT(SelfRows(2, {{{0, 0}, {4, 0}}, {{1, 0}, {6, 0}}}), IsEmpty());
}

TEST(Intersections, OtherColumnsAreSeenFromEachSegment) {
    // The later segment first.
    EXPECT_THAT(SelfRows(3, {{{0, 0, 10}, {2, 2, 30}}, {{0, 2, 5}, {2, 0, 7}}}),
                ElementsAre(ElementsAre(1, 1, 6), ElementsAre(1, 1, 20)));
    // Along a level segment the value is that of its second end.
    EXPECT_THAT(SelfRows(3, {{{0, 1, 10}, {2, 1, 30}}, {{1, 0, 5}, {1, 2, 7}}}),
                ElementsAre(ElementsAre(1, 1, 6), ElementsAre(1, 1, 30)));
}

TEST(Intersections, TablesMayDifferInWidthAndPlane) {
    const auto pA = Table(3, {{{10, 0, 0}, {30, 2, 2}}});
    const auto pB = Table(2, {{{2, 0}, {0, 2}}});
    const std::unique_ptr<CMultipartTable> pResult(FindIntersections(pA.get(), pB.get(), 1, 2, 0, 1));
    EXPECT_THAT(samples::Rows(pResult.get()), ElementsAre(ElementsAre(1, 1, 0), ElementsAre(20, 1, 1)));
    const std::unique_ptr<CMultipartTable> pSwapped(FindIntersections(pB.get(), pA.get(), 0, 1, 1, 2));
    EXPECT_THAT(samples::Rows(pSwapped.get()), ElementsAre(ElementsAre(20, 1, 1), ElementsAre(1, 1, 0)));
    const auto pFar = Table(2, {{{12, 0}, {10, 2}}});
    EXPECT_EQ(FindIntersections(pA.get(), pFar.get(), 1, 2, 0, 1), nullptr);
}

TEST(Intersections, TablesWithoutSegmentsCrossNothing) {
    CMultipartTable empty(2);
    const auto pLine = Table(2, {{{0, 0}, {2, 2}}});
    const auto pPoints = Table(2, {{{1, 1}}, {{1, 1}}});
    for (CMultipartTable* pTable : {&empty, pPoints.get()}) {
        EXPECT_EQ(Find2DSelfIntersections(pTable, 0, 1), nullptr);
        EXPECT_EQ(FindIntersections(pTable, pLine.get(), 0, 1, 0, 1), nullptr);
        EXPECT_EQ(FindIntersections(pLine.get(), pTable, 0, 1, 0, 1), nullptr);
    }
}

TEST(Intersections, ManyRowsAndPartsAreKept) {
    // Two combs of 40 teeth: 1600 crossings, in the order of the first table.
    CMultipartTable a(2), b(2);
    CTable tooth(2);
    tooth.Allocate(2);
    for (int i = 0; i < 40; ++i) {
        samples::FillRows(tooth.m_ppData, {{double(i), -1}, {double(i), 40}});
        a.AddTable(&tooth, 0, -1);
        samples::FillRows(tooth.m_ppData, {{-1, double(i)}, {40, double(i)}});
        b.AddTable(&tooth, 0, -1);
    }
    const std::unique_ptr<CMultipartTable> pResult(FindIntersections(&a, &b, 0, 1, 0, 1));
    ASSERT_TRUE(pResult);
    ASSERT_EQ(pResult->m_nPoints, 3200);
    ASSERT_EQ(pResult->m_nParts, 1600);
    EXPECT_EQ(pResult->m_nMaxParts, 1616) << "one record is free";
    for (int i = 0; i < 3200; ++i) {
        EXPECT_EQ(pResult->m_ppData[0][i], i / 2 / 40);
        EXPECT_EQ(pResult->m_ppData[1][i], i / 2 % 40);
    }
}

TEST(Intersections, MoreCrossingsThanATableHoldsAreAMemoryException) {
    const auto pTable = Table(2, {{{0, 0}, {2, 2}, {2, 0}, {0, 2}, {0, 1}, {3, 1}}});
    const tessara::CPolylines lines(*pTable, 0, 1);
    const std::size_t nAll = tessara::SearchSelfCrossings(lines).size();
    ASSERT_GT(nAll, 2U);
    EXPECT_EQ(tessara::SearchSelfCrossings(lines, nAll).size(), nAll);
    EXPECT_THROW(tessara::SearchSelfCrossings(lines, nAll - 1), CMemoryException);
    const std::size_t nMutual = tessara::SearchCrossings(lines, lines).size();
    EXPECT_THROW(tessara::SearchCrossings(lines, lines, nMutual - 1), CMemoryException);
    EXPECT_EQ(tessara::MAX_CROSSINGS, (std::size_t{1} << 30) - 1) << "two rows each";
}

TEST(Intersections, MorePointsThanAnIntCountsAreAMemoryException) {
    // Overlapping parts are copied: here 64 x 2^26 points, of which the table has but the first.
    CMultipartTable table(2);
    constexpr int ROWS = 1 << 26;
    table.Allocate(2);
    table.m_nPoints = ROWS;
    for (int i = 0; i < 64; ++i) {
        table.BeginPart(0, 0);
        table.EndPart(ROWS - 1);
    }
    EXPECT_THROW(Find2DSelfIntersections(&table, 0, 1), CMemoryException);
    table.m_nPoints = 2;
}

TEST(Intersections, WorkGrowsWithTheSegmentsOfASmoothCurveAndOfHeldPoints) {
    // The plain loop over all pairs would take hours on these.
    constexpr int ROWS = 2000000;
    CMultipartTable table(2);
    table.Allocate(ROWS);
    for (int i = 0; i < ROWS; ++i) {
        const double dAngle = i < ROWS / 2 ? 1e-5 * i : 5.0;
        table.m_ppData[0][i] = std::sin(2 * dAngle);
        table.m_ppData[1][i] = std::sin(3 * dAngle + 0.5);
    }
    table.BeginPart(0, 0);
    table.EndPart(ROWS - 1);
    const std::unique_ptr<CMultipartTable> pResult(Find2DSelfIntersections(&table, 0, 1));
    ASSERT_TRUE(pResult);
    EXPECT_GE(pResult->m_nParts, 7);
}

} // namespace
