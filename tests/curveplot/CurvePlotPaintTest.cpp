#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <utility>

#include "tessara/platform/gdi/ImageDC.h"
#include "tests/curveplot/Plots.h"

using tessara::CTestPlot;
using tessara::MakeLines;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr const char* FRAME_PEN = "(pen 000000 width 32, brush FFFFFF)";
constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

TEST(CurvePlotPaint, TheLegendTakesRoomAndAllThatIsNotWantedIsLeftOut) {
    const auto pLines = MakeLines(3, 5);
    CTestPlot plot;
    plot = pLines.get();
    plot.SetSlideName("T = 300 K");
    const tessara::CPlotLog withLegend(plot);
    EXPECT_THAT(withLegend.LinesWith(FRAME_PEN), ElementsAre(HasSubstr("Rectangle 360,344 3480,3336"),
                                                             HasSubstr("Rectangle 3656,344 4856,992")));
    EXPECT_THAT(withLegend.LinesWith("Text 3736,"), SizeIs(3));
    plot.m_bShowLegend = plot.m_bShowCaption = 0;
    const tessara::CPlotLog without(plot);
    EXPECT_THAT(without.LinesWith(FRAME_PEN), ElementsAre(HasSubstr("Rectangle 360,344 4760,3336")));
    EXPECT_THAT(without.LinesWith("weight 700"), IsEmpty()) << "neither slide name nor caption";
}

TEST(CurvePlotPaint, PartsHaveTheColoursOfTheirIndicesAndTheLegendOneRowAColour) {
    double values[] = {0, 1, 2, 3, 4, 5};
    CCurvePartInfo parts[] = {{0, 2, 0}, {2, 2, 2}, {4, 2, 2}};
    CMultipartCurve curve(6, values, values, 3, parts, 2);
    CTestPlot plot;
    plot = &curve;
    EXPECT_EQ(plot.Value(0, 1.5), 1.5);
    const tessara::CPlotLog surface(plot);
    EXPECT_THAT(surface.LinesWith("(pen 0000FF width 12)"), SizeIs(1));
    EXPECT_THAT(surface.LinesWith("(pen 00FF00 width 12)"), SizeIs(2));
    EXPECT_THAT(surface.LinesWith("Text 3736,"), SizeIs(2));
    EXPECT_EQ(plot.Value(0, 1.5), 1.5);
}

TEST(CurvePlotPaint, TheOrdinateTitleNamesThePowerOfTenOfItsLabelsInItsOwnEncoding) {
    double values[] = {0, 7300};
    CTestPlot plot;
    plot.SetOutputData(values, values, 2);
    plot.SetCurveSymbol("\xCF\x87~N");
    const tessara::CPlotLog surface(plot);
    EXPECT_THAT(surface.LinesWith("\"\\xC3\\x9710\""), SizeIs(1));
    EXPECT_THAT(surface.LinesWith("\"-3\""), SizeIs(1));
}

TEST(CurvePlotPaint, CurvesHaveExactlyTheirColoursOnAScreenLeftAsItWas) {
    const auto pLines = MakeLines(6, 50);
    CTestPlot plot;
    plot = pLines.get();
    for (const auto& [nScale, bMonochrome] : {std::pair(1, 0), std::pair(2, 0), std::pair(1, 1)}) {
        plot.m_bMonochrome = bMonochrome;
        CImageDC image(800 * nScale, 575 * nScale);
        image.SetBkMode(TRANSPARENT);
        const tessara::CDrawState before = image.GetState();
        plot.Paint(&image, image.GetClientRect(), nullptr);
        EXPECT_EQ(image.GetState().pPen, before.pPen);
        EXPECT_EQ(image.GetState().pBrush, before.pBrush);
        EXPECT_EQ(image.GetState().pFont, before.pFont);
        EXPECT_EQ(image.GetMapMode(), MM_TEXT);
        EXPECT_TRUE(image.GetCurvePalette().empty());
        EXPECT_EQ(image.RestoreDC(-1), FALSE) << "nothing is left saved";
        std::array<int, 6> counts{};
        const CRect area = plot.m_rcPlotDevice;
        for (int y = area.top; y < area.bottom - 1; ++y) {
            for (int x = area.left; x < area.right - 1; ++x) {
                const COLORREF color = image.GetPixel(x, y);
                const int nIndex = plot.CurveFromColor(color);
                const bool bGrey = color % 0x10101 == 0;
                ASSERT_TRUE(nIndex >= 0 || color == 0 || color == 0xFFFFFF || (bMonochrome && bGrey))
                    << x << "," << y << " " << color;
                if (nIndex >= 0) {
                    ++counts[static_cast<std::size_t>(nIndex)];
                }
            }
        }
        if (bMonochrome) {
            EXPECT_THAT(counts, Each(0));
        } else {
            EXPECT_THAT(counts, Each(testing::Gt(200 * nScale)));
        }
    }
}

TEST(CurvePlotPaint, TextsWipeNothingOutOnAnImageOfAnyGround) {
    constexpr COLORREF GREY = RGB(200, 200, 200);
    double values[] = {0, 0.0073};
    CTestPlot plot;
    plot.SetNames("A caption that reaches over the title of the ordinate, with its power of ten",
                  "A long title of the ordinate, without a unit", "T", "T~N");
    plot.SetOutputData(values, values, 2);
    for (const auto& [nWidth, nHeight] : {std::pair(400, 288), {1600, 1150}}) {
        CImageDC bare(nWidth, nHeight), captioned(nWidth, nHeight);
        CBrush ground(GREY);
        for (CImageDC* const pImage : {&bare, &captioned}) {
            const RECT client = pImage->GetClientRect();
            pImage->FillRect(&client, &ground);
            plot.m_bShowCaption = pImage == &captioned;
            plot.Paint(pImage, client, nullptr);
        }
        int nWritten = 0;
        for (int y = 0; y < plot.m_rcPlotDevice.top - nHeight / 80; ++y) { // above the frame
            for (int x = 0; x < nWidth; ++x) {
                const int nBefore = GetRValue(bare.GetPixel(x, y));
                const int nAfter = GetRValue(captioned.GetPixel(x, y));
                ASSERT_LE(nBefore, GetRValue(GREY)) << x << "," << y;
                ASSERT_LE(nAfter, nBefore) << x << "," << y;
                nWritten += nAfter < nBefore;
            }
        }
        EXPECT_GT(nWritten, nWidth) << "the caption is there";
    }
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
    EXPECT_EQ(CTestPlot().Paint(&image, {0, 0, 0, 0}, nullptr), 1);
}

} // namespace
