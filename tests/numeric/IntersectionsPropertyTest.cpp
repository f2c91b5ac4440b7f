// Thousands of random tables: the crossings are those of the plain loop over all pairs, bit by bit.

#include <gtest/gtest.h>

#include "tessara/numeric/Intersections.h"
#include "tests/numeric/IntersectionsReference.h"
#include "tests/numeric/RandomTables.h"

namespace {

/// All that a result holds, as bytes; none for a null one.
std::string Bytes(const std::unique_ptr<CMultipartTable>& pTable) {
    std::string strBytes;
    const auto add = [&](const auto* pValues, int nCount) {
        strBytes.append(reinterpret_cast<const char*>(pValues),
                        sizeof *pValues * static_cast<unsigned>(nCount));
    };
    if (pTable) {
        const int counts[] = {pTable->m_nDimensions, pTable->m_nPoints, pTable->m_nParts, pTable->m_nMaxParts,
                              pTable->m_nColors};
        add(counts, 5);
        add(pTable->m_pParts, pTable->m_nParts);
        for (int k = 0; k < pTable->m_nDimensions; ++k) {
            add(pTable->m_ppData[k], pTable->m_nPoints);
        }
    }
    return strBytes;
}

std::string Self(CMultipartTable& table, int nX, int nY) {
    return Bytes(std::unique_ptr<CMultipartTable>(Find2DSelfIntersections(&table, nX, nY)));
}

bool PairIsThatOfThePlainLoop(CMultipartTable& a, CMultipartTable& b, int nXA, int nYA, int nXB, int nYB) {
    const std::unique_ptr<CMultipartTable> pResult(FindIntersections(&a, &b, nXA, nYA, nXB, nYB));
    return Bytes(pResult) == Bytes(reference::Intersections({a, nXA, nYA}, {b, nXB, nYB}));
}

TEST(IntersectionsProperty, SelfCrossingsAreThoseOfThePlainLoop) {
    int nWithCrossings = 0;
    for (unsigned nSeed = 0; nSeed < 4000; ++nSeed) {
        samples::CTableMaker maker(nSeed);
        const auto pTable = maker.Make();
        const int nX = maker.Draw(0, pTable->m_nDimensions - 1);
        const int nY = maker.Draw(0, pTable->m_nDimensions - 1); // now and then the same column
        const std::string strFound = Self(*pTable, nX, nY);
        ASSERT_TRUE(strFound == Bytes(reference::SelfIntersections(*pTable, nX, nY))) << "seed " << nSeed;
        nWithCrossings += !strFound.empty();
    }
    EXPECT_GT(nWithCrossings, 1000) << "the tables test something";
}

TEST(IntersectionsProperty, CrossingsOfTwoTablesAreThoseOfThePlainLoop) {
    for (unsigned nSeed = 0; nSeed < 4500; ++nSeed) {
        samples::CTableMaker maker(nSeed + 100000);
        const auto pA = maker.Make();
        const auto pOther = maker.Make();
        CMultipartTable& b = nSeed % 9 ? *pOther : *pA; // now and then a table with itself
        const auto column = [&](const CMultipartTable& table) {
            return maker.Draw(0, table.m_nDimensions - 1);
        };
        ASSERT_TRUE(PairIsThatOfThePlainLoop(*pA, b, column(*pA), column(*pA), column(b), column(b)))
            << "seed " << nSeed;
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
        ASSERT_TRUE(Self(table, 0, 1) == Bytes(reference::SelfIntersections(table, 0, 1)))
            << "seed " << nSeed;
        ASSERT_TRUE(PairIsThatOfThePlainLoop(table, table, 0, 1, 1, 0)) << "seed " << nSeed;
    }
}

} // namespace
