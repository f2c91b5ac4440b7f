#include "tessara/plot/CurveTrace.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "tessara/numeric/Zoom.h"
#include "tessara/platform/gdi/PolylineReduction.h"

namespace tessara {

namespace {

constexpr int SAMPLES = 4096;
constexpr LONG JOIN_REACH = 3; ///< page units: a quarter of a curve's width, whose round ends cover it

/// A hash of numbers in their order (Fowler, Noll and Vo's, by words).
class CHash {
public:
    void Add(std::uint64_t nWord) { m_nHash = (m_nHash ^ nWord) * 0x100000001B3ULL; }
    void Add(double dValue) { Add(std::bit_cast<std::uint64_t>(dValue)); }
    std::uint64_t Get() const { return m_nHash; }

private:
    std::uint64_t m_nHash = 0xCBF29CE484222325ULL;
};

} // namespace

CCurveTrace::CSignature CCurveTrace::Sign(const CMultipartCurve& curve) {
    CHash hash;
    for (int i = 0; i < curve.m_nParts; ++i) {
        const CCurvePartInfo& part = curve.m_pParts[i];
        for (const int nField : {part.nFirst, part.nPoints, part.nColor}) {
            hash.Add(static_cast<std::uint64_t>(nField));
        }
    }
    const int nStep = std::max(1, curve.m_nPoints / SAMPLES);
    for (int i = 0; i < curve.m_nPoints; i += nStep) {
        hash.Add(curve.m_pX[i]);
        hash.Add(curve.m_pY[i]);
    }
    if (curve.m_nPoints > 0) {
        hash.Add(curve.m_pX[curve.m_nPoints - 1]);
        hash.Add(curve.m_pY[curve.m_nPoints - 1]);
    }
    return {curve.m_pX, curve.m_pY, curve.m_nPoints, hash.Get()};
}

void CCurveTrace::Forget() {
    m_signature = {};
    m_pZoomed.reset();
    m_zoom.reset();
    m_rangeX.reset();
    m_rangeY.reset();
    m_map.reset();
    m_runs.clear();
}

void CCurveTrace::Follow(CMultipartCurve* pCurve, const CZoomWindow* pZoom) {
    const CSignature signature = pCurve ? Sign(*pCurve) : CSignature();
    const auto zoom = pZoom ? std::optional(*pZoom) : std::nullopt;
    m_pCurve = pCurve;
    if (signature != m_signature || zoom != m_zoom) {
        Forget();
        m_signature = signature;
        m_zoom = zoom;
        if (pCurve && zoom) {
            m_pZoomed.reset(ZoomMultipartCurve(pCurve, zoom->dXMin, zoom->dYMin, zoom->dXMax, zoom->dYMax));
        }
    }
    if (zoom && !m_pZoomed) {
        m_pCurve = nullptr;
    }
}

const CDataRange& CCurveTrace::GetRange(std::optional<CDataRange>& range, double* CMultipartCurve::*pValues) {
    if (!range) {
        range.emplace();
        if (const CMultipartCurve* const pShown = GetShown()) {
            range->Add(pShown->*pValues, pShown->m_nPoints);
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
