#include "tessara/numeric/Spline.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/Piecewise.h"
#include "tessara/numeric/SplineCoefficients.h"
#include "tessara/numeric/Storage.h"

IMPLEMENT_DYNAMIC(CSpline, CObject)

namespace {

constexpr double DERIVATIVE_STEP = 1e-6;

tessara::CCubicPiece Pieces(const CSpline& spline) {
    return {spline.m_pX, spline.m_pY, spline.m_pB, spline.m_pC, spline.m_pD};
}

} // namespace

CSpline::CSpline(int nPoints, double* pX, double* pY)
    : m_nPoints(nPoints), m_pX(pX), m_pY(pY), m_pB(nullptr), m_pC(nullptr), m_pD(nullptr) {}

// Delegating lets the destructor release what there is when a later allocation fails.
CSpline::CSpline(int nPoints, double* pX, double* pY, int bInverse)
    : CSpline(nPoints, bInverse ? pY : pX, bInverse ? pX : pY) {
    ComputeSplineArrays();
}

CSpline::CSpline(CCurve* pCurve, int bInverse)
    : CSpline(pCurve->m_nPoints, pCurve->m_pX, pCurve->m_pY, bInverse) {}

CSpline::CSpline(const CSpline& src) : CSpline(src.m_nPoints, src.m_pX, src.m_pY) {
    AllocateCoefficients();
    std::copy_n(src.m_pB, m_nPoints, m_pB);
    std::copy_n(src.m_pC, m_nPoints, m_pC);
    std::copy_n(src.m_pD, m_nPoints, m_pD);
}

CSpline::~CSpline() {
    tessara::ReleaseArray(m_pB);
    tessara::ReleaseArray(m_pC);
    tessara::ReleaseArray(m_pD);
}

const CSpline& CSpline::operator=(const CSpline& src) {
    if (this != &src) {
        CSpline copy(src);
        Swap(copy);
    }
    return *this;
}

double CSpline::Value(double x) const {
    return tessara::ClampedValue(tessara::CKnots{m_nPoints, m_pX, m_pY}, x, Pieces(*this));
}

double CSpline::Value(double x, int nFirst, int nLast) const {
    if (nFirst >= nLast || m_nPoints < 2) {
        return m_pY[nFirst];
    }
    // At the second abscissa the first interval is used, though the search would find the second one.
    const int i =
        std::islessequal(x, m_pX[nFirst + 1]) ? nFirst : tessara::FindInterval(m_pX, nFirst, nLast, x);
    return Pieces(*this)(i, x);
}

void CSpline::Values(const double* x, double* y, int n) const {
    tessara::EvaluateAll(tessara::CKnots{m_nPoints, m_pX, m_pY}, Pieces(*this), x, y, n);
}

CCurve* CSpline::Integral() const {
    auto pIntegral = tessara::NewObject<CCurve>(m_nPoints);
    double dSum = 0;
    pIntegral->m_pX[0] = m_pX[0];
    pIntegral->m_pY[0] = dSum;
    for (int i = 0; i < m_nPoints - 1; ++i) {
        dSum += IValue(i, m_pX[i + 1]) - IValue(i, m_pX[i]);
        pIntegral->m_pX[i + 1] = m_pX[i + 1];
        pIntegral->m_pY[i + 1] = dSum;
    }
    return pIntegral.release();
}

CCurve* CSpline::Derivative() const {
    auto pDerivative = tessara::NewObject<CCurve>(m_nPoints);
    const int nLast = m_nPoints - 1;
    double* pY = pDerivative->m_pY;
    std::copy_n(m_pX, m_nPoints, pDerivative->m_pX);
    std::transform(m_pX, m_pX + nLast, pY, [](double x) { return x + DERIVATIVE_STEP; });
    // Beyond the last knot the spline is constant.
    pY[nLast] = m_pX[nLast] - DERIVATIVE_STEP;
    Values(pY, pY, m_nPoints);
    for (int i = 0; i < nLast; ++i) {
        pY[i] = (pY[i] - m_pY[i]) / DERIVATIVE_STEP;
    }
    pY[nLast] = (m_pY[nLast] - pY[nLast]) / DERIVATIVE_STEP;
    return pDerivative.release();
}

void CSpline::CheckForUnderflow(double& v) const {
    v = tessara::GuardedWidth(v);
}

void CSpline::ComputeSplineArrays() {
    if (m_nPoints < 2) {
        AfxThrowInvalidArgException();
    }
    AllocateCoefficients();
    tessara::ComputeSpline({m_nPoints, m_pX, m_pY}, m_pB, m_pC, m_pD);
}

double CSpline::IValue(int i, double x) const {
    if (m_nPoints < 2) {
        return 0;
    }
    const double t = x - m_pX[i];
    // x, not t: the constant between the two cancels in differences.
    return x * m_pY[i] + t * t * (m_pB[i] / 2 + (m_pC[i] / 3 + t * m_pD[i] / 4) * t);
}

void CSpline::AllocateCoefficients() {
    for (double** ppArray : {&m_pB, &m_pC, &m_pD}) {
        tessara::ResizeArray(*ppArray, m_nPoints);
        tessara::PreferLargePages(*ppArray, static_cast<std::size_t>(m_nPoints) * sizeof(double));
    }
}

void CSpline::Swap(CSpline& other) {
    std::swap(m_nPoints, other.m_nPoints);
    std::swap(m_pX, other.m_pX);
    std::swap(m_pY, other.m_pY);
    std::swap(m_pB, other.m_pB);
    std::swap(m_pC, other.m_pC);
    std::swap(m_pD, other.m_pD);
}
