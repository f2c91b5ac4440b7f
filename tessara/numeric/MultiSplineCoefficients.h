#pragma once

#include <span>

namespace tessara {

/// Where the coefficients of several splines go: an array of nPoints elements for each column.
struct CCoefficientColumns {
    double* const* ppB;
    double* const* ppC;
    double* const* ppD;
};

/// Computes the coefficients of a spline through each column over the same abscissae, to the last bit what
/// ComputeSpline gives. Running out of memory throws CMemoryException before anything is computed.
/// REQUIRES: nPoints >= 2
void ComputeSplines(int nPoints, const double* pX, std::span<const double* const> columns,
                    const CCoefficientColumns& coefficients);

} // namespace tessara
