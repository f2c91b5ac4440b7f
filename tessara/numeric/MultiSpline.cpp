#include "tessara/numeric/MultiSpline.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

#include "tessara/numeric/MultiCurve.h"
#include "tessara/numeric/MultiSplineCoefficients.h"
#include "tessara/numeric/Piecewise.h"
#include "tessara/numeric/SplineCoefficients.h"
#include "tessara/numeric/Storage.h"

IMPLEMENT_DYNAMIC(CMultiSpline, CObject)

namespace {

constexpr double NO_COLUMN = -1.0;

bool HasColumn(const CMultiSpline& spline, int nColumn) {
    return nColumn >= 0 && nColumn < spline.m_nDimensions;
}

tessara::CKnots Knots(const CMultiSpline& spline, int nColumn) {
    return {spline.m_nPoints, spline.m_pX, spline.m_ppY[nColumn]};
}

tessara::CCubicPiece Pieces(const CMultiSpline& spline, int nColumn) {
    return {spline.m_pX, spline.m_ppY[nColumn], spline.m_ppB[nColumn], spline.m_ppC[nColumn],
            spline.m_ppD[nColumn]};
}

} // namespace

CMultiSpline::CMultiSpline(int nDimensions, int nPoints, double* pX, double** ppY)
    : m_nDimensions(nDimensions), m_nPoints(nPoints), m_pX(pX), m_ppY(ppY), m_ppB(nullptr), m_ppC(nullptr),
      m_ppD(nullptr) {}

// Delegating lets the destructor release what there is when a later allocation fails.
CMultiSpline::CMultiSpline(CMultiCurve* pCurve)
    : CMultiSpline(pCurve->m_nDimensions, pCurve->m_nPoints, pCurve->m_pX, pCurve->m_ppY) {
    ComputeMultiSplineArrays();
}

CMultiSpline::CMultiSpline(const CMultiSpline& src)
    : CMultiSpline(src.m_nDimensions, src.m_nPoints, src.m_pX, src.m_ppY) {
    AllocateCoefficients();
    if (m_ppB) {
        std::copy_n(src.m_ppB[0], 3 * std::int64_t{m_nDimensions} * m_nPoints, m_ppB[0]);
    }
}

CMultiSpline::~CMultiSpline() {
    if (m_ppB) {
        tessara::ReleaseArray(m_ppB[0]);
    }
    tessara::ReleaseArray(m_ppB);
    tessara::ReleaseArray(m_ppC);
    tessara::ReleaseArray(m_ppD);
}

const CMultiSpline& CMultiSpline::operator=(const CMultiSpline& src) {
    if (this != &src) {
        CMultiSpline copy(src);
        Swap(copy);
    }
    return *this;
}

void CMultiSpline::ComputeMultiSplineArrays() {
    if (m_nPoints < 2) {
        AfxThrowInvalidArgException();
    }
    AllocateCoefficients();
    const auto nColumns = static_cast<std::size_t>(m_nDimensions);
    tessara::ComputeSplines(m_nPoints, m_pX, {m_ppY, nColumns}, {m_ppB, m_ppC, m_ppD});
}

void CMultiSpline::CheckForUnderflow(double& v) const {
    v = tessara::GuardedWidth(v);
}

double CMultiSpline::Value(int nColumn, double x) const {
    return HasColumn(*this, nColumn) ? tessara::ClampedValue(Knots(*this, nColumn), x, Pieces(*this, nColumn))
                                     : NO_COLUMN;
}

void CMultiSpline::Values(int nColumn, const double* x, double* y, int n) const {
    if (HasColumn(*this, nColumn)) {
        tessara::EvaluateAll(Knots(*this, nColumn), Pieces(*this, nColumn), x, y, n);
    } else {
        std::fill_n(y, std::max(n, 0), NO_COLUMN);
    }
}

/// Makes room for all coefficients, in arrays that there may be already. All lie in one, which m_ppB[0] owns:
/// it has large pages where each column alone would be too short for them.
void CMultiSpline::AllocateCoefficients() {
    for (double*** pppColumns : {&m_ppB, &m_ppC, &m_ppD}) {
        tessara::ResizeColumnArray(*pppColumns, m_nDimensions, m_nDimensions);
    }
    if (!m_ppB) {
        return; // no columns
    }
    const std::int64_t nKind = std::int64_t{m_nDimensions} * m_nPoints;
    tessara::ResizeArray(m_ppB[0], nKind > std::numeric_limits<std::int64_t>::max() / 3 ? -1 : 3 * nKind);
    tessara::PreferLargePages(m_ppB[0], 3 * static_cast<std::size_t>(nKind) * sizeof(double));
    for (std::ptrdiff_t j = 0; j < m_nDimensions; ++j) {
        m_ppB[j] = m_ppB[0] + j * m_nPoints;
        m_ppC[j] = m_ppB[j] + nKind;
        m_ppD[j] = m_ppC[j] + nKind;
    }
}

void CMultiSpline::Swap(CMultiSpline& other) {
    std::swap(m_nDimensions, other.m_nDimensions);
    std::swap(m_nPoints, other.m_nPoints);
    std::swap(m_pX, other.m_pX);
    std::swap(m_ppY, other.m_ppY);
    std::swap(m_ppB, other.m_ppB);
    std::swap(m_ppC, other.m_ppC);
    std::swap(m_ppD, other.m_ppD);
}
