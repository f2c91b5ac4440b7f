#pragma once

#include <memory>

#include "examples/flory/model/Interaction.h"
#include "examples/flory/model/PartTable.h"
#include "examples/flory/model/Sample.h"

namespace flory {

/// chi at which a solution of the polymer fraction dPhi, in (0, 1), turns unstable against small changes:
/// 2 chi = 1/(r_w phi) + 1/(1 - phi). Flory 1953.
double SpinodalChi(const CSample& sample, double dPhi);

/// The critical point of a solution; every sample has exactly one (Stockmayer 1949).
struct CCriticalPoint {
    double dPhi;
    double dChi;
    bool bStable; ///< stable against small changes: r_z+1 < 3 r_z + 2 sqrt(r_z)
};

CCriticalPoint CriticalPoint(const CSample& sample);

/// The spinodal at nPoints >= 2 fractions between dFirst and dLast in (0, 1), denser towards 0 and 1. One
/// part of colour 0; the columns are phi, the ordinate, chi. Other arguments throw std::invalid_argument.
std::unique_ptr<CMultipartTable> SpinodalTable(const CSample& sample, double dFirst, double dLast,
                                               int nPoints, const COrdinate& ordinate = {});

} // namespace flory
