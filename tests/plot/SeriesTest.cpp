#include "tessara/plot/Series.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <utility>

#include "tests/support/LoggedSurface.h"

using tessara::CLoggedSurface;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

namespace {

CHOOSESCALE UnitAxis() {
    CHOOSESCALE scale;
    scale.dLower = 0;
    scale.dUpper = 1;
    return scale;
}

TEST(Series, ARowIsAMarkerWithDropLinesToFloorAndWall) {
    CTable table(2);
    table.Allocate(2);
    table.m_ppData[0][0] = 0.5;
    table.m_ppData[1][0] = 0.25;
    table.m_ppData[0][1] = std::numeric_limits<double>::quiet_NaN();
    table.m_ppData[1][1] = 0.5;
    CRect front(0, 400, 400, 800);
    CRect back(200, 200, 600, 600);
    CLoggedSurface surface;
    DrawPointsTable(&surface.dc, front, 6, 0x0000FF, UnitAxis(), UnitAxis(), back, &table, 0, 1, nullptr);
    const std::string strPen = " (pen 0000FF width 4)";
    EXPECT_THAT(surface.lines,
                ElementsAre("Polyline 400,500 400,600" + strPen, "Polyline 400,500 200,500" + strPen,
                            "Polyline 400,600 200,800" + strPen, "Polyline 200,500 0,700" + strPen,
                            HasSubstr("Ellipse 368,468 432,532"), HasSubstr("Ellipse 178,478 222,522"),
                            HasSubstr("Ellipse 378,578 422,622")));
}

TEST(Series, PartsAreDrawnInTheSurfacesPenOrDashedOnDemandAndByAPrinterWithoutColours) {
    CMultipartTable table(2); // a rising line of colour 0 and a falling one of colour 1
    CTable line(2);
    line.Allocate(2);
    line.m_ppData[0][0] = line.m_ppData[1][0] = 0;
    line.m_ppData[0][1] = line.m_ppData[1][1] = 1;
    table.AddTable(&line, 0, -1);
    std::swap(line.m_ppData[1][0], line.m_ppData[1][1]);
    table.AddTable(&line, 1, -1);
    const auto draw = [&](const tessara::CDeviceCaps& caps, int bStippled) {
        CRect frame(0, 0, 1000, 1000);
        CLoggedSurface surface(caps);
        DrawMultipartCurve(&surface.dc, 1, UnitAxis(), UnitAxis(), frame, &table, 0, 1, bStippled, nullptr);
        return surface.lines;
    };
    const auto plain = ElementsAre("Polyline 0,1000 1000,0 (pen 000000 width 0)",
                                   "Polyline 0,0 1000,1000 (pen 000000 width 0)");
    const auto dashed = SizeIs(testing::Gt(10U));
    EXPECT_THAT(draw({}, 0), plain);
    EXPECT_THAT(draw({}, 1), dashed);
    EXPECT_THAT(draw(CLoggedSurface::Printer(1 << 24), 0), plain);
    EXPECT_THAT(draw(CLoggedSurface::Printer(2), 0), dashed);
}

} // namespace
