#include "tessara/numeric/MultipartCurve.h"

#include <algorithm>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/LevelSection.h"
#include "tessara/numeric/PartRecords.h"
#include "tessara/numeric/Storage.h"

IMPLEMENT_DYNAMIC(CMultipartCurve, CObject)

namespace {

tessara::CPartRecords Parts(CMultipartCurve& curve) {
    return {curve.m_nParts, curve.m_nMaxParts, curve.m_pParts};
}

} // namespace

CMultipartCurve::CMultipartCurve() : CMultipartCurve(0, nullptr, nullptr, 0, nullptr, 1) {
    m_bOwner = TRUE;
    Parts(*this).Allocate(tessara::INITIAL_PARTS);
}

CMultipartCurve::CMultipartCurve(int nPoints) : CMultipartCurve() {
    ReAllocate(nPoints);
}

CMultipartCurve::CMultipartCurve(int nPoints, double* pX, double* pY, int nParts, CCurvePartInfo* pParts,
                                 int nColors)
    : m_nPoints(nPoints), m_pX(pX), m_pY(pY), m_nParts(nParts), m_nMaxParts(0), m_nColors(nColors),
      m_pParts(nullptr), m_bOwner(FALSE) {
    Parts(*this).Allocate(nParts);
    std::copy_n(pParts, nParts, m_pParts);
}

CMultipartCurve::~CMultipartCurve() {
    tessara::ReleaseArray(m_pParts);
    if (m_bOwner) {
        tessara::ReleaseArray(m_pX);
        tessara::ReleaseArray(m_pY);
    }
}

void CMultipartCurve::Allocate(int nPoints) {
    m_nPoints = 0;
    m_pX = m_pY = nullptr;
    m_bOwner = TRUE;
    tessara::AllocateAll(*this, nPoints);
}

void CMultipartCurve::ReAllocate(int nPoints) {
    if (m_bOwner) {
        tessara::ResizePoints(m_nPoints, m_pX, m_pY, nPoints);
    }
}

void CMultipartCurve::BeginPart(int nFirst, int nColor) {
    Parts(*this).Begin(nFirst, nColor);
}

void CMultipartCurve::EndPart(int nLast) {
    Parts(*this).End(nLast);
}

void CMultipartCurve::GrowParts() {
    Parts(*this).Grow();
}

void CMultipartCurve::AddCurve(CCurve* pCurve, int nColor) {
    const int nOffset = Extend(pCurve->m_nPoints);
    AddPart(*pCurve, {0, pCurve->m_nPoints, nColor}, nOffset);
}

void CMultipartCurve::AddMultipartCurve(CMultipartCurve* pSrc) {
    // The source may be this curve, whose counts and arrays change below.
    const int nPoints = pSrc->m_nPoints;
    const int nParts = pSrc->m_nParts;
    const int nOffset = Extend(nPoints);
    const CCurve points(nPoints, pSrc->m_pX, pSrc->m_pY);
    for (int i = 0; i < nParts; ++i) {
        const CCurvePartInfo part = pSrc->m_pParts[i];
        AddPart(points, part, nOffset);
    }
}

double CMultipartCurve::Value(double x) const {
    return CCurve(m_nPoints, m_pX, m_pY).Value(x);
}

CTable* CMultipartCurve::Value(int bByY, double dValue) const {
    const double* const columns[] = {m_pX, m_pY};
    const auto nParts = static_cast<std::size_t>(m_nParts);
    return tessara::LevelSection({columns, m_nPoints, {m_pParts, nParts}}, bByY ? m_pY : m_pX, dValue)
        .release();
}

/// Adds nMore points and returns the first of them.
int CMultipartCurve::Extend(int nMore) {
    if (!m_bOwner) {
        AfxThrowInvalidArgException();
    }
    const int nFirst = m_nPoints;
    ReAllocate(tessara::AddCounts(nFirst, nMore));
    return nFirst;
}

/// Copies one part into points that exist, moved by nOffset.
void CMultipartCurve::AddPart(const CCurve& points, const CCurvePartInfo& part, int nOffset) {
    const CCurvePartInfo rows = tessara::ClipPart(part, points.m_nPoints);
    BeginPart(nOffset + part.nFirst, part.nColor);
    if (rows.nPoints > 0) {
        std::copy_n(points.m_pX + rows.nFirst, rows.nPoints, m_pX + nOffset + rows.nFirst);
        std::copy_n(points.m_pY + rows.nFirst, rows.nPoints, m_pY + nOffset + rows.nFirst);
    }
    EndPart(nOffset + part.nFirst + part.nPoints - 1);
}
