
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>
#include <vector>

#include "tessara/platform/gdi/PrinterDC.h"
#include "tessara/platform/gdi/SvgDC.h"
#include "tessara/platform/gdi/TextMeasure.h"
#include "tests/cli/Folder.h"
#include "tests/gdi/Surfaces.h"

using tessara::MakeLogFont;

namespace {

/// The pixels of one byte in a face.
QImage Glyph(const char* pszFace, char ch) {
    CImageDC dc(60, 60);
    SelectFont(dc, -40, pszFace);
    dc.SetBkMode(TRANSPARENT);
    dc.TextOut(5, 5, &ch, 1);
    return ImageOf(dc);
}

/// Texts in faces of which some were never used before.
QImage DrawWithFaces(int nFirst) {
    CImageDC dc(120, 60);
    for (int i = nFirst; i < nFirst + 20; ++i) {
        const std::string strFace = "Face " + std::to_string(i);
        SelectFont(dc, 20, i % 3 == 0 ? "Symbol" : i % 3 == 1 ? "Times New Roman" : strFace.c_str());
        dc.TextOut(i % 7, i % 11, "Volume fraction", 15);
        EXPECT_EQ(dc.GetTextExtent("f", 1).cy, 20);
    }
    return ImageOf(dc);
}

} // namespace

TEST(Text, EveryGreekLetterIsDrawnAsItself) {
    /// Greek letters that look like the Latin letter of the same byte.
    constexpr std::string_view alike = "ABEHIKMNOTZo";
    std::vector<QImage> seen{Glyph("Symbol", ' ')};
    for (const char ch : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz")) {
        const QImage greek = Glyph("Symbol", ch);
        EXPECT_EQ(greek == Glyph("Times New Roman", ch), alike.find(ch) != alike.npos) << ch;
        EXPECT_THAT(seen, testing::Not(testing::Contains(greek))) << ch << " looks like another one";
        seen.push_back(greek);
    }
}

TEST(Text, IsMeasuredTheSameOnEverySurface) {
    const CFolder folder;
    CImageDC coarse(10, 10), fine(10, 10, 600);
    CSvgDC svg(folder.Path("b").c_str(), 100, 100);
    CPrinterDC printer("Title", folder.Path("c").c_str());
    CMetaFileDC picture;
    picture.Create();
    fine.SetMapMode(MM_LOENGLISH);
    for (const auto& [nHeight, pszFace] : {std::pair{88, "Times New Roman"}, {-7, "Symbol"}}) {
        const CSize expected = tessara::MeasureText(MakeLogFont(nHeight, pszFace), "Volume fraction");
        for (CDC* pDC : std::initializer_list<CDC*>{&coarse, &fine, &svg, &printer, &picture}) {
            SelectFont(*pDC, nHeight, pszFace);
            EXPECT_EQ(pDC->GetTextExtent("Volume fraction", 15), expected);
        }
    }
}

TEST(Text, APositiveHeightIsTheCellsAndANegativeOneThatOfTheCharactersInIt) {
    for (const char* pszFace : {"Times New Roman", "Symbol"}) {
        EXPECT_EQ(tessara::MeasureText(MakeLogFont(1000, pszFace), "x").cy, 1000);
        const CSize characters = tessara::MeasureText(MakeLogFont(-1000, pszFace), "x");
        EXPECT_NEAR(characters.cy, 1107, 30);
        const CSize cell = tessara::MeasureText(MakeLogFont(characters.cy, pszFace), "x");
        EXPECT_NEAR(characters.cx, cell.cx, 1) << "the same font, asked for in two ways";
    }
}

TEST(Text, TheFontsMeasuresAreThoseOfItsTexts) {
    CImageDC dc(10, 10, 600);
    for (const auto& [nHeight, pszFace] : {std::pair{880, "Times New Roman"}, {-700, "Liberation Sans"}}) {
        SelectFont(dc, nHeight, pszFace);
        TEXTMETRIC metrics;
        ASSERT_TRUE(dc.GetTextMetrics(&metrics));
        EXPECT_EQ(metrics.tmHeight, dc.GetTextExtent("x", 1).cy);
        EXPECT_EQ(metrics.tmAscent + metrics.tmDescent, metrics.tmHeight);
        EXPECT_EQ(metrics.tmHeight - metrics.tmInternalLeading, nHeight < 0 ? -nHeight : 795);
        EXPECT_GT(metrics.tmAveCharWidth, dc.GetTextExtent("i", 1).cx);
        EXPECT_LT(metrics.tmAveCharWidth, dc.GetTextExtent("W", 1).cx);
        EXPECT_GE(metrics.tmMaxCharWidth, dc.GetTextExtent("\xE2\x80\x94", 3).cx)
            << "a dash as wide as the em";
    }
}

TEST(Surface, ItsClipBoxIsTheDeviceUnlessNothingBoundsIt) {
    CImageDC image(300, 200);
    CRect box;
    EXPECT_EQ(image.GetClipBox(&box), SIMPLEREGION);
    EXPECT_EQ(box, CRect(0, 0, 300, 200));
    CDC none;
    CMetaFileDC picture;
    picture.Create();
    for (const CDC* const pDC : {&none, static_cast<CDC*>(&picture)}) {
        box = CRect(1, 2, 3, 4);
        EXPECT_EQ(pDC->GetClipBox(&box), 0);
        EXPECT_TRUE(box.IsRectEmpty());
    }
}

TEST(Text, StandsInItsCellWhichAnOpaqueBackgroundFills) {
    for (const int nMode : {OPAQUE, TRANSPARENT}) {
        CImageDC dc(100, 60);
        SelectFont(dc, 40, "Times New Roman");
        dc.SetBkMode(nMode);
        dc.SetBkColor(RGB(0, 255, 0));
        dc.SetTextColor(RGB(255, 0, 0));
        dc.TextOut(20, 10, "HIJ", 3);
        EXPECT_GT(CountPixels(dc, RGB(255, 0, 0)), 20);
        const CSize size = dc.GetTextExtent("HIJ", 3);
        EXPECT_EQ(CountPainted(dc) >= size.cx * size.cy, nMode == OPAQUE);
        CBrush white(RGB(255, 255, 255));
        const RECT cell{20, 10, 20 + size.cx, 10 + size.cy};
        dc.FillRect(&cell, &white);
        EXPECT_LE(CountPainted(dc), 20) << "outside its cell";
    }
}

TEST(Text, ThreadsDrawAtOnceWhatOneThreadDraws) {
    constexpr int THREADS = 4;
    constexpr int PICTURES = 10;
    std::vector<QImage> expected;
    std::array<std::vector<QImage>, THREADS> drawn;
    for (int i = 0; i < PICTURES; ++i) {
        expected.push_back(DrawWithFaces(20 * i));
    }
    std::vector<std::thread> threads;
    for (int nThread = 0; nThread < THREADS; ++nThread) {
        threads.emplace_back([&drawn, nThread] {
            for (int i = 0; i < PICTURES; ++i) {
                DrawWithFaces(1000 * (nThread + 1) + 20 * i); // faces of this thread alone
                drawn[static_cast<std::size_t>(nThread)].push_back(DrawWithFaces(20 * i));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(drawn, testing::Each(testing::ElementsAreArray(expected)));
}
