#include "cli/view/FunctionWalk.h"

#include <algorithm>
#include <cmath>

namespace tessara {

const CMultiCurve* CFunctionWalk::GetCurves() const {
    return m_pData->GetMultiCurve() ? m_pData->GetMultiCurve() : m_pData->GetSymbols();
}

void CFunctionWalk::PickByColor(COLORREF color) {
    for (int i = 0; i < std::min(GetCount(), static_cast<int>(m_plot.m_Colors.GetSize())); ++i) {
        if (m_plot.m_Colors.GetAt(i) == color) {
            m_nFunction = i;
            return;
        }
    }
}

/// The mark has an argument and no value, so that only the places of the samples count.
CWalkPath CFunctionWalk::GetPath(int nFunction) const {
    const CMultiCurve& curves = *GetCurves();
    const auto nPoints = static_cast<std::size_t>(curves.m_nPoints);
    const double* const pValues = curves.m_ppY[nFunction];
    std::vector<double> level(pValues, pValues + nPoints);
    for (double& dValue : level) {
        dValue = std::isfinite(dValue) ? 0 : dValue;
    }
    CWalkPath path;
    path.AddPart({curves.m_pX, nPoints}, level);
    return path;
}

CPixelMap CFunctionWalk::GetMap() const {
    CPixelMap map = m_plot.GetPixelMap();
    map.dYLower = -1;
    map.dYUpper = 1;
    return map;
}

bool CFunctionWalk::Walk(EWalk eWalk) {
    if (GetCount() == 0 || GetMap().rect.IsRectEmpty()) {
        return false;
    }
    if (eWalk == EWalk::back) {
        return WalkAlong(CCurveWalk::EDirection::back);
    }
    if (eWalk == EWalk::forward || !IsMarked()) {
        return WalkAlong(CCurveWalk::EDirection::forward);
    }
    return WalkAcross(eWalk == EWalk::nextCurve ? 1 : -1);
}

bool CFunctionWalk::WalkAlong(CCurveWalk::EDirection eDirection) {
    const CWalkPath path = GetPath(m_nFunction);
    const CCurveWalk walk(path, GetMap());
    const auto next = IsMarked() ? walk.Step(m_plot.m_dMarkArgument, 0, std::nullopt, eDirection)
                                 : walk.GetFirst(eDirection);
    if (next) {
        m_plot.PickArgument(path.GetStops()[*next].dX);
    }
    return next.has_value();
}

/// To the next function of which something is shown, the first after the last.
bool CFunctionWalk::WalkAcross(int nStep) {
    const int nCount = GetCount();
    for (int i = 1; i < nCount; ++i) {
        const int nFunction = (m_nFunction + i * nStep + i * nCount) % nCount;
        const CWalkPath path = GetPath(nFunction);
        const auto nearest = CCurveWalk(path, GetMap()).GetNearest(m_plot.m_dMarkArgument, 0);
        if (nearest) {
            m_nFunction = nFunction;
            m_plot.PickArgument(path.GetStops()[*nearest].dX);
            return true;
        }
    }
    return false;
}

} // namespace tessara
