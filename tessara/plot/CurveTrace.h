#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "tessara/numeric/MultipartCurve.h"
#include "tessara/plot/DataRange.h"
#include "tessara/plot/PlotMap.h"
#include "tessara/plot/ZoomWindow.h"

namespace tessara {

/// What painting found of one curve: its piece in the zoom window, its data ranges, its points on the page.
/// Kept from paint to paint while the curve stays the same.
///
/// Whether it does is told by its arrays' addresses and sizes, its parts, and a few thousand of its points
/// spread over it: looking at every point would take as long as painting. A program that changes single
/// values of a curve in place sets the curve again; a calculation that fills the arrays anew is noticed.
class CCurveTrace {
public:
    /// A run of the curve on the page without gaps.
    struct CRun {
        int nColor; ///< of its part
        std::vector<POINT> points;
    };

    /// Turns to a curve, which may be null and must live until the next call, and the zoom window, null for
    /// the whole curve. What was found of another is forgotten.
    void Follow(CMultipartCurve* pCurve, const CZoomWindow* pZoom);
    /// What is shown: the curve or, zoomed, its pieces; null when there is nothing.
    CMultipartCurve* GetShown() const { return m_pZoomed ? m_pZoomed.get() : m_pCurve; }

    /// The finite abscissae and ordinates of what is shown.
    const CDataRange& GetRangeX();
    const CDataRange& GetRangeY();
    /// The runs under a map, thinned as MapPolyline does. Pieces of a zoomed curve that follow each other
    /// where it left the window are one run: a curve that goes in and out in every column has thousands of
    /// them.
    std::span<const CRun> GetRuns(const CPlotMap& map);
    void Forget();

private:
    /// By which a curve is known again.
    struct CSignature {
        const double* pX = nullptr;
        const double* pY = nullptr;
        int nPoints = 0;
        std::uint64_t nHash = 0;
        friend bool operator==(const CSignature&, const CSignature&) = default;
    };
    static CSignature Sign(const CMultipartCurve& curve);
    void AddRun(int nColor, std::span<const POINT> points);
    const CDataRange& GetRange(std::optional<CDataRange>& range, double* CMultipartCurve::*pValues);

    CMultipartCurve* m_pCurve = nullptr; ///< null as well when nothing of it lies in the window
    std::unique_ptr<CMultipartCurve> m_pZoomed;
    std::optional<CZoomWindow> m_zoom; ///< that the pieces were cut by
    CSignature m_signature;
    std::optional<CDataRange> m_rangeX;
    std::optional<CDataRange> m_rangeY;
    std::optional<CPlotMap> m_map; ///< under which the runs were found
    std::vector<CRun> m_runs;
};

} // namespace tessara
