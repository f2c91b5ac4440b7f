#include "tessara/numeric/MultipartTable.h"

#include <limits>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/numeric/Table.h"
#include "tests/numeric/Samples.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The parts as first row, rows and colour.
std::vector<std::vector<int>> Parts(const CMultipartTable& table) {
    std::vector<std::vector<int>> parts;
    for (int i = 0; i < table.m_nParts; ++i) {
        parts.push_back({table.m_pParts[i].nFirst, table.m_pParts[i].nPoints, table.m_pParts[i].nColor});
    }
    return parts;
}

/// A table with one column and one part that holds all values.
struct CColumn : CMultipartTable {
    CColumn(std::initializer_list<double> values, int nColor = 0) : CMultipartTable(1) {
        Allocate(static_cast<int>(values.size()));
        std::copy(values.begin(), values.end(), m_ppData[0]);
        BeginPart(0, nColor);
        EndPart(m_nPoints - 1);
    }
};

std::vector<double> Section(const CMultipartTable& table, double dLevel) {
    const std::unique_ptr<CTable> pSection(table.Value(0, dLevel));
    return pSection ? samples::Values(pSection->m_ppData[0], pSection->m_nPoints) : std::vector<double>();
}

TEST(MultipartTable, PartRecordsGrowSixteenAtATimeAndOneStaysFree) {
    CMultipartTable table(1);
    EXPECT_EQ(table.m_nMaxParts, 64);
    for (int nPart = 1; nPart <= 96; ++nPart) {
        table.BeginPart(nPart, 3);
        EXPECT_EQ(table.m_nParts, nPart - 1);
        table.EndPart(nPart);
        EXPECT_EQ(table.m_nMaxParts, nPart < 64 ? 64 : nPart < 80 ? 80 : nPart < 96 ? 96 : 112) << nPart;
    }
    EXPECT_EQ(table.m_pParts[95].nFirst, 96);
    EXPECT_EQ(table.m_pParts[95].nPoints, 1);
}

TEST(MultipartTable, TablesAreAppendedOrWrittenFromAPosition) {
    CTable piece(1);
    piece.Allocate(2);
    samples::FillRows(piece.m_ppData, {{1}, {2}});
    CMultipartTable table(1);
    table.AddTable(&piece, 4, -1);
    table.AddTable(&piece, 5, -1);
    EXPECT_THAT(Parts(table), ElementsAre(ElementsAre(0, 2, 4), ElementsAre(2, 2, 5)));
    EXPECT_THAT(samples::Values(table.m_ppData[0], table.m_nPoints), ElementsAre(1, 2, 1, 2));

    table.AddTable(&piece, 6, 1); // cuts the table off; the second part now reaches beyond it
    EXPECT_THAT(samples::Values(table.m_ppData[0], table.m_nPoints), ElementsAre(1, 1, 2));
    EXPECT_THAT(Parts(table), ElementsAre(ElementsAre(0, 2, 4), ElementsAre(2, 2, 5), ElementsAre(1, 2, 6)));
    EXPECT_THAT(Section(table, 1.5), ElementsAre(1.5)) << "only rows that exist are looked at";
    table.SetNumColors(7);
    CMultipartTable copy(&table);
    EXPECT_EQ(Parts(copy), Parts(table));
    EXPECT_EQ(copy.GetNumColors(), 7);
    EXPECT_EQ(copy.m_ppData[0][2], 2);
}

TEST(MultipartTable, AddsAnotherOrItselfMoved) {
    CColumn table({1, 2}, 3);
    CColumn other({8, 9, 10}, 4);
    table.AddMultipartTable(&other, -1);
    EXPECT_THAT(Parts(table), ElementsAre(ElementsAre(0, 2, 3), ElementsAre(2, 3, 4)));
    table.AddMultipartTable(&table, -1);
    EXPECT_THAT(samples::Values(table.m_ppData[0], table.m_nPoints),
                ElementsAre(1, 2, 8, 9, 10, 1, 2, 8, 9, 10));
    EXPECT_EQ(table.m_nParts, 4);
}

TEST(MultipartTable, ASegmentCountsThatStartsOnTheLevelOrPassesIt) {
    EXPECT_THAT(Section(CColumn({0, 1, 2}), 1), ElementsAre(1));
    EXPECT_THAT(Section(CColumn({2, 1, 0}), 1), ElementsAre(1));
    EXPECT_THAT(Section(CColumn({0, 1, 0}), 1), ElementsAre(1)) << "a peak counts once";
    EXPECT_THAT(Section(CColumn({0, 1}), 1), ElementsAre(1)) << "the last row counts by itself";
    EXPECT_THAT(Section(CColumn({1, 1, 1}), 1), ElementsAre(1)) << "segments on the level do not count";
    EXPECT_THAT(Section(CColumn({0, 3, 0, 3}), 1.5), ElementsAre(1.5, 1.5, 1.5));
    EXPECT_THAT(Section(CColumn({0, 1, 2}), 5), IsEmpty());
    EXPECT_THAT(Section(CColumn({0, 1, 2}), std::numeric_limits<double>::quiet_NaN()), IsEmpty());
    EXPECT_THAT(Section(CMultipartTable(1), 0), IsEmpty());
}

TEST(MultipartTable, ASectionInterpolatesEveryColumnWithinParts) {
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
}

} // namespace
