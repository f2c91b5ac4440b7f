#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "tessara/numeric/PolylineCut.h"
#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/platform/vellum/Stippled.h"
#include "tessara/plot/CurveTrace.h"
#include "tessara/plot/Page.h"

namespace tessara {

namespace {

constexpr RECT FRAME{384, 368, 3456, 3312};

CPlotMap MapOf(const CZoomWindow& window) {
    CHOOSESCALE x;
    CHOOSESCALE y;
    x.dLower = window.dXMin;
    x.dUpper = window.dXMax;
    y.dLower = window.dYMin;
    y.dUpper = window.dYMax;
    return {FRAME, x, y};
}

/// Oscillates so fast that a column of the page sees it leave and come back several times.
std::unique_ptr<CMultipartCurve> MakeNoise(int nPoints) {
    auto pCurve = std::make_unique<CMultipartCurve>(nPoints);
    for (int i = 0; i < nPoints; ++i) {
        pCurve->m_pX[i] = i / static_cast<double>(nPoints);
        pCurve->m_pY[i] = std::sin(i * 2.1) * (1 + std::cos(i * 0.013));
    }
    pCurve->BeginPart(0, 0);
    pCurve->EndPart(nPoints - 1);
    return pCurve;
}

void Draw(CImageDC& dc, std::span<const POINT> points) {
    std::vector<POINT> copy(points.begin(), points.end());
    PolyLineStippledEx(&dc, copy.data(), static_cast<int>(copy.size()), 0, nullptr, 0);
}

TEST(CurveTrace, JoinsPiecesOfAZoomedCurveWithoutChangingAPixel) {
    constexpr SIZE SIZES[] = {{800, 575}, {2400, 1725}};
    for (const int nPoints : {3000, 60000}) {
        const auto pCurve = MakeNoise(nPoints);
        const CZoomWindow window{0.8, 0.2, 0.7, -0.4};
        const CPlotMap map = MapOf(window);
        CCurveTrace trace(&CutMultipartCurve);
        trace.Follow(pCurve.get(), nullptr);
        trace.ShowIn(&window);
        const auto runs = trace.GetRuns(map);
        const std::unique_ptr<CMultipartCurve> pPieces(
            CutMultipartCurve(pCurve.get(), window.dXMin, window.dYMin, window.dXMax, window.dYMax));
        ASSERT_GT(pPieces->m_nParts, 50);
        if (nPoints > 3000) {
            EXPECT_LT(static_cast<int>(runs.size()) * 10, pPieces->m_nParts);
        }
        for (const SIZE size : SIZES) {
            CImageDC joined(size.cx, size.cy);
            CImageDC pieces(size.cx, size.cy);
            RECT client = joined.GetClientRect();
            CenterDC(&joined, client);
            CenterDC(&pieces, client);
            for (const CCurveTrace::CRun& run : runs) {
                Draw(joined, run.points);
            }
            std::vector<POINT> buffer;
            for (int i = 0; i < pPieces->m_nParts; ++i) {
                const CCurvePartInfo& part = pPieces->m_pParts[i];
                MapPolyline(map, pPieces->m_pX + part.nFirst, pPieces->m_pY + part.nFirst, part.nPoints,
                            buffer, [&](std::span<POINT> points) { Draw(pieces, points); });
            }
            int nDifferent = 0;
            for (int y = 0; y < size.cy; ++y) {
                for (int x = 0; x < size.cx; ++x) {
                    nDifferent += joined.GetPixel(x, y) != pieces.GetPixel(x, y);
                }
            }
            EXPECT_EQ(nDifferent, 0) << nPoints << " points, " << size.cx << " pixels";
        }
    }
}

} // namespace

} // namespace tessara
