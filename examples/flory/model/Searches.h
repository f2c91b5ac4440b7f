#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

// Searches in one dimension for functions that cost about a microsecond.

namespace flory {

/// A zero of f between a and b, to the last digits, by the method of Ridders kept inside the bracket.
/// REQUIRES: f has different signs at a and b, or is zero at one. Else the end where |f| is smaller.
template <class F>
double FindZero(const F& f, double a, double b) {
    double dFa = f(a), dFb = f(b);
    if (dFa == 0 || dFb == 0 || (dFa < 0) == (dFb < 0)) {
        return std::abs(dFa) <= std::abs(dFb) ? a : b;
    }
    constexpr int N_STEPS = 100;
    for (int i = 0; i < N_STEPS; ++i) {
        const double dMiddle = a + (b - a) / 2;
        if (std::abs(b - a) <= 2 * std::numeric_limits<double>::epsilon() * std::abs(dMiddle)) {
            break;
        }
        const double dFm = f(dMiddle);
        const double dRoot = std::sqrt(dFm * dFm - dFa * dFb);
        const double c = dMiddle + (dMiddle - a) * std::copysign(1., dFa) * dFm / dRoot;
        const double dFc = f(c);
        if (dFm == 0 || dFc == 0) {
            return dFm == 0 ? dMiddle : c;
        }
        const std::pair<double, double> points[] = {{dMiddle, dFm}, {c, dFc}};
        for (const auto& [x, dFx] : points) {
            if (std::min(a, b) <= x && x <= std::max(a, b)) {
                ((dFx < 0) == (dFa < 0) ? a : b) = x;
                ((dFx < 0) == (dFa < 0) ? dFa : dFb) = dFx;
            }
        }
        if (!std::isfinite(c)) {
            return dMiddle;
        }
    }
    return std::abs(dFa) <= std::abs(dFb) ? a : b;
}

/// Where f, with one minimum between a and b, is least: golden sections, to the square root of the precision.
template <class F>
double FindMinimum(const F& f, double a, double b) {
    constexpr double GOLDEN = 0.6180339887498949;
    double x = b - GOLDEN * (b - a), y = a + GOLDEN * (b - a);
    double dFx = f(x), dFy = f(y);
    for (int i = 0; i < 60 && std::abs(b - a) > 2e-9 * (std::abs(a) + std::abs(b)); ++i) {
        if (dFx < dFy) {
            b = y, y = x, dFy = dFx;
            x = b - GOLDEN * (b - a), dFx = f(x);
        } else {
            a = x, x = y, dFx = dFy;
            y = a + GOLDEN * (b - a), dFy = f(y);
        }
    }
    return dFx < dFy ? x : y;
}

} // namespace flory
