#include "tessara/plot/TickMarks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "tessara/plot/Symbols.h"
#include "tests/support/LoggedSurface.h"

using tessara::CLoggedSurface;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const CRect FRAME(1000, 500, 2000, 1500);

CHOOSESCALE Choose(double dMin, double dMax) {
    CHOOSESCALE scale;
    scale.dMin = dMin;
    scale.dMax = dMax;
    ChooseScale(&scale);
    return scale;
}

std::vector<std::string> Labels(const CLoggedSurface& surface) {
    std::vector<std::string> labels;
    for (const std::string& strLine : surface.LinesWith("Text")) {
        const std::size_t nFrom = strLine.find('"') + 1;
        labels.push_back(strLine.substr(nFrom, strLine.rfind('"') - nFrom));
    }
    return labels;
}

TEST(TickMarks, AnAxisHasTicksAtHalfStepsToo) {
    CLoggedSurface surface;
    DrawVerticalTickMarks(&surface.dc, FRAME, Choose(0.13, 0.87), nullptr);
    EXPECT_THAT(surface.LinesWith("Polyline 968,500 1000,500"), testing::SizeIs(1)) << "half a step further";
    EXPECT_THAT(Labels(surface), ElementsAre("2", "4", "6", "8")) << "vertical labels show the factor";
}

TEST(TickMarks, TheDepthAxisSpansTheDataBetweenTheCorners) {
    CLoggedSurface surface;
    DrawDepthTickMarks(&surface.dc, FRAME, CRect(1400, 100, 2400, 1100), Choose(0, 4), nullptr);
    EXPECT_THAT(surface.LinesWith("Polyline 2460,1100 2400,1100"), testing::SizeIs(1));
    EXPECT_THAT(surface.LinesWith("Polyline 2082,1450 2050,1450"), testing::SizeIs(1)) << "minor at 0.5";
    EXPECT_THAT(Labels(surface), ElementsAre("0", "1", "2", "3", "4"));
}

TEST(Box, LeavesRoomForTheDepth) {
    CRect in(100, 100, 1100, 700);
    CRect out;
    CalculateBoxSize(0, in, out, 0.25, 0.5);
    EXPECT_EQ(static_cast<RECT>(out), (RECT{0, 0, 800, 400}));
    CLoggedSurface surface;
    DrawBox(&surface.dc, in, out);
    EXPECT_THAT(surface.lines, ElementsAre(HasSubstr("Rectangle 0,0 800,400")));
}

TEST(Symbols, EachKindHasItsShapeOutlineAndFill) {
    const std::tuple<int, bool, const char*> cases[] = {
        // kind, whether small, line
        {6, false, "Ellipse 68,168 132,232 (no pen, brush 2211FF)"},
        {6, true, "Ellipse 78,178 122,222 (no pen, brush 2211FF)"},
        {7, true, "Rectangle 74,172 126,228 (no pen, brush 2211FF)"},
        {8, true, "Ellipse 68,168 132,232 (pen 2211FF width 16, brush FFFFFF)"},
        {10, false, "Polygon 68,200 100,168 132,200 100,232 (pen 2211FF width 4, brush 000000)"},
        {11, true, "Polygon 78,200 100,178 122,200 100,222 (pen 2211FF width 4, brush FFFFFF)"},
    };
    for (const auto& [nKind, bSmall, pszLine] : cases) {
        CLoggedSurface surface;
        CPoint at(100, 200);
        DrawSymbol(&surface.dc, nKind, bSmall, at, 0x2211FF, nullptr);
        EXPECT_THAT(surface.lines, ElementsAre(pszLine));
    }
}

} // namespace
