// A program may have its floating-point traps on: painting and zooming a diagram raise nothing that they
// would catch, whatever gaps the data have.

#include <array>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tessara/platform/gdi/ImageDC.h"
#include "tests/phasediagram/Diagrams.h"
#include "tests/support/RaisedFlags.h"

namespace {

using tessara::CTestDiagram;
using tessara::RaisedIn;

TEST(DiagramTraps, NothingIsRaisedByPaintingZoomingAndFindingMultiphasePoints) {
    std::mt19937 random(8);
    std::uniform_real_distribution<double> uniform(-2, 2);
    CImageDC image(400, 288);
    for (int nRound = 0; nRound < 120; ++nRound) {
        SCOPED_TRACE(nRound);
        const bool bGaps = nRound % 2 == 1;
        CMultipartTable section(3);
        for (unsigned nPart = 0; nPart <= random() % 3; ++nPart) {
            CTable part(3);
            part.Allocate(static_cast<int>(random() % 60));
            for (int i = 0; i < 3 * part.m_nPoints; ++i) {
                double& dValue = part.m_ppData[i % 3][i / 3];
                dValue = nRound % 4 < 2 ? uniform(random) : std::round(uniform(random));
                if (bGaps && random() % 8 == 0) {
                    dValue = std::numeric_limits<double>::quiet_NaN();
                }
            }
            section.AddTable(&part, static_cast<int>(nPart), -1);
        }
        std::array<double, 2> x{uniform(random), bGaps ? std::numeric_limits<double>::infinity() : 1.0};
        std::array<double, 2> y{uniform(random), 0.0};
        CTestDiagram diagram;
        ASSERT_EQ(RaisedIn([&] { diagram.SetBinodalSection(0, 1, 2, &section, 0); }), "");
        ASSERT_EQ(RaisedIn([&] { diagram.SetCriticalPoints(2, x.data(), y.data()); }), "");
        diagram.SetMonochrome(nRound % 3 == 1);
        ASSERT_EQ(RaisedIn([&] { diagram.ToggleMultiphasePoints(); }), "");
        diagram.DrawLeftBoundary(uniform(random));
        ASSERT_EQ(RaisedIn([&] { diagram.Paint(&image, image.GetClientRect(), nullptr); }), "");
        ASSERT_EQ(RaisedIn([&] { diagram.ZoomTo({-1, -1, 0.5, 1}); }), "");
        ASSERT_EQ(RaisedIn([&] { diagram.Paint(&image, image.GetClientRect(), nullptr); }), "");
    }
}

} // namespace
