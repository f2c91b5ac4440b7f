#include "tessara/plot/CustomScale.h"

namespace tessara {

namespace {

constexpr int MAX_EXPONENT = 8;

double PowerOfTen(int nExponent) {
    double dPower = 1.0;
    for (int i = 0; i < nExponent; ++i) {
        dPower *= 10;
    }
    for (int i = 0; i > nExponent; --i) {
        dPower /= 10;
    }
    return dPower;
}

} // namespace

bool CCustomScale::IsUsable() const {
    return dFrom < dTo && dStep > 0 && nExponent >= -MAX_EXPONENT && nExponent <= MAX_EXPONENT;
}

void CCustomScale::ApplyTo(CHOOSESCALE& scale) const {
    scale.dUpper = dTo;
    scale.dLastTick = dTo;
    scale.dLower = dFrom;
    scale.dFirstTick = dFrom;
    scale.dStep = dStep;
    scale.nExponent = nExponent;
    scale.dFactor = PowerOfTen(nExponent);
}

} // namespace tessara
