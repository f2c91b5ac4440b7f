#include "examples/flory/model/PhasePair.h"

#include <cmath>

#include "examples/flory/model/Functions.h"

namespace flory {

CPhasePair PhasePair(const CSample& sample, const std::vector<double>& amounts, double dSigma) {
    double dA0 = 0, dA1 = 0, dThin = 0, dMean = 0;
    for (std::size_t i = 0; i < sample.Species(); ++i) {
        const double r = sample.Length(i);
        const double dMore = amounts[i] * std::expm1(dSigma * r);
        dA0 += amounts[i];
        dA1 += dMore;
        dThin += amounts[i] * std::exp(dSigma * r);
        dMean += dMore / r * ExcessH(dSigma * r);
    }
    const double dLog = -InverseExcessH(dMean / dA1);
    const double u = -std::expm1(-dLog);
    const double dPhi = u / (dA1 + u * dA0);
    return {dPhi, dPhi * dA0, dPhi * dThin, dLog, (dSigma + dLog) / (2 * dPhi * dA1)};
}

} // namespace flory
