#include "examples/flory/program/RoundScale.h"

#include <cmath>

namespace flory {

namespace {

/// nUnits times ten to the power nExponent, to the last digit as it would be written.
double Decimal(double dUnits, int nExponent) {
    return nExponent < 0 ? dUnits / std::pow(10., -nExponent) : dUnits * std::pow(10., nExponent);
}

} // namespace

tessara::AXISSCALE RoundScale(double dMin, double dMax) {
    const double dWanted = (dMax - dMin) / 5;
    const auto nExponent = static_cast<int>(std::floor(std::log10(dWanted)));
    const double dTimes = dWanted / Decimal(1, nExponent);
    const double dUnits = dTimes < 1.5 ? 1 : dTimes < 3.5 ? 2 : dTimes < 7.5 ? 5 : 10;
    const double dStep = Decimal(dUnits, nExponent);
    // A value that is round but for rounding needs no further step.
    constexpr double HAIR = 1e-9;
    return tessara::MakeAxisScale(Decimal(std::floor(dMin / dStep + HAIR) * dUnits, nExponent),
                                  Decimal(std::ceil(dMax / dStep - HAIR) * dUnits, nExponent), dStep, 0,
                                  {"from", "to", "step", "exponent"});
}

} // namespace flory
