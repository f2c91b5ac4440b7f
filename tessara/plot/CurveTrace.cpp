#include "tessara/plot/CurveTrace.h"

#include <algorithm>
#include <cstdlib>
#include <type_traits>

#include "tessara/platform/gdi/PolylineReduction.h"

namespace tessara {

namespace {

constexpr LONG JOIN_REACH = 3; ///< page units: a quarter of a curve's width, whose round ends cover it

} // namespace

bool CCurveTrace::CSignature::Knows(const CSignature& later, bool bTrustValues) const {
    const bool bSameArrays = pX == later.pX && pY == later.pY && nPoints == later.nPoints;
    const bool bSameParts = nParts == later.nParts && nColors == later.nColors && parts == later.parts;
    return bSameArrays && bSameParts && (bTrustValues || (values && values == later.values));
}

CCurveTrace::CSignature CCurveTrace::Sign(const CMultipartCurve& curve, CArrayFingerprints* pFingerprints) {
    static_assert(std::has_unique_object_representations_v<CCurvePartInfo>);
    CSignature signature{curve.m_pX, curve.m_pY, curve.m_nPoints, curve.m_nParts, curve.m_nColors, {}, {}};
    const auto nParts = static_cast<std::size_t>(std::max(curve.m_nParts, 0));
    signature.parts = CFingerprint::Of(curve.m_pParts, nParts * sizeof(CCurvePartInfo));
    if (pFingerprints) {
        signature.values = {pFingerprints->Of(curve.m_pX, curve.m_nPoints),
                            pFingerprints->Of(curve.m_pY, curve.m_nPoints)};
    }
    return signature;
}

void CCurveTrace::Forget() {
    m_pCurve = nullptr;
    m_signature.reset();
    m_rangeX.reset();
    m_rangeY.reset();
    ForgetPieces();
}

void CCurveTrace::ForgetPieces() {
    m_pZoomed.reset();
    m_zoom.reset();
    m_map.reset();
    m_runs.clear();
}

void CCurveTrace::Follow(CMultipartCurve* pCurve, CArrayFingerprints* pFingerprints) {
    if (!pCurve) {
        Forget();
        return;
    }
    const CSignature signature = Sign(*pCurve, pFingerprints);
    if (!m_signature || !m_signature->Knows(signature, !pFingerprints)) {
        Forget();
        m_signature = signature;
    }
    m_pCurve = pCurve;
}

void CCurveTrace::ShowIn(const CZoomWindow* pZoom) {
    const auto zoom = pZoom ? std::optional(*pZoom) : std::nullopt;
    if (zoom == m_zoom) {
        return;
    }
    ForgetPieces();
    if (m_pCurve && zoom) {
        m_pZoomed.reset(m_pCut(m_pCurve, zoom->dXMin, zoom->dYMin, zoom->dXMax, zoom->dYMax));
    }
    m_zoom = zoom; // last: nothing is kept of a cut that failed
}

const CDataRange& CCurveTrace::GetRange(std::optional<CDataRange>& range, double* CMultipartCurve::*pValues) {
    if (!range) {
        range.emplace();
        if (m_pCurve) {
            range->Add(m_pCurve->*pValues, m_pCurve->m_nPoints);
        }
    }
    return *range;
}

const CDataRange& CCurveTrace::GetRangeX() {
    return GetRange(m_rangeX, &CMultipartCurve::m_pX);
}

const CDataRange& CCurveTrace::GetRangeY() {
    return GetRange(m_rangeY, &CMultipartCurve::m_pY);
}

void CCurveTrace::AddRun(int nColor, std::span<const POINT> points) {
    if (m_pZoomed && !m_runs.empty()) {
        CRun& last = m_runs.back();
        const POINT end = last.points.back();
        const POINT start = points.front();
        if (last.nColor == nColor && std::abs(end.x - start.x) <= JOIN_REACH &&
            std::abs(end.y - start.y) <= JOIN_REACH) {
            last.points.insert(last.points.end(), points.begin(), points.end());
            return;
        }
    }
    m_runs.push_back({nColor, {points.begin(), points.end()}});
}

std::span<const CCurveTrace::CRun> CCurveTrace::GetRuns(const CPlotMap& map) {
    if (m_map == map) {
        return m_runs;
    }
    m_map.reset();
    m_runs.clear();
    std::vector<POINT> buffer;
    const CMultipartCurve* const pShown = GetShown();
    for (int i = 0; pShown && i < pShown->m_nParts; ++i) {
        const CCurvePartInfo& part = pShown->m_pParts[i];
        MapPolyline(map, pShown->m_pX + part.nFirst, pShown->m_pY + part.nFirst, part.nPoints, buffer,
                    [&](std::span<POINT> points) { AddRun(part.nColor, points); });
    }
    if (m_pZoomed) {
        for (CRun& run : m_runs) {
            run.points.resize(MergeColumns(run.points));
        }
    }
    m_map = map;
    return m_runs;
}

} // namespace tessara
