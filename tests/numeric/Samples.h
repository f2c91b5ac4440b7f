#pragma once

#include <initializer_list>
#include <vector>

#include "tessara/numeric/Curve.h"

/// Small containers with given values, and their values as vectors that a test can compare.
namespace samples {

/// A curve over vectors that it keeps.
struct CSampleCurve {
    CSampleCurve(std::vector<double> xs, std::vector<double> ys)
        : x(std::move(xs)), y(std::move(ys)), curve(static_cast<int>(x.size()), x.data(), y.data()) {}
    CSampleCurve(const CSampleCurve&) = delete;

    std::vector<double> x;
    std::vector<double> y;
    CCurve curve;
};

/// Fills the rows of a container that has its columns in ppColumns.
inline void FillRows(double** ppColumns, std::initializer_list<std::initializer_list<double>> rows) {
    int i = 0;
    for (const auto& row : rows) {
        int j = 0;
        for (const double dValue : row) {
            ppColumns[j++][i] = dValue;
        }
        ++i;
    }
}

inline std::vector<double> Values(const double* pValues, int nCount) {
    return {pValues, pValues + nCount};
}

/// The rows of a table, or nothing for a null one.
template <class TABLE>
std::vector<std::vector<double>> Rows(const TABLE* pTable) {
    std::vector<std::vector<double>> rows;
    for (int i = 0; pTable && i < pTable->m_nPoints; ++i) {
        auto& row = rows.emplace_back();
        for (int j = 0; j < pTable->m_nDimensions; ++j) {
            row.push_back(pTable->m_ppData[j][i]);
        }
    }
    return rows;
}

} // namespace samples
