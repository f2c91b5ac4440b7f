#include "tessara/numeric/Curve.h"

#include <cmath>
#include <limits>

#include "tessara/numeric/Piecewise.h"
#include "tessara/numeric/Storage.h"

IMPLEMENT_DYNAMIC(CCurve, CObject)

namespace {

/// The ordinate at x over the points nFirst to nLast of two or more.
double Interpolate(const double* pX, const double* pY, int nFirst, int nLast, double x) {
    // A single point has no interval, whatever NaN x makes of the comparisons, which raise no exception for
    // it.
    if (std::islessequal(x, pX[nFirst]) || nFirst == nLast) {
        return pY[nFirst];
    }
    if (std::isgreaterequal(x, pX[nLast])) {
        return pY[nLast];
    }
    // At the second abscissa the first interval is used, though the search would find the second one.
    const int i = std::islessequal(x, pX[nFirst + 1]) ? nFirst : tessara::FindInterval(pX, nFirst, nLast, x);
    return tessara::CLinearPiece{pX, pY}(i, x);
}

} // namespace

// Delegating lets the destructor release the first array when there is no memory for the second.
CCurve::CCurve(int nPoints) : CCurve(0, nullptr, nullptr) {
    m_bOwner = TRUE;
    ReAllocate(nPoints);
}

CCurve::CCurve(int nPoints, double* pX, double* pY)
    : m_nPoints(nPoints), m_pX(pX), m_pY(pY), m_bOwner(FALSE) {}

CCurve::~CCurve() {
    if (m_bOwner) {
        tessara::ReleaseArray(m_pX);
        tessara::ReleaseArray(m_pY);
    }
}

void CCurve::ReAllocate(int nPoints) {
    if (m_bOwner) {
        tessara::ResizePoints(m_nPoints, m_pX, m_pY, nPoints);
    }
}

double CCurve::Min() const {
    return tessara::MinValue(m_pY, m_nPoints);
}

double CCurve::Max() const {
    return tessara::MaxValue(m_pY, m_nPoints);
}

double CCurve::Value(double x) const {
    return Value(x, 0, m_nPoints - 1);
}

double CCurve::Value(double x, int nFirst, int nLast) const {
    if (m_nPoints < 1) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (nFirst > nLast) {
        return m_pY[nFirst];
    }
    return m_nPoints < 2 ? m_pY[0] : Interpolate(m_pX, m_pY, nFirst, nLast, x);
}

void CCurve::Values(const double* x, double* y, int n) const {
    tessara::EvaluateAll({m_nPoints, m_pX, m_pY}, tessara::CLinearPiece{m_pX, m_pY}, x, y, n);
}

double LinearInterpolation(double x, double y1, double y2, double x1, double x2) {
    if (x1 == x2) {
        return y1;
    }
    return y2 - ((x2 - x) / (x2 - x1)) * (y2 - y1);
}
