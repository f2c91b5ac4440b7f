#include "tessara/plot/ChooseScale.h"

#include <algorithm>
#include <cmath>

namespace {

/// Guard against ranges that overflow, or whose steps do.
constexpr double MAX_VALUE = 4e307;
/// Ranges below this cannot be scaled up to the order of one.
constexpr double MIN_RANGE = 1e-290;
constexpr double MIN_RELATIVE_RANGE = 1e-10;

double MakeUsable(double dValue) {
    return std::isfinite(dValue) ? std::clamp(dValue, -MAX_VALUE, MAX_VALUE) : 0.0;
}

/// A first tick that should be zero loses its rounding residue.
void SnapFirstTick(CHOOSESCALE& scale) {
    if (std::fabs(scale.dStep) > 4.0 * std::fabs(scale.dFirstTick)) {
        scale.dFirstTick = 0.0;
    }
}

bool IsDegenerate(double dMin, double dMax) {
    const double dRange = dMax - dMin;
    const double dMagnitude = std::fabs(dMax) + std::fabs(dMin);
    const double dRelative = dMagnitude > 0.0 ? std::fabs(dRange) / dMagnitude : dRange;
    return dRelative <= MIN_RELATIVE_RANGE || dRange < MIN_RANGE;
}

void ChooseAround(CHOOSESCALE& scale, double dValue) {
    scale.dStep = 1.0;
    scale.dUpper = std::ceil(dValue + 1.0);
    scale.dLower = std::floor(dValue - 1.0);
    scale.dLastTick = scale.dUpper;
    scale.dFirstTick = scale.dLower;
    SnapFirstTick(scale);
    scale.nExponent = 0;
    scale.dFactor = 1.0;
}

double ChooseStep(double dRange) {
    double dScale = 1.0;
    if (dRange * dScale > 11.25) {
        while (dRange * dScale > 11.25) {
            dScale /= 10.0;
        }
    } else {
        while (dRange * dScale <= 1.125) {
            dScale *= 10.0;
        }
    }
    const double dNormalised = dRange * dScale;
    const double dStep = dNormalised < 2.75 ? 0.5 : dNormalised < 5.5 ? 1.0 : 2.0;
    return dStep / dScale;
}

void ChooseEnds(CHOOSESCALE& scale, double dMin, double dMax) {
    const double dStep = scale.dStep;
    scale.dLower = std::floor(dMin / dStep) * dStep;
    scale.dFirstTick = scale.dLower;
    double dExtendLow = dStep / 2;
    if (dMin - scale.dLower >= dExtendLow) {
        scale.dFirstTick = scale.dLower + dStep;
    } else {
        dExtendLow = 0.0;
    }

    scale.dUpper = std::floor(dMax / dStep) * dStep;
    scale.dLastTick = scale.dUpper;
    double dExtendHigh = dMax - scale.dUpper > 0.0 ? dStep / 2 : 0.0;
    if (dMax - scale.dUpper > dExtendHigh) {
        dExtendHigh = dStep;
        scale.dLastTick += dStep;
    }

    if (scale.bOptions & CS_WHOLESTEPS) {
        if (dExtendHigh == dStep && dExtendLow != 0.0) {
            dExtendLow = 0.0;
        }
        if (dExtendLow == 0.0 && dExtendHigh != dStep && dExtendHigh != 0.0) {
            dExtendHigh = dStep;
        }
    }
    scale.dLower += dExtendLow;
    scale.dUpper += dExtendHigh;
}

int ChooseExponent(double dStep) {
    int nExponent = 0;
    if (dStep < 0.5) {
        for (double dShown = dStep; dShown < 1.0; dShown *= 10.0) {
            ++nExponent;
        }
    } else if (dStep >= 1000.0) {
        for (double dShown = dStep; dShown > 10.0; dShown /= 10.0) {
            --nExponent;
        }
    }
    return nExponent;
}

} // namespace

CHOOSESCALE::CHOOSESCALE()
    : dMax(0), dMin(0), dUpper(1), dLower(-1), dLastTick(1), dFirstTick(-1), dStep(0.5), bOptions(0),
      nExponent(0), dFactor(1) {}

void ChooseScale(CHOOSESCALE* scale) {
    const double dMax = MakeUsable(scale->dMax);
    const double dMin = MakeUsable(scale->dMin);
    if (IsDegenerate(dMin, dMax)) {
        ChooseAround(*scale, dMax);
        return;
    }
    scale->dStep = ChooseStep(dMax - dMin);
    ChooseEnds(*scale, dMin, dMax);
    SnapFirstTick(*scale);
    if (scale->bOptions & CS_FROMZERO) {
        scale->dLower = 0.0;
        scale->dFirstTick = 0.0;
    }
    scale->nExponent = ChooseExponent(scale->dStep);
    scale->dFactor = std::pow(10.0, scale->nExponent);
}
