#include "examples/flory/model/LinearEquations.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace flory {

CVector Unit(std::size_t nSize, std::size_t n) {
    CVector unit(nSize);
    unit[n] = 1;
    return unit;
}

namespace {

double Largest(const CVector& row) {
    double dLargest = 0;
    for (const double d : row) {
        dLargest = std::max(dLargest, std::abs(d));
    }
    return dLargest;
}

/// Takes the row off those below it so that they no longer hold the unknown i.
void Eliminate(std::vector<CVector>& matrix, CVector& right, std::size_t i) {
    for (std::size_t j = i + 1; j < right.size(); ++j) {
        const double dFactor = matrix[j][i] / matrix[i][i];
        for (std::size_t k = i; k < right.size(); ++k) {
            matrix[j][k] -= dFactor * matrix[i][k];
        }
        right[j] -= dFactor * right[i];
    }
}

} // namespace

std::optional<CVector> Solve(std::vector<CVector> matrix, CVector right) {
    const std::size_t nSize = right.size();
    // Rows of very different size would make a poor choice of pivots.
    for (std::size_t i = 0; i < nSize; ++i) {
        const double dLargest = Largest(matrix[i]);
        for (double& d : matrix[i]) {
            d /= dLargest;
        }
        right[i] /= dLargest;
    }
    for (std::size_t i = 0; i < nSize; ++i) {
        std::size_t nPivot = i;
        for (std::size_t j = i; j < nSize; ++j) {
            nPivot = std::abs(matrix[j][i]) > std::abs(matrix[nPivot][i]) ? j : nPivot;
        }
        std::swap(matrix[i], matrix[nPivot]);
        std::swap(right[i], right[nPivot]);
        if (!(std::abs(matrix[i][i]) > 0)) {
            return std::nullopt;
        }
        Eliminate(matrix, right, i);
    }
    for (std::size_t i = nSize; i-- > 0;) {
        for (std::size_t k = i + 1; k < nSize; ++k) {
            right[i] -= matrix[i][k] * right[k];
        }
        right[i] /= matrix[i][i];
    }
    return right;
}

} // namespace flory
