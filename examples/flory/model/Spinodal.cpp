#include "examples/flory/model/Spinodal.h"

#include <cmath>
#include <stdexcept>

namespace flory {

namespace {

void CheckFraction(double dPhi) {
    if (!(dPhi > 0 && dPhi < 1)) {
        throw std::invalid_argument("a polymer fraction must lie between 0 and 1");
    }
}

} // namespace

double SpinodalChi(const CSample& sample, double dPhi) {
    CheckFraction(dPhi);
    return (1 / (sample.WeightAverage() * dPhi) + 1 / (1 - dPhi)) / 2;
}

CCriticalPoint CriticalPoint(const CSample& sample) {
    const double dRw = sample.WeightAverage();
    const double dRz = sample.ZAverage();
    const double dRoot = std::sqrt(dRz);
    return {1 / (1 + dRw / dRoot), (1 + dRoot) * (1 / dRw + 1 / dRoot) / 2,
            sample.ZPlusOneAverage() < 3 * dRz + 2 * dRoot};
}

std::unique_ptr<CMultipartTable> SpinodalTable(const CSample& sample, double dFirst, double dLast,
                                               int nPoints, const COrdinate& ordinate) {
    CheckFraction(dFirst);
    CheckFraction(dLast);
    if (nPoints < 2) {
        throw std::invalid_argument("a spinodal needs at least 2 points");
    }
    const double dStart = std::asin(std::sqrt(dFirst));
    const double dStep = (std::asin(std::sqrt(dLast)) - dStart) / (nPoints - 1);
    CPartTable table(3);
    table.BeginPart(TRIVIAL);
    for (int i = 0; i < nPoints; ++i) {
        const double dSine = std::sin(dStart + i * dStep);
        const double dChi = SpinodalChi(sample, dSine * dSine);
        table.AddRow({dSine * dSine, OrdinateOf(ordinate, dChi), dChi});
    }
    return table.Make();
}

} // namespace flory
