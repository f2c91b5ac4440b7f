#include "tessara/numeric/Table.h"

#include <cmath>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/TableReference.h"
#include "tessara/platform/base/Exception.h"
#include "tests/numeric/Samples.h"

namespace {

using testing::ElementsAre;

TEST(Table, KeepsLeadingRowsWhenResizedAndColumnsWhenFreed) {
    CTable table(2);
    table.Allocate(2);
    samples::FillRows(table.m_ppData, {{1, 10}, {2, 20}});
    table.ReAllocate(1000);
    table.ReAllocate(2);
    EXPECT_THAT(samples::Rows(&table), ElementsAre(ElementsAre(1, 10), ElementsAre(2, 20)));
    EXPECT_EQ(table.Min(0), 1);
    EXPECT_EQ(table.Max(1), 20);
    table.Free();
    EXPECT_EQ(table.m_nDimensions, 2);
    EXPECT_EQ(table.m_ppData[0], nullptr);
    EXPECT_TRUE(std::isnan(table.Max(1)));
    table.Allocate(1);
    samples::FillRows(table.m_ppData, {{3, 30}});
    EXPECT_EQ(table.Min(1), 30);
}

TEST(Table, ACopyIsIndependent) {
    CTable table(1);
    table.Allocate(2);
    samples::FillRows(table.m_ppData, {{1}, {2}});
    CTable copy(&table);
    table.m_ppData[0][0] = 9;
    EXPECT_THAT(samples::Rows(&copy), ElementsAre(ElementsAre(1), ElementsAre(2)));
}

TEST(TableReference, APartShowsTheRowsOfItsTableWithoutCopying) {
    CMultipartTable table(2);
    table.Allocate(4);
    samples::FillRows(table.m_ppData, {{0, 0}, {1, 10}, {2, 20}, {3, 30}});
    table.BeginPart(1, 0);
    table.EndPart(2);
    {
        const std::unique_ptr<CTableReference> pPart(table.GetPart(0));
        table.m_ppData[1][2] = 25;
        EXPECT_THAT(samples::Rows(pPart.get()), ElementsAre(ElementsAre(1, 10), ElementsAre(2, 25)));
    }
    EXPECT_EQ(table.m_ppData[0][1], 1);
    EXPECT_THROW(table.GetPart(-1), CInvalidArgException);
    EXPECT_THROW(table.GetPart(1), CInvalidArgException);
}

} // namespace
