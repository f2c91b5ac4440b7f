#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "tessara/platform/gdi/ImageDC.h"
#include "tests/curveplot/Plots.h"

using tessara::CLoggedSurface;
using tessara::CTestPlot;
using tessara::MakeLines;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

constexpr const char* FRAME_PEN = "(pen 000000 width 32, brush FFFFFF)";
constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

TEST(CurvePlotPaint, TheLegendTakesRoomAndItsBoxOneRowAFunction) {
    const auto pLines = MakeLines(3, 5);
    CTestPlot plot;
    plot = pLines.get();
    CLoggedSurface withLegend;
    PaintLogged(plot, withLegend);
    EXPECT_THAT(withLegend.LinesWith("Rectangle"),
                Contains(std::string("Rectangle 360,344 3480,3336 ") + FRAME_PEN));
    EXPECT_THAT(withLegend.LinesWith("Rectangle"),
                Contains(std::string("Rectangle 3656,344 4856,992 ") + FRAME_PEN));
    EXPECT_THAT(withLegend.LinesWith("Text 3736,"), SizeIs(3));

    plot.m_bShowLegend = 0;
    CLoggedSurface without;
    PaintLogged(plot, without);
    EXPECT_THAT(without.LinesWith(FRAME_PEN), testing::ElementsAre(HasSubstr("Rectangle 360,344 4760,3336")));
}

TEST(CurvePlotPaint, ASingleCurveHasNoLegendRowsBesideANarrowPlot) {
    const auto pLines = MakeLines(1, 5);
    CTestPlot plot;
    plot = pLines.get();
    CLoggedSurface surface;
    PaintLogged(plot, surface);
    EXPECT_THAT(surface.LinesWith(FRAME_PEN), testing::ElementsAre(HasSubstr("Rectangle 360,344 3480,3336")));
}

TEST(CurvePlotPaint, PartsHaveTheColoursOfTheirIndicesAndTheLegendOneRowAColour) {
    CMultipartCurve curve;
    CCurve piece(2);
    for (const int nColor : {0, 2, 2}) {
        for (int i = 0; i < 2; ++i) {
            piece.m_pX[i] = curve.m_nPoints + i;
            piece.m_pY[i] = i;
        }
        curve.AddCurve(&piece, nColor);
    }
    curve.SetNumColors(2);
    CTestPlot plot;
    plot = &curve;
    CLoggedSurface surface;
    PaintLogged(plot, surface);
    EXPECT_THAT(surface.LinesWith("(pen 0000FF width 12)"), SizeIs(1));
    EXPECT_THAT(surface.LinesWith("(pen 00FF00 width 12)"), SizeIs(2));
    EXPECT_THAT(surface.LinesWith("Text 3736,"), SizeIs(2));
}

TEST(CurvePlotPaint, TheFirstVerticalGridLineStandsOnTheFrame) {
    const auto pLines = MakeLines(1, 5);
    CTestPlot plot;
    plot = pLines.get();
    CLoggedSurface surface;
    PaintLogged(plot, surface);
    EXPECT_THAT(surface.lines, Contains(std::string("Polyline 360,344 360,3408 (pen 000000 width 8)")));
    EXPECT_THAT(surface.lines, Contains(StartsWith("Polyline 1152,344 1152,3408 ")));
    EXPECT_THAT(surface.lines, Contains(StartsWith("Polyline 300,3312 3456,3312 ")));
}

TEST(CurvePlotPaint, TheOrdinateTitleNamesThePowerOfTenOfItsLabels) {
    struct {
        double dMax;
        const char* pszSymbol;
        std::vector<std::string> texts;
    } const cases[] = {{5, "y~N", {}},
                       {1, "y~N", {"\"\\xD710\""}},
                       {7300, "y~N", {"\"\\xD710\"", "\"-3\""}},
                       {1, "\xCF\x87~N", {"\"\\xC3\\x9710\""}}}; // UTF-8 beside UTF-8
    for (const auto& given : cases) {
        std::vector<double> x{0, 1};
        std::vector<double> y{0, given.dMax};
        CTestPlot plot;
        plot.SetOutputData(x.data(), y.data(), 2);
        plot.SetCurveSymbol(given.pszSymbol);
        CLoggedSurface surface;
        PaintLogged(plot, surface);
        for (const std::string& strText : given.texts) {
            EXPECT_THAT(surface.LinesWith(strText), testing::Not(IsEmpty())) << given.dMax;
        }
        EXPECT_EQ(surface.LinesWith("10\" (Times New Roman 166").empty(), given.texts.empty());
    }
}

TEST(CurvePlotPaint, SlideNameAndCaptionAndDiagonalAreDrawnWhenWanted) {
    const auto pLines = MakeLines(1, 5);
    CTestPlot plot;
    plot = pLines.get();
    plot.SetCurveName("Caption");
    plot.SetSlideName("T = 300 K");
    plot.DisplayDiagonal(1);
    CLoggedSurface all;
    PaintLogged(plot, all);
    EXPECT_THAT(all.LinesWith("\"T = 300 K\""), SizeIs(1));
    EXPECT_THAT(all.LinesWith("\"Caption\" (Times New Roman 150 weight 700 italic)"), SizeIs(1));
    EXPECT_THAT(all.LinesWith("Polyline 360,3336 3480,344"), SizeIs(1));
    plot.m_bShowLegend = 0;
    plot.m_bShowCaption = 0;
    plot.DisplayDiagonal(0);
    CLoggedSurface none;
    PaintLogged(plot, none);
    EXPECT_THAT(none.LinesWith("\"T = 300 K\""), IsEmpty());
    EXPECT_THAT(none.LinesWith("Caption"), IsEmpty());
    EXPECT_THAT(none.LinesWith("Polyline 360,3336"), IsEmpty());
}

