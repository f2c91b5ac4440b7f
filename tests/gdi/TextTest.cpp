#include <cmath>
#include <map>
#include <numeric>

#include <gtest/gtest.h>

#include "tessara/platform/gdi/MetaFileDC.h"
#include "tessara/platform/gdi/PdfDC.h"
#include "tessara/platform/gdi/PrinterDC.h"
#include "tessara/platform/gdi/SvgDC.h"
#include "tessara/platform/gdi/TextMeasure.h"
#include "tests/cli/Folder.h"
#include "tests/gdi/Surfaces.h"
#include "tests/support/LoggedSurface.h"

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

int Width(const LOGFONT& font, std::string_view strText) {
    return tessara::MeasureText(font, strText).cx;
}

constexpr std::string_view LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

} // namespace

TEST(Text, EveryGreekLetterIsDrawnAsItself) {
    /// Greek letters that look like the Latin letter of the same byte.
    constexpr std::string_view alike = "ABEHIKMNOTXZo";
    const QImage blank = Glyph("Symbol", ' ');
    std::map<std::string, char> seen;
    for (const char ch : LETTERS) {
        const QImage greek = Glyph("Symbol", ch);
        EXPECT_NE(greek, blank) << ch;
        EXPECT_EQ(greek == Glyph("Times New Roman", ch), ch != 'X' && alike.find(ch) != alike.npos) << ch;
        const std::string strPixels(reinterpret_cast<const char*>(greek.constBits()),
                                    static_cast<std::size_t>(greek.sizeInBytes()));
        const auto [same, bNew] = seen.emplace(strPixels, ch);
        EXPECT_TRUE(bNew) << ch << " looks like " << same->second;
    }
}

TEST(Text, IsMeasuredTheSameOnEverySurface) {
    const CFolder folder;
    CImageDC coarse(10, 10), fine(10, 10, 600);
    CPdfDC pdf(folder.Path("a").c_str(), 100, 100);
    CSvgDC svg(folder.Path("b").c_str(), 100, 100);
    CPrinterDC printer("Title", folder.Path("c").c_str());
    CMetaFileDC picture;
    picture.Create();
    CDC none;
    tessara::CLoggedSurface log;
    fine.SetMapMode(MM_LOENGLISH);
    for (const auto& [nHeight, pszFace] :
         {std::pair{88, "Times New Roman"}, {-88, "Times New Roman"}, {-7, "Symbol"}}) {
        std::vector<CSize> sizes;
        for (CDC* pDC :
             std::initializer_list<CDC*>{&coarse, &fine, &pdf, &svg, &printer, &picture, &none, &log.dc}) {
            SelectFont(*pDC, nHeight, pszFace);
            sizes.push_back(pDC->GetTextExtent("Volume fraction", 15));
            EXPECT_EQ(sizes.back(), sizes.front());
        }
        EXPECT_GT(sizes.front().cx, std::abs(nHeight));
    }
}

TEST(Text, WidthsAreAdditive) {
    for (const char* pszFace : {"Times New Roman", "Symbol", "MS Sans Serif"}) {
        const LOGFONT font = MakeLogFont(-100000, pszFace);
        int nSum = 0;
        for (const char ch : LETTERS) {
            nSum += Width(font, {&ch, 1});
        }
        EXPECT_NEAR(Width(font, LETTERS), nSum, 52) << pszFace << ": no kerning, no hinting, no ligatures";
        EXPECT_EQ(Width(font, ""), 0);
    }
}

TEST(Text, PositiveHeightsAreThoseOfLinesNegativeOnesOfCharacters) {
    const LOGFONT line = MakeLogFont(1000, "Times New Roman");
    const LOGFONT em = MakeLogFont(-1000, "Times New Roman");
    EXPECT_EQ(tessara::MeasureText(line, "x").cy, 1000);
    EXPECT_EQ(tessara::MeasureEm(em), 1000);
    EXPECT_GT(tessara::MeasureText(em, "x").cy, 1000);
    const LONG nEm = tessara::MeasureEm(line);
    EXPECT_NEAR(tessara::MeasureText(MakeLogFont(-nEm, "Times New Roman"), "x").cy, 1000, 1);
    EXPECT_NEAR(Width(MakeLogFont(-nEm, "Times New Roman"), LETTERS), Width(line, LETTERS), 30);
    EXPECT_EQ(tessara::MeasureText(MakeLogFont(0, "Times New Roman"), "x").cy, 16);
}

TEST(Text, AdvancesSumUpToTheWidth) {
    for (const LONG nHeight : {1, 9, 88, -88, -4000}) {
        for (const char* pszFace : {"Times New Roman", "Symbol"}) {
            const LOGFONT font = MakeLogFont(nHeight, pszFace);
            const std::vector<LONG> advances = tessara::MeasureAdvances(font, LETTERS);
            ASSERT_EQ(advances.size(), LETTERS.size());
            EXPECT_NEAR(std::accumulate(advances.begin(), advances.end(), 0), Width(font, LETTERS), 1);
        }
    }
}

TEST(Text, HugeHeightsAreHeld) {
    for (const LONG nHeight : {INT32_MIN, INT32_MAX}) {
        const SIZE size = tessara::MeasureText(MakeLogFont(nHeight, "Times New Roman"), LETTERS);
        EXPECT_GT(size.cx, 0);
        EXPECT_LE(size.cx, tessara::MAX_COORDINATE);
        CImageDC dc(20, 20);
        SelectFont(dc, nHeight, "Times New Roman");
        dc.TextOut(0, 0, "x", 1);
    }
}

TEST(Text, StandsBelowAndRightOfItsPointInItsColour) {
    for (const bool bSmooth : {false, true}) {
        CImageDC dc(100, 60);
        dc.SetSmooth(bSmooth);
        SelectFont(dc, 40, "Times New Roman");
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(RGB(255, 0, 0));
        dc.TextOut(20, 10, "HIJ", 3);
        const CSize size = dc.GetTextExtent("HIJ", 3);
        EXPECT_GT(CountPixels(dc, RGB(255, 0, 0)), 20);
        const int nPainted = CountPainted(dc);
        CBrush white(RGB(255, 255, 255));
        const RECT cell{20, 10, 20 + size.cx, 10 + size.cy};
        dc.FillRect(&cell, &white);
        EXPECT_LE(CountPainted(dc), nPainted / 50) << "outside its cell";
    }
}

TEST(Text, OpaqueBackgroundFillsItsCellTransparentNone) {
    for (const int nMode : {OPAQUE, TRANSPARENT}) {
        CImageDC dc(100, 60);
        SelectFont(dc, 40, "Times New Roman");
        dc.SetBkMode(nMode);
        dc.SetBkColor(RGB(0, 255, 0));
        dc.TextOut(20, 10, "  ", 2);
        const CSize size = dc.GetTextExtent("  ", 2);
        EXPECT_EQ(CountPixels(dc, RGB(0, 255, 0)), nMode == OPAQUE ? size.cx * size.cy : 0);
        EXPECT_EQ(CountPainted(dc), nMode == OPAQUE ? size.cx * size.cy : 0);
    }
}
