#include "tessara/numeric/Replot.h"

#include <algorithm>
#include <memory>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/Spline.h"
#include "tessara/numeric/Storage.h"

namespace {

void SampleAtB(CCurve& a, const CCurve& b, ReplotMode mode, CCurve& result) {
    const CSpline spline(&a, mode == ReplotEqualOrdinates);
    const int n = result.m_nPoints;
    switch (mode) {
    case ReplotEqualOrdinates:
        spline.Values(b.m_pY, result.m_pX, n);
        std::copy_n(b.m_pX, n, result.m_pY);
        break;
    case ReplotEqualAbscissae:
        std::copy_n(b.m_pY, n, result.m_pX);
        spline.Values(b.m_pX, result.m_pY, n);
        break;
    default:
        std::copy_n(b.m_pX, n, result.m_pX);
        spline.Values(b.m_pY, result.m_pY, n);
    }
}

void SampleAtA(const CCurve& a, CCurve& b, ReplotMode mode, CCurve& result) {
    const CSpline spline(&b, mode != ReplotEqualAbscissae);
    const int n = result.m_nPoints;
    if (mode == ReplotEqualOrdinates) {
        std::copy_n(a.m_pX, n, result.m_pX);
        spline.Values(a.m_pY, result.m_pY, n);
    } else {
        spline.Values(a.m_pX, result.m_pX, n);
        std::copy_n(a.m_pY, n, result.m_pY);
    }
}

} // namespace

CCurve* RePlotCurve(CCurve* pA, CCurve* pB, ReplotMode mode) {
    auto pResult = tessara::NewObject<CCurve>(std::max(pA->m_nPoints, pB->m_nPoints));
    if (pB->m_nPoints >= pA->m_nPoints) {
        SampleAtB(*pA, *pB, mode, *pResult);
    } else {
        SampleAtA(*pA, *pB, mode, *pResult);
    }
    return pResult.release();
}
