#include "tessara/platform/vellum/Stippled.h"

#include <algorithm>
#include <array>
#include <climits>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/vellum/DashPattern.h"
#include "tests/gdi/Surfaces.h"
#include "tests/support/LoggedSurface.h"

using tessara::CLoggedSurface;
using tessara::CPaletteScope;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

namespace {

constexpr std::array<COLORREF, 3> PALETTE{RGB(1, 2, 3), RGB(40, 50, 60), RGB(200, 100, 0)};

void DrawLine(CDC& dc, int nStyle, int bStippled, CMetaFileDC* pPicture = nullptr) {
    std::array<POINT, 3> line{POINT{0, 10}, POINT{300, 10}, POINT{390, 50}};
    EXPECT_EQ(PolyLineStippledEx(&dc, line.data(), 3, nStyle, pPicture, bStippled), 1);
}

using Points = std::vector<POINT>;

std::vector<Points> Dashes(const Points& line, std::vector<double> pattern) {
    std::vector<Points> dashes;
    tessara::CutIntoDashes(
        line, pattern, [&](std::span<const POINT> dash) { dashes.emplace_back(dash.begin(), dash.end()); });
    return dashes;
}

} // namespace

TEST(Stippled, StylesAreColoursOfTheCarriedPaletteOrTheDefaultOneInTurn) {
    const char* const defaults[] = {"0000FF", "FF0000", "00FF00", "FFFF00", "FF00FF", "00FFFF"};
    const char* const carried[] = {"030201", "3C3228", "0064C8"};
    for (const int nStyle : {0, 1, 2, 3, 4, 5, 6, 1000}) {
        CLoggedSurface log;
        DrawLine(log.dc, nStyle, 0);
        {
            const CPaletteScope scope(log.dc, PALETTE);
            DrawLine(log.dc, nStyle, 0);
        }
        DrawLine(log.dc, nStyle, 0);
        EXPECT_THAT(log.lines, ElementsAre(HasSubstr(defaults[nStyle % 6]), HasSubstr(carried[nStyle % 3]),
                                           HasSubstr(defaults[nStyle % 6])));
    }
}

TEST(Stippled, CurvesAreSolidInTheirColourOrBlackAndDashedPerStyle) {
    std::set<int> counts;
    for (int nStyle = 0; nStyle < 6; ++nStyle) {
        CImageDC colour(400, 60), dashed(400, 60);
        DrawLine(colour, nStyle, 0);
        DrawLine(dashed, nStyle, 1);
        EXPECT_EQ(CountPixels(colour, 0) + CountPixels(dashed, 0), CountPainted(dashed))
            << "black on white only";
        counts.insert(CountPainted(dashed));
    }
    EXPECT_THAT(counts, SizeIs(6)) << "every style covers another part of the line";
}

TEST(Stippled, StyleMinusOneIsTheSurfacesOwnPen) {
    for (const int bStippled : {0, 1}) {
        CLoggedSurface log;
        CPen pen(PS_SOLID, 5, RGB(9, 9, 9));
        log.dc.SelectObject(&pen);
        DrawLine(log.dc, -1, bStippled);
        LegendRectangleStippledEx(&log.dc, 10, 20, 50, 31, -1, nullptr, bStippled);
        EXPECT_THAT(log.lines, ElementsAre("Polyline 0,10 300,10 390,50 (pen 090909 width 5)",
                                           "Polyline 10,25 50,25 (pen 090909 width 5)"));
    }
}

TEST(Stippled, BlackAndWhitePrintersGetDashesUnasked) {
    CLoggedSurface mono(CLoggedSurface::Printer(2)), colour(CLoggedSurface::Printer(3)), asked;
    DrawLine(mono.dc, 1, 0);
    DrawLine(colour.dc, 1, 0);
    DrawLine(asked.dc, 1, 1);
    EXPECT_EQ(mono.lines, asked.lines);
    EXPECT_THAT(mono.lines, AllOf(SizeIs(4), Each(HasSubstr("pen 000000"))));
    EXPECT_THAT(colour.lines, SizeIs(1));
}

TEST(Stippled, BothSurfacesGetTheSameAndKeepTheirOwnObjects) {
    for (const int bStippled : {0, 1}) {
        CLoggedSurface log;
        CPen pen(PS_SOLID, 1, 0), otherPen(PS_SOLID, 2, 0);
        const auto draw = [&](CMetaFileDC& dc) {
            log.dc.SelectObject(&pen);
            dc.SelectObject(&otherPen);
            DrawLine(log.dc, 2, bStippled, &dc);
            LegendRectangleStippledEx(&log.dc, 0, 0, 100, 10, 2, &dc, bStippled);
            EXPECT_EQ(log.dc.SelectObject(&otherPen), &pen);
            EXPECT_EQ(dc.SelectObject(&pen), &otherPen);
        };
        const auto nMarks = std::ranges::count_if(Recorded(draw).lines, [](const std::string& strLine) {
            return strLine.starts_with("Poly") || strLine.starts_with("LineTo") ||
                   strLine.starts_with("Rect");
        });
        EXPECT_EQ(static_cast<std::size_t>(nMarks), log.lines.size());
    }
}

TEST(CutIntoDashes, FollowsThePatternAlongALineAndRoundItsCorners) {
    const Points solid{{0, 0}, {500, 0}, {0, 0}}, endless{{INT_MIN, 0}, {INT_MAX, 0}, {INT_MIN, INT_MAX}};
    const struct {
        Points line;
        std::vector<double> pattern;
        std::vector<Points> dashes;
    } cases[] = {
        {{{0, 0}, {100, 0}}, {30, 10}, {{{0, 0}, {30, 0}}, {{40, 0}, {70, 0}}, {{80, 0}, {100, 0}}}},
        {{{0, 0}, {0, -60}},
         {20, 5, 10, 5},
         {{{0, 0}, {0, -20}}, {{0, -25}, {0, -35}}, {{0, -40}, {0, -60}}}},
        {{{0, 0}, {20, 0}, {20, 20}, {40, 20}},
         {30, 20},
         {{{0, 0}, {20, 0}, {20, 10}}, {{30, 20}, {40, 20}}}},
        {{}, {30, 10}, {}},
        {solid, {}, {solid}},
        {endless, {30, 10}, {endless}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Dashes(c.line, c.pattern), c.dashes);
    }
}
