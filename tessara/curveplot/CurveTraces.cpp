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

void CCurveTraces::Follow(const COutputCurve& plot, const CZoomWindow* pZoom) {
    const int nCurves = plot.m_pMultipartCurve ? 1 : plot.m_nFunctions;
    m_curves.resize(static_cast<std::size_t>(nCurves));
    for (int i = 0; i < nCurves; ++i) {
        FollowCurve(i, plot.m_pMultipartCurve ? ViewOfParts(plot) : ViewOfFunction(plot, i), pZoom);
    }
}

void CCurveTraces::FollowCurve(int nIndex, std::unique_ptr<CMultipartCurve> pView, const CZoomWindow* pZoom) {
    std::unique_ptr<CTracedCurve>& pCurve = m_curves[static_cast<std::size_t>(nIndex)];
    if (!pCurve) {
        pCurve = std::make_unique<CTracedCurve>();
    }
    pCurve->trace.Follow(pView.get(), pZoom);
    pCurve->pView = std::move(pView);
}

} // namespace tessara
