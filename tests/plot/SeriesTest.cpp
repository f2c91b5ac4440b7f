#include "tessara/plot/Series.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/LoggedSurface.h"

using tessara::CLoggedSurface;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

CHOOSESCALE UnitAxis() {
    CHOOSESCALE scale;
    scale.dLower = 0;
    scale.dUpper = 1;
    return scale;
}

/// Two parts: a rising line of colour 0 and a falling one of colour 1.
void FillCross(CMultipartTable& table) {
    CTable line(2);
    line.Allocate(2);
    line.m_ppData[0][0] = 0;
    line.m_ppData[0][1] = 1;
    line.m_ppData[1][0] = 0;
    line.m_ppData[1][1] = 1;
    table.AddTable(&line, 0, -1);
    line.m_ppData[1][0] = 1;
    line.m_ppData[1][1] = 0;
    table.AddTable(&line, 1, -1);
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

TEST(Series, PartsAreDrawnInTheSurfacesPenOrDashedInTheirStyle) {
    CMultipartTable table(2);
    FillCross(table);
    CRect frame(0, 0, 1000, 1000);
    CLoggedSurface plain;
    DrawMultipartCurve(&plain.dc, 3, UnitAxis(), UnitAxis(), frame, &table, 0, 1, 0, nullptr);
    EXPECT_THAT(plain.lines, ElementsAre("Polyline 0,1000 1000,0 (pen 000000 width 0)",
                                         "Polyline 0,0 1000,1000 (pen 000000 width 0)"));
    CLoggedSurface stippled;
    DrawMultipartCurve(&stippled.dc, 1, UnitAxis(), UnitAxis(), frame, &table, 0, 1, 1, nullptr);
    EXPECT_GT(stippled.lines.size(), 10U);
    EXPECT_EQ(stippled.LinesWith("pen 000000").size(), stippled.lines.size());
}

TEST(Series, OnlyAPrinterWithoutColoursGetsDashesUnasked) {
    CMultipartTable table(2);
    FillCross(table);
    CRect frame(0, 0, 1000, 1000);
    CLoggedSurface colour(CLoggedSurface::Printer(1 << 24));
    DrawMultipartCurve(&colour.dc, 1, UnitAxis(), UnitAxis(), frame, &table, 0, 1, 0, nullptr);
    EXPECT_EQ(colour.lines.size(), 2U);
    CLoggedSurface monochrome(CLoggedSurface::Printer(2));
    DrawMultipartCurve(&monochrome.dc, 1, UnitAxis(), UnitAxis(), frame, &table, 0, 1, 0, nullptr);
    EXPECT_GT(monochrome.lines.size(), 10U);
}

TEST(Series, TablesWithoutRowsDrawNothing) {
    CLoggedSurface surface;
    CRect frame(0, 0, 100, 100);
    CTable points(2);
    DrawPointsTable(&surface.dc, frame, 6, 0, UnitAxis(), UnitAxis(), frame, &points, 0, 1, nullptr);
    CMultipartTable parts(2);
    DrawMultipartCurve(&surface.dc, 0, UnitAxis(), UnitAxis(), frame, &parts, 0, 1, 0, nullptr);
    EXPECT_THAT(surface.lines, IsEmpty());
}

} // namespace