TEST(CurvePlotPaint, SymbolsAreSquaresThenCirclesAndFurtherColumnsNothing) {
    const auto pSymbols = MakeLines(3, 2);
    CTestPlot plot;
    plot.SetSymbolsCurve(pSymbols.get());
    CLoggedSurface surface;
    PaintLogged(plot, surface);
    EXPECT_THAT(surface.LinesWith("brush 000000)"), SizeIs(4));
    EXPECT_THAT(surface.LinesWith("Ellipse"), SizeIs(2));
}

TEST(CurvePlotPaint, MonochromeDrawsNothingButBlack) {
    const auto pLines = MakeLines(6, 50);
    CTestPlot plot;
    plot = pLines.get();
    plot.m_bMonochrome = 1;
    CImageDC image(800, 575);
    plot.Paint(&image, image.GetClientRect(), nullptr);
    for (int y = 0; y < 575; ++y) {
        for (int x = 0; x < 800; ++x) {
            const COLORREF color = image.GetPixel(x, y);
            ASSERT_TRUE(GetRValue(color) == GetGValue(color) && GetGValue(color) == GetBValue(color));
        }
    }
}

TEST(CurvePlotPaint, CurvesHaveExactlyTheirColoursOnScreen) {
    const auto pLines = MakeLines(6, 50);
    CTestPlot plot;
    plot = pLines.get();
    for (const int nScale : {1, 2}) {
        CImageDC image(800 * nScale, 575 * nScale);
        image.SetBkMode(TRANSPARENT);
        plot.Paint(&image, image.GetClientRect(), nullptr);
        std::array<int, 6> counts{};
        const CRect area = plot.m_rcPlotDevice;
        for (int y = area.top; y < area.bottom - 1; ++y) {
            for (int x = area.left; x < area.right - 1; ++x) {
                const COLORREF color = image.GetPixel(x, y);
                const int nIndex = plot.CurveFromColor(color);
                ASSERT_TRUE(nIndex >= 0 || color == 0 || color == 0xFFFFFF) << x << "," << y << " " << color;
                if (nIndex >= 0) {
                    ++counts[static_cast<std::size_t>(nIndex)];
                }
            }
        }
        EXPECT_THAT(counts, testing::Each(testing::Gt(200 * nScale)));
    }
}

TEST(CurvePlotPaint, LeavesTheSurfaceAsItWas) {
    const auto pLines = MakeLines(2, 5);
    CTestPlot plot;
    plot = pLines.get();
    CImageDC image(300, 200);
    const tessara::CDrawState before = image.GetState();
    EXPECT_EQ(plot.Paint(&image, image.GetClientRect(), nullptr), 1);
    EXPECT_EQ(image.GetMapMode(), MM_TEXT);
    EXPECT_EQ(image.GetState().pPen, before.pPen);
    EXPECT_EQ(image.GetState().pBrush, before.pBrush);
    EXPECT_EQ(image.GetState().pFont, before.pFont);
    EXPECT_TRUE(image.GetCurvePalette().empty());
    EXPECT_EQ(image.RestoreDC(-1), FALSE); // nothing left saved
}

TEST(CurvePlotPaint, RemembersThePlotAreaOfTheScreenButNotOfThePrinter) {
    const auto pLines = MakeLines(1, 5);
    CTestPlot plot;
    plot = pLines.get();
    CLoggedSurface screen;
    plot.Paint(&screen.dc, {0, 0, 800, 575}, nullptr);
    EXPECT_EQ(static_cast<RECT>(plot.m_rcPlotDevice), (RECT{61, 59, 541, 519}));
    CLoggedSurface printer(CLoggedSurface::Printer(1 << 24));
    plot.Paint(&printer.dc, {0, 0, 5000, 4000}, nullptr);
    EXPECT_EQ(static_cast<RECT>(plot.m_rcPlotDevice), (RECT{61, 59, 541, 519}));
}

TEST(CurvePlotPaint, AnyDataIsPaintedAndEnds) {
    const double values[] = {0, 1, NONE, INFINITE, -INFINITE, 1e308, -1e308, 5e-324, 1e-300, 3};
    std::mt19937 random(5);
    CImageDC image(400, 288);
    for (int nRound = 0; nRound < 400; ++nRound) {
        const int nPoints = static_cast<int>(random() % 6);
        CMultiCurve curve(2);
        curve.Allocate(nPoints);
        for (int i = 0; i < nPoints; ++i) {
            curve.m_pX[i] = values[random() % std::size(values)];
            curve.m_ppY[0][i] = values[random() % std::size(values)];
            curve.m_ppY[1][i] = values[random() % std::size(values)];
        }
        CTestPlot plot;
        plot = &curve;
        plot.SetSymbolsCurve(&curve);
        plot.m_bMonochrome = nRound % 2;
        plot.FitScale(nRound % 4);
        EXPECT_EQ(plot.Paint(&image, image.GetClientRect(), nullptr), 1);
    }
    CTestPlot empty;
    EXPECT_EQ(empty.Paint(&image, {0, 0, 0, 0}, nullptr), 1);
}

} // namespace
