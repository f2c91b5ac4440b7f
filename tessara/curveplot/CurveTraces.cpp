#include "tessara/curveplot/CurveTraces.h"

#include "tessara/curveplot/OutputCurve.h"

namespace tessara {

namespace {

std::unique_ptr<CMultipartCurve> ViewOfFunction(const COutputCurve& plot, int nFunction) {
    CCurvePartInfo whole{};
    whole.nPoints = plot.m_nPoints;
    whole.nColor = nFunction;
    return std::make_unique<CMultipartCurve>(plot.m_nPoints, plot.m_pX, plot.m_pY[nFunction], 1, &whole, 1);
}

std::unique_ptr<CMultipartCurve> ViewOfParts(const COutputCurve& plot) {
    const CMultipartCurve& curve = *plot.m_pMultipartCurve;
    return std::make_unique<CMultipartCurve>(curve.m_nPoints, curve.m_pX, curve.m_pY, plot.m_nParts,
                                             curve.m_pParts, curve.GetNumColors());
}

} // namespace

void CCurveTraces::Follow(const COutputCurve& plot, bool bTrustValues) {
    CArrayFingerprints prints;
    m_curves.resize(static_cast<std::size_t>(plot.m_pMultipartCurve ? 1 : plot.m_nFunctions));
    for (int i = 0; auto& pCurve : m_curves) {
        if (!pCurve) {
            pCurve = std::make_unique<CTracedCurve>();
        }
        auto pView = plot.m_pMultipartCurve ? ViewOfParts(plot) : ViewOfFunction(plot, i++);
        pCurve->trace.Follow(pView.get(), bTrustValues ? nullptr : &prints);
        pCurve->pView = std::move(pView);
    }
}

void CCurveTraces::ShowIn(const CZoomWindow* pZoom) {
    for (const auto& pCurve : m_curves) {
        pCurve->trace.ShowIn(pZoom);
    }
}

CDataRange CCurveTraces::GetRangeX() {
    CDataRange range;
    for (const auto& pCurve : m_curves) {
        range.Add(pCurve->trace.GetRangeX());
    }
    return range;
}

CDataRange CCurveTraces::GetRangeY() {
    CDataRange range;
    for (const auto& pCurve : m_curves) {
        range.Add(pCurve->trace.GetRangeY());
    }
    return range;
}

} // namespace tessara
