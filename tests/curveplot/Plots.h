#pragma once

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "tessara/curveplot/OutputCurve.h"
#include "tests/support/LoggedSurface.h"

namespace tessara {

/// A plot whose protected parts tests may look at.
class CTestPlot : public COutputCurve {
public:
    using COutputCurve::operator=;
    using COutputCurve::CurveFromColor;
    using COutputCurve::FindBoundingBox;
};

/// nColumns ordinates over 0, 1, 2 ... nPoints - 1: column j is the abscissa times (j + 1).
inline std::unique_ptr<CMultiCurve> MakeLines(int nColumns, int nPoints) {
    auto pCurve = std::make_unique<CMultiCurve>(nColumns);
    pCurve->Allocate(nPoints);
    for (int i = 0; i < nPoints; ++i) {
        pCurve->m_pX[i] = i;
        for (int j = 0; j < nColumns; ++j) {
            pCurve->m_ppY[j][i] = (j + 1) * i;
        }
    }
    return pCurve;
}

constexpr RECT PAGE_CLIENT{0, 0, 5120, 3680}; ///< one pixel a page unit

/// The log of a plot painted on a surface of its own.
struct CPlotLog : CLoggedSurface {
    explicit CPlotLog(COutputCurve& plot) { plot.Paint(&dc, PAGE_CLIENT, nullptr); }
};

} // namespace tessara
