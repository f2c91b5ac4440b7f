#include "examples/flory/model/Functions.h"

#include <cmath>

namespace flory {

namespace {

/// Below this the series is used. There the closed form would already lose two digits.
constexpr double SERIES_LIMIT = 0.3;

/// The Bernoulli numbers B_2k / (2k)!, from k = 1.
constexpr double SERIES[] = {
    1. / 12, -1. / 720, 1. / 30240, -1. / 1209600, 1. / 47900160, -691. / 1307674368000, 1. / 74724249600};
constexpr int N_SERIES = 7;

double SeriesH(double x) {
    double dSum = 0;
    for (int i = N_SERIES - 1; i >= 0; --i) {
        dSum = dSum * x * x + SERIES[i];
    }
    return dSum * x * x;
}

double SeriesSlope(double x) {
    double dSum = 0;
    for (int i = N_SERIES - 1; i >= 0; --i) {
        dSum = dSum * x * x + 2 * (i + 1) * SERIES[i];
    }
    return dSum * x;
}

} // namespace

double ExcessH(double x) {
    return std::abs(x) < SERIES_LIMIT ? SeriesH(x) : x / 2 / std::tanh(x / 2) - 1;
}

double ExcessHSlope(double x) {
    if (std::abs(x) < SERIES_LIMIT) {
        return SeriesSlope(x);
    }
    const double dSinh = std::sinh(x / 2); // infinite far away, where the second term is nothing
    return 0.5 / std::tanh(x / 2) - x / 4 / dSinh / dSinh;
}

double InverseExcessH(double dY) {
    if (!(dY > 0)) {
        return dY <= 0 ? 0 : dY;
    }
    double x = dY < 1 ? std::sqrt(12 * dY * (1 + dY / 5)) : 2 * (dY + 1);
    // H is convex, so that the steps after the first one go one way; they end when rounding turns them.
    constexpr int N_STEPS = 40;
    for (int i = 0; i < N_STEPS; ++i) {
        const double dStep = (ExcessH(x) - dY) / ExcessHSlope(x);
        if (!std::isfinite(dStep) || std::abs(dStep) <= 1e-16 * x) {
            break;
        }
        x -= dStep;
    }
    return x;
}

double MixingExcess(double u) {
    if (std::abs(u) > 0.1) {
        return u < 1 ? (1 - u) * std::log1p(-u) + u : 1;
    }
    // sum of u^k / (k (k - 1))
    double dSum = 0;
    for (int k = 16; k >= 2; --k) {
        dSum = dSum * u + 1. / (k * (k - 1));
    }
    return dSum * u * u;
}

double StretchExcess(double y) {
    if (std::abs(y) > 0.5) {
        return y > -700 ? y * std::exp(y) - std::expm1(y) : 1;
    }
    // sum of y^k (k - 1) / k!
    double dTerm = 0.5;
    double dSum = dTerm;
    for (int k = 3; k <= 16; ++k) {
        dTerm *= y / k;
        dSum += dTerm * (k - 1);
    }
    return dSum * y * y;
}

} // namespace flory
