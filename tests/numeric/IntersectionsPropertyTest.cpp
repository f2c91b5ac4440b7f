// Thousands of random tables: the crossings are those of the plain loop over all pairs, row by row and bit by
// bit.

#include <cstring>

#include <gtest/gtest.h>

#include "tessara/numeric/Intersections.h"
#include "tests/numeric/IntersectionsReference.h"
#include "tests/numeric/RandomTables.h"

namespace {

/// How the first difference between two results reads; empty when there is none.
std::string Difference(const CMultipartTable* pResult, const CMultipartTable* pExpected) {
    if (!pResult || !pExpected) {
        return pResult == pExpected ? ""
               : pResult            ? "crossings found where there are none"
                                    : "no crossings found";
    }
    if (pResult->m_nDimensions != pExpected->m_nDimensions || pResult->m_nPoints != pExpected->m_nPoints ||
        pResult->m_nParts != pExpected->m_nParts || pResult->m_nMaxParts != pExpected->m_nMaxParts ||
        pResult->m_nColors != pExpected->m_nColors) {
        return "counts: " + std::to_string(pResult->m_nParts) + " for " + std::to_string(pExpected->m_nParts);
    }
    for (int i = 0; i < pResult->m_nParts; ++i) {
        if (std::memcmp(&pResult->m_pParts[i], &pExpected->m_pParts[i], sizeof(CCurvePartInfo)) != 0) {
            return "part " + std::to_string(i);
        }
    }
    for (int i = 0; i < pResult->m_nPoints; ++i) {
        for (int k = 0; k < pResult->m_nDimensions; ++k) {
            if (std::memcmp(&pResult->m_ppData[k][i], &pExpected->m_ppData[k][i], sizeof(double)) != 0) {
                return "row " + std::to_string(i) + ", column " + std::to_string(k);
            }
        }
    }
    return "";
}

std::string SelfDifference(CMultipartTable& table, int nX, int nY) {
    const std::unique_ptr<CMultipartTable> pResult(Find2DSelfIntersections(&table, nX, nY));
    return Difference(pResult.get(), reference::SelfIntersections(table, nX, nY).get());
}

std::string PairDifference(CMultipartTable& a, CMultipartTable& b, int nXA, int nYA, int nXB, int nYB) {
    const std::unique_ptr<CMultipartTable> pResult(FindIntersections(&a, &b, nXA, nYA, nXB, nYB));
    return Difference(pResult.get(), reference::Intersections({a, nXA, nYA}, {b, nXB, nYB}).get());
}

TEST(IntersectionsProperty, SelfCrossingsAreThoseOfThePlainLoop) {
    int nWithCrossings = 0;
    for (unsigned nSeed = 0; nSeed < 4000; ++nSeed) {
        samples::CTableMaker maker(nSeed);
        const auto pTable = maker.Make();
        const int nX = maker.Draw(0, pTable->m_nDimensions - 1);
        const int nY = maker.Draw(0, pTable->m_nDimensions - 1); // now and then the same column
        ASSERT_EQ(SelfDifference(*pTable, nX, nY), "") << "seed " << nSeed;
        const std::unique_ptr<CMultipartTable> pResult(Find2DSelfIntersections(pTable.get(), nX, nY));
        nWithCrossings += pResult != nullptr;
    }
    EXPECT_GT(nWithCrossings, 1000) << "the tables test something";
}

TEST(IntersectionsProperty, CrossingsOfTwoTablesAreThoseOfThePlainLoop) {
    for (unsigned nSeed = 0; nSeed < 4000; ++nSeed) {
        samples::CTableMaker maker(nSeed + 100000);
        const auto pA = maker.Make();
        const auto pB = maker.Make();
        const auto column = [&](const CMultipartTable& table) {
            return maker.Draw(0, table.m_nDimensions - 1);
        };
        ASSERT_EQ(PairDifference(*pA, *pB, column(*pA), column(*pA), column(*pB), column(*pB)), "")
            << "seed " << nSeed;
    }
}

TEST(IntersectionsProperty, ATableMayCrossItselfAsTwo) {
    for (unsigned nSeed = 0; nSeed < 500; ++nSeed) {
        samples::CTableMaker maker(nSeed + 200000);
        const auto pTable = maker.Make();
        ASSERT_EQ(PairDifference(*pTable, *pTable, 0, 1, 0, 1), "") << "seed " << nSeed;
    }
}

/// Long parts, so that ranges are divided and the tree has several levels.
TEST(IntersectionsProperty, LongCurvesToo) {
    constexpr int ROWS = 3000;
    for (unsigned nSeed = 0; nSeed < 12; ++nSeed) {
        std::mt19937_64 random(nSeed);
        std::normal_distribution<double> normal;
        CMultipartTable table(3);
        table.Allocate(ROWS);
        double x = 0, y = 0;
        for (int i = 0; i < ROWS; ++i) {
            const double dAngle = 0.003 * (nSeed + 1) * i;
            const bool bSmooth = nSeed % 3 == 0 || (nSeed % 3 == 1 && i % 1000 < 500);
            x += bSmooth ? 0.02 * std::cos(dAngle) + 0.01 * std::cos(2.7 * dAngle) : normal(random) / 10;
            y += bSmooth ? 0.02 * std::sin(dAngle) : normal(random) / 10;
            table.m_ppData[0][i] = nSeed % 4 == 3 ? std::round(8 * x) / 8 : x;
            table.m_ppData[1][i] = nSeed % 4 == 3 ? std::round(8 * y) / 8 : y;
            table.m_ppData[2][i] = i;
        }
        // One part, or many short ones.
        const int nPartRows = nSeed < 8 ? ROWS : 40;
        for (int nFirst = 0; nFirst < ROWS; nFirst += nPartRows) {
            table.BeginPart(nFirst, 0);
            table.EndPart(nFirst + nPartRows - 1);
        }
        ASSERT_EQ(SelfDifference(table, 0, 1), "") << "seed " << nSeed;
        ASSERT_EQ(PairDifference(table, table, 0, 1, 1, 0), "") << "seed " << nSeed;
    }
}

} // namespace
