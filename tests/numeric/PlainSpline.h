#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

#include "tests/numeric/Bits.h"

/// The spline computed plainly, one loop for each step; and knots to try it on.
namespace plain {

struct CCoefficients {
    std::vector<double> b, c, d;
};

/// Whether coefficients are those of a spline to the last bit.
inline bool Same(const CCoefficients& expected, const double* pB, const double* pC, const double* pD) {
    const int n = static_cast<int>(expected.b.size());
    return bits::Same(pB, expected.b.data(), n) && bits::Same(pC, expected.c.data(), n) &&
           bits::Same(pD, expected.d.data(), n);
}

inline double Guarded(double dWidth) {
    return std::fabs(dWidth) < 1e-16 ? (dWidth < 0 ? 1e-16 : -1e-16) : dWidth;
}

inline CCoefficients Spline(const std::vector<double>& x, const std::vector<double>& y) {
    const std::size_t n = x.size();
    std::vector<double> b(n), c(n), d(n);
    for (std::size_t i = 0; i + 1 < n; ++i) {
        d[i] = Guarded(x[i + 1] - x[i]);
    }
    if (n == 2) {
        b[0] = b[1] = (y[1] - y[0]) / d[0];
        return {b, c, {0, 0}};
    }
    for (std::size_t i = 1; i + 1 < n; ++i) {
        b[i] = 2 * (d[i - 1] + d[i]);
        c[i] = (y[i + 1] - y[i]) / d[i] - (y[i] - y[i - 1]) / d[i - 1];
    }
    b[0] = -d[0];
    b[n - 1] = -d[n - 2];
    if (n > 3) {
        c[0] = c[2] / (x[3] - x[1]) - c[1] / (x[2] - x[0]);
        c[n - 1] = c[n - 2] / (x[n - 1] - x[n - 3]) - c[n - 3] / (x[n - 2] - x[n - 4]);
        c[0] = c[0] * d[0] * d[0] / (x[3] - x[0]);
        c[n - 1] = -c[n - 1] * d[n - 2] * d[n - 2] / (x[n - 1] - x[n - 4]);
    }
    for (std::size_t i = 1; i < n; ++i) {
        const double t = d[i - 1] / b[i - 1];
        b[i] = b[i] - t * d[i - 1];
        c[i] = c[i] - t * c[i - 1];
    }
    c[n - 1] = c[n - 1] / b[n - 1];
    for (std::size_t i = n - 1; i-- > 0;) {
        c[i] = (c[i] - d[i] * c[i + 1]) / b[i];
    }
    b[n - 1] = (y[n - 1] - y[n - 2]) / d[n - 2] + (2 * c[n - 1] + c[n - 2]) * d[n - 2];
    for (std::size_t i = 0; i + 1 < n; ++i) {
        b[i] = (y[i + 1] - y[i]) / d[i] - (2 * c[i] + c[i + 1]) * d[i];
        d[i] = (c[i + 1] - c[i]) / d[i];
        c[i] = 3 * c[i];
    }
    c[n - 1] = 3 * c[n - 1];
    d[n - 1] = d[n - 2];
    return {b, c, d};
}

/// Abscissae of every kind: even, uneven, with coincident ones, with gaps of many magnitudes, in disorder.
inline std::vector<double> Abscissae(std::mt19937& random, std::size_t nCount) {
    std::uniform_real_distribution<double> unit(0, 1);
    const unsigned nKind = random() % 5;
    std::vector<double> x;
    double dX = unit(random) - 0.5;
    for (std::size_t i = 0; i < nCount; ++i) {
        x.push_back(dX);
        const double dSteps[] = {0.25, unit(random), static_cast<double>(random() % 3) / 3,
                                 std::pow(10, 20 * unit(random) - 18), unit(random) - 0.5};
        dX += dSteps[nKind];
    }
    return x;
}

/// Ordinates at random, now and then with a NaN or an infinity among them.
inline std::vector<double> Ordinates(std::mt19937& random, std::size_t nCount) {
    std::uniform_real_distribution<double> unit(-1, 1);
    std::vector<double> y(nCount);
    std::generate(y.begin(), y.end(), [&] { return unit(random); });
    if (random() % 10 == 0) {
        y[random() % nCount] = random() % 2 ? std::nan("") : std::numeric_limits<double>::infinity();
    }
    return y;
}

} // namespace plain
