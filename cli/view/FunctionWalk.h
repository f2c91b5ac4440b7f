#pragma once

#include <algorithm>

#include "cli/PlotData.h"
#include "cli/view/CurveWalk.h"
#include "cli/view/ShownPlot.h"
#include "tessara/curveplot/OutputCurve.h"

namespace tessara {

/// Walks the mark of a curve plot along the samples of the function that was picked: the first one, until
/// another is. A plot of markers alone is walked along these.
class CFunctionWalk {
public:
    /// The plot must outlive the object.
    explicit CFunctionWalk(COutputCurve& plot) : m_plot(plot) {}

    /// What the plot shows from now on.
    void SetData(const CPlotData& data) { m_pData = &data; }
    /// The number of functions.
    int GetCount() const { return GetCurves() ? GetCurves()->m_nDimensions : 0; }
    int GetFunction() const { return m_nFunction; }
    /// Picks a function, or the last one where there are fewer.
    void Pick(int nFunction) { m_nFunction = std::clamp(nFunction, 0, std::max(0, GetCount() - 1)); }
    /// Picks the function that is drawn in a colour, where there is one.
    void PickByColor(COLORREF color);
    /// See CShownPlot.
    bool Walk(EWalk eWalk);

private:
    const CMultiCurve* GetCurves() const;
    CWalkPath GetPath(int nFunction) const;
    CPixelMap GetMap() const;
    bool IsMarked() const { return (m_plot.m_nFlags & OCF_MARKSHOWN) != 0; }
    bool WalkAlong(CCurveWalk::EDirection eDirection);
    bool WalkAcross(int nStep);

    COutputCurve& m_plot;
    const CPlotData* m_pData = nullptr;
    int m_nFunction = 0;
};

} // namespace tessara
