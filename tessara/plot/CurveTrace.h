#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "tessara/numeric/MultipartCurve.h"
#include "tessara/plot/DataRange.h"
#include "tessara/plot/Fingerprint.h"
#include "tessara/plot/PlotMap.h"
#include "tessara/plot/ZoomWindow.h"

namespace tessara {

/// What painting found of one curve: its piece in the zoom window, its data ranges, its points on the page.
/// Kept from paint to paint while the curve stays the same.
///
/// Whether it does is told by its arrays' addresses and sizes, its part records, and all values of the arrays
/// (CFingerprint). To look at the values takes a good part of a paint's time, so it is left out where their
/// owner promises to say when they change: then Forget is what makes the next paint look.
class CCurveTrace {
public:
    /// A run of the curve on the page without gaps.
    struct CRun {
        int nColor; ///< of its part
        std::vector<POINT> points;
    };

    /// Cuts a curve at a window: ZoomMultipartCurve or CutMultipartCurve.
    using CCut = CMultipartCurve* (*)(CMultipartCurve*, double xMin, double yMin, double xMax, double yMax);

    explicit CCurveTrace(CCut pCut) : m_pCut(pCut) {}

    /// Turns to a curve, which may be null and must live until the next call. What was found of another is
    /// forgotten. Without fingerprints the values of the same arrays are taken to be the same.
    void Follow(CMultipartCurve* pCurve, CArrayFingerprints* pFingerprints);
    /// Turns to a window of that curve, null for all of it.
    void ShowIn(const CZoomWindow* pZoom);
    /// What is shown: the curve or its pieces in the window; null when there is nothing.
    CMultipartCurve* GetShown() const { return m_zoom ? m_pZoomed.get() : m_pCurve; }

    /// The finite abscissae and ordinates of the whole curve.
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
        int nParts = 0;
        int nColors = 0;
        CFingerprint parts;
        std::optional<std::array<CFingerprint, 2>> values; ///< when they were looked at

        /// Whether it is that of the same curve as another, which was taken later.
        bool Knows(const CSignature& later, bool bTrustValues) const;
    };
    static CSignature Sign(const CMultipartCurve& curve, CArrayFingerprints* pFingerprints);
    void ForgetPieces();
    void AddRun(int nColor, std::span<const POINT> points);
    const CDataRange& GetRange(std::optional<CDataRange>& range, double* CMultipartCurve::*pValues);

    const CCut m_pCut;
    CMultipartCurve* m_pCurve = nullptr;
    std::optional<CSignature> m_signature; ///< of the curve that was found, if any
    std::optional<CZoomWindow> m_zoom;     ///< that is shown
    std::unique_ptr<CMultipartCurve> m_pZoomed;
    std::optional<CDataRange> m_rangeX;
    std::optional<CDataRange> m_rangeY;
    std::optional<CPlotMap> m_map; ///< under which the runs were found
    std::vector<CRun> m_runs;
};

} // namespace tessara
