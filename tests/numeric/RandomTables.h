#pragma once

#include <cmath>
#include <limits>
#include <memory>
#include <random>

#include "tessara/numeric/MultipartTable.h"

/// Multipart tables of many kinds, the same for the same seed.
namespace samples {

class CTableMaker {
public:
    explicit CTableMaker(unsigned nSeed) : m_random(nSeed) {}

    /// A table of 2 to 4 columns, up to about 120 rows and up to 6 parts. Which kind of curve, which part
    /// layout, rounding and non-finite rows are drawn, too.
    std::unique_ptr<CMultipartTable> Make() {
        auto pTable = std::make_unique<CMultipartTable>(Draw(2, 4));
        pTable->Allocate(Draw(0, 1) ? Draw(0, 30) : Draw(31, 120));
        Fill(*pTable);
        if (Draw(0, 1)) {
            Round(*pTable);
        }
        if (Draw(0, 3) == 0) {
            Spoil(*pTable);
        }
        AddParts(*pTable);
        pTable->SetNumColors(Draw(0, 6));
        return pTable;
    }

    int Draw(int nFirst, int nLast) { return std::uniform_int_distribution<int>(nFirst, nLast)(m_random); }

private:
    /// Every column is smooth, a walk, noise, or stays long at a value.
    void Fill(CMultipartTable& table) {
        const int nKind = Draw(0, 3);
        std::uniform_real_distribution<double> uniform(-4, 4);
        for (int k = 0; k < table.m_nDimensions; ++k) {
            double dValue = uniform(m_random);
            const double dRate = uniform(m_random) / 4;
            for (int i = 0; i < table.m_nPoints; ++i) {
                switch (nKind) {
                case 0:
                    dValue = 5 * std::sin(dRate * i + k);
                    break;
                case 1:
                    dValue += uniform(m_random) / 4;
                    break;
                case 2:
                    dValue = uniform(m_random);
                    break;
                default:
                    dValue += Draw(0, 5) ? 0 : uniform(m_random);
                    break;
                }
                table.m_ppData[k][i] = dValue;
            }
        }
    }

    /// Small integers, or halves: shared vertices, collinear runs, axis-parallel segments and such of no
    /// length.
    void Round(CMultipartTable& table) {
        const double dStep = Draw(0, 1) ? 1 : 0.5;
        for (int k = 0; k < table.m_nDimensions; ++k) {
            for (int i = 0; i < table.m_nPoints; ++i) {
                table.m_ppData[k][i] = std::round(table.m_ppData[k][i] / dStep) * dStep;
            }
        }
    }

    void Spoil(CMultipartTable& table) {
        constexpr double INFINITE = std::numeric_limits<double>::infinity();
        const double values[] = {
            std::numeric_limits<double>::quiet_NaN(), INFINITE, -INFINITE, 1e300, -1e300, -0.0};
        for (int nTimes = Draw(1, 12); nTimes > 0 && table.m_nPoints > 0; --nTimes) {
            table.m_ppData[Draw(0, table.m_nDimensions - 1)][Draw(0, table.m_nPoints - 1)] =
                values[Draw(0, 5)];
        }
    }

    /// Parts one after another with or without gaps, or anywhere: overlapping, in any order, of no or one
    /// row, or beyond the rows there are.
    void AddParts(CMultipartTable& table) {
        const int nLast = table.m_nPoints - 1;
        if (Draw(0, 1)) {
            for (int nFirst = Draw(0, 2); nFirst <= nLast; nFirst += Draw(0, 2)) {
                const int nEnd = std::min(nLast, nFirst + Draw(0, 60));
                AddPart(table, nFirst, nEnd);
                nFirst = nEnd;
            }
            return;
        }
        for (int nParts = Draw(0, 6); nParts > 0; --nParts) {
            const int nFirst = Draw(-2, nLast + 3);
            AddPart(table, nFirst, nFirst + Draw(-2, 60));
        }
    }

    void AddPart(CMultipartTable& table, int nFirst, int nLast) {
        table.BeginPart(nFirst, Draw(0, 5));
        table.EndPart(nLast);
    }

    std::mt19937_64 m_random;
};

} // namespace samples
