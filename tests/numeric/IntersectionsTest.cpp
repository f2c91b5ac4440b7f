#include "tessara/numeric/Intersections.h"

#include <cmath>
#include <memory>

#include <gtest/gtest.h>

#include "tessara/numeric/CrossingSearch.h"
#include "tessara/numeric/Table.h"
#include "tessara/platform/base/Exception.h"
#include "tests/numeric/Samples.h"

namespace {

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

TEST(Intersections, SelfCrossingsOfSmallTables) {
    const struct {
        const char* pszWhat;
        std::initializer_list<CRows> parts;
        std::vector<std::vector<double>> rows;
    } cases[] = {
        {"a figure eight", {{{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}}}, {{1, 1, 0}, {1, 1, 0}}},
        {"two parts", {{{0, 0, 0}, {2, 2, 0}}, {{0, 2, 0}, {2, 0, 0}}}, {{1, 1, 0}, {1, 1, 0}}},
        {"neighbours share a point", {{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {5, 2, 0}}}, {}},
        {"boxes that do not meet", {{{0, 0, 0}, {2, 1, 0}}, {{2, 3, 0}, {2, 4, 0}}}, {}},
        {"a point held", {{{0, 0, 0}, {1, 1, 0}, {1, 1, 0}, {2, 0, 0}}}, {{1, 1, 0}, {1, 1, 0}}},
        {"collinear", {{{0, 0, 0}, {4, 4, 0}}, {{1, 1, 0}, {6, 6, 0}}}, {}},
        {"collinear and level", {{{0, 0, 0}, {4, 0, 0}}, {{1, 0, 0}, {6, 0, 0}}}, {}},
        {"as seen from each, the later first",
         {{{0, 0, 10}, {2, 2, 30}}, {{0, 2, 5}, {2, 0, 7}}},
         {{1, 1, 6}, {1, 1, 20}}},
        {"the second end of a level segment",
         {{{0, 1, 10}, {2, 1, 30}}, {{1, 0, 5}, {1, 2, 7}}},
         {{1, 1, 6}, {1, 1, 30}}},
    };
    for (const auto& item : cases) {
        const std::unique_ptr<CMultipartTable> pResult(
            Find2DSelfIntersections(Table(3, item.parts).get(), 0, 1));
        EXPECT_EQ(samples::Rows(pResult.get()), item.rows) << item.pszWhat;
        EXPECT_EQ(pResult ? pResult->GetNumColors() : 1, 1);
    }
}

TEST(Intersections, MoreCrossingsThanATableHoldsAreAMemoryException) {
    const auto pTable = Table(2, {{{0, 0}, {2, 2}, {2, 0}, {0, 2}, {0, 1}, {3, 1}}});
    const tessara::CPolylines lines(*pTable, 0, 1);
    const std::size_t nAll = tessara::SearchSelfCrossings(lines).Size();
    ASSERT_GT(nAll, 2U);
    EXPECT_EQ(tessara::SearchSelfCrossings(lines, nAll).Size(), nAll);
    EXPECT_THROW(tessara::SearchSelfCrossings(lines, nAll - 1), CMemoryException);
    const std::size_t nMutual = tessara::SearchCrossings(lines, lines).Size();
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
