// A program may have its floating-point traps on: painting, zooming and reading out raise nothing that they
// would catch, whatever gaps the data have.

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/platform/gdi/MetaFileDC.h"
#include "tests/curveplot/Plots.h"
#include "tests/support/RaisedFlags.h"

namespace {

using tessara::CTestPlot;
using tessara::RaisedIn;

/// Two columns of up to 3000 points: walks, some on a grid, some constant, with gaps of all kinds among them.
std::unique_ptr<CMultiCurve> RandomColumns(std::mt19937& random, bool bGaps) {
    const double gaps[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity()};
    std::normal_distribution<double> step(0, std::pow(10.0, static_cast<int>(random() % 9) - 4));
    auto pCurve = std::make_unique<CMultiCurve>(2);
    pCurve->Allocate(static_cast<int>(random() % (random() % 8 ? 20 : 3000)));
    for (double* pColumn : {pCurve->m_pX, pCurve->m_ppY[0], pCurve->m_ppY[1]}) {
        const unsigned nKind = random() % 3;
        double dAt = step(random);
        for (int i = 0; i < pCurve->m_nPoints; ++i) {
            dAt += nKind == 0 ? 0 : pColumn == pCurve->m_pX ? std::fabs(step(random)) : step(random);
            pColumn[i] = nKind == 1 ? std::round(dAt) : dAt;
            if (bGaps && random() % 8 == 0) {
                pColumn[i] = gaps[random() % 3];
            }
        }
    }
    return pCurve;
}

TEST(CurvePlotTraps, NothingIsRaisedByPaintingZoomingAndReadingOut) {
    std::mt19937 random(7);
    CImageDC image(400, 288);
    for (int nRound = 0; nRound < 200; ++nRound) {
        SCOPED_TRACE(nRound);
        const auto pCurve = RandomColumns(random, nRound % 2 == 1);
        CTestPlot plot;
        plot.m_bMonochrome = nRound % 3 == 0;
        ASSERT_EQ(RaisedIn([&] { plot = pCurve.get(); }), "");
        ASSERT_EQ(RaisedIn([&] { plot.SetSymbolsCurve(pCurve.get()); }), "");
        ASSERT_EQ(RaisedIn([&] { plot.FitScale(nRound % 4); }), "");
        CMetaFileDC picture;
        picture.Create();
        ASSERT_EQ(RaisedIn([&] { plot.Paint(&image, image.GetClientRect(), &picture); }), "");
        ASSERT_EQ(RaisedIn([&] { DeleteMetaFile(picture.Close()); }), "");
        image.SetSmooth(nRound % 5 == 0);
        ASSERT_EQ(RaisedIn([&] { plot.ZoomTo({-0.5, -0.5, 1, 1}); }), "");
        ASSERT_EQ(RaisedIn([&] { plot.Paint(&image, image.GetClientRect(), nullptr); }), "");
        if (nRound % 2 == 0 && pCurve->m_nPoints > 0) {
            ASSERT_EQ(RaisedIn([&] { plot.Value(0, 0.25); }), "");
        }
    }
}

} // namespace
