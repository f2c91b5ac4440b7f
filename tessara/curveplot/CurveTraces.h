#pragma once

#include <memory>
#include <vector>

#include "tessara/numeric/PolylineCut.h"
#include "tessara/plot/CurveTrace.h"

class COutputCurve;

namespace tessara {

/// What painting found of the curves that a plot shows: of each function, or of its multipart curve. A part's
/// colour is its style.
class CCurveTraces {
public:
    /// Turns to the plot's curves as they are now; what was found of the same curves is kept (see
    /// CCurveTrace::Follow). Throws std::bad_alloc and CMemoryException, as ShowIn and ForEachRun do.
    void Follow(const COutputCurve& plot, bool bTrustValues);
    void ShowIn(const CZoomWindow* pZoom);
    /// The finite abscissae and ordinates of all the curves.
    CDataRange GetRangeX();
    CDataRange GetRangeY();
    /// The thinned runs of all curves in the order in which they are drawn.
    template <class DRAW>
    void ForEachRun(const CPlotMap& map, DRAW draw) {
        for (const auto& pCurve : m_curves) {
            for (const CCurveTrace::CRun& run : pCurve->trace.GetRuns(map)) {
                draw(run);
            }
        }
    }
    void Forget() { m_curves.clear(); }

private:
    struct CTracedCurve {
        std::unique_ptr<CMultipartCurve> pView; ///< of the plot's arrays
        CCurveTrace trace{&CutMultipartCurve};
    };

    std::vector<std::unique_ptr<CTracedCurve>> m_curves;
};

} // namespace tessara
