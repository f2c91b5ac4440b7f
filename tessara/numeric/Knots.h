#pragma once

namespace tessara {

/// The points that an interpolation goes through; the arrays are the caller's.
struct CKnots {
    int nPoints;
    const double* pX;
    const double* pY;
};

} // namespace tessara
