#include "examples/flory/model/LinearFit.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>

namespace flory {

namespace {

using CColumn = std::vector<double>;
using CMatrix = std::vector<CColumn>;

constexpr double DEPENDENT = 1e-10;

double Product(const CColumn& a, const CColumn& b) {
    double dSum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        dSum += a[i] * b[i];
    }
    return dSum;
}

/// Takes the direction of a unit vector out of a column; how much of it there was.
double TakeOut(const CColumn& unit, CColumn& column) {
    const double dPart = Product(unit, column);
    for (std::size_t i = 0; i < column.size(); ++i) {
        column[i] -= dPart * unit[i];
    }
    return dPart;
}

/// Makes the columns orthonormal; the upper triangle R with columns = Q R.
CMatrix Orthogonalise(CMatrix& columns) {
    CMatrix triangle(columns.size(), CColumn(columns.size()));
    for (std::size_t k = 0; k < columns.size(); ++k) {
        const double dWhole = std::sqrt(Product(columns[k], columns[k]));
        for (std::size_t j = 0; j < k; ++j) {
            triangle[j][k] = TakeOut(columns[j], columns[k]);
        }
        const double dRest = std::sqrt(Product(columns[k], columns[k]));
        if (!(dRest > DEPENDENT * dWhole)) {
            throw std::invalid_argument("the points do not tell the parameters apart");
        }
        triangle[k][k] = dRest;
        for (double& d : columns[k]) {
            d /= dRest;
        }
    }
    return triangle;
}

/// Solves R p = right, from the last row up.
CColumn SolveTriangle(const CMatrix& triangle, CColumn right) {
    for (std::size_t k = right.size(); k-- > 0;) {
        for (std::size_t j = k + 1; j < right.size(); ++j) {
            right[k] -= triangle[k][j] * right[j];
        }
        right[k] /= triangle[k][k];
    }
    return right;
}

/// (R^T R)^-1 times a variance.
CMatrix Covariances(const CMatrix& triangle, double dVariance) {
    const std::size_t n = triangle.size();
    CMatrix inverse; // its columns
    for (std::size_t k = 0; k < n; ++k) {
        CColumn unit(n);
        unit[k] = 1;
        inverse.push_back(SolveTriangle(triangle, unit));
    }
    CMatrix covariances(n, CColumn(n));
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < n; ++j) {
            for (std::size_t k = 0; k < n; ++k) {
                covariances[i][j] += dVariance * inverse[k][i] * inverse[k][j];
            }
        }
    }
    return covariances;
}

} // namespace

CLinearFit FitLinear(std::vector<std::vector<double>> columns, std::vector<double> y) {
    const std::size_t nParameters = columns.size();
    if (y.size() < nParameters) {
        throw std::invalid_argument("there are fewer points than parameters");
    }
    const CMatrix triangle = Orthogonalise(columns);
    CColumn right;
    for (const CColumn& unit : columns) {
        right.push_back(TakeOut(unit, y)); // what remains of y are the residuals
    }
    const double dFreedom = static_cast<double>(y.size() - nParameters);
    const double dVariance =
        dFreedom > 0 ? Product(y, y) / dFreedom : std::numeric_limits<double>::quiet_NaN();
    return {SolveTriangle(triangle, right), Covariances(triangle, dVariance), std::sqrt(dVariance)};
}

} // namespace flory
