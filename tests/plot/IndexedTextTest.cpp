#include "tessara/plot/IndexedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <utility>

#include "tessara/platform/gdi/ImageDC.h"
#include "tests/support/LoggedSurface.h"

using tessara::CLoggedSurface;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What a text draws on a surface, one line a run, on demand without the abscissae.
std::vector<std::string> Draw(const std::string& strText, bool bOrdinatesAlone = false) {
    CLoggedSurface surface;
    IndexedTextOut(&surface.dc, 1000, 2000, strText.c_str(), 100, nullptr);
    for (std::string& strLine : surface.lines) {
        strLine.erase(0, bOrdinatesAlone ? strLine.find(',') + 1 : 0);
    }
    return surface.lines;
}

RECT Measure(const std::string& strText, const tessara::CDeviceCaps& caps = {}) {
    CLoggedSurface surface(caps);
    RECT rect{1, 1, 1, 1};
    GetIndexedTextExtent(&surface.dc, strText.c_str(), 100, &rect);
    return rect;
}

int PlainWidth(const std::string& strText, LONG nHeight, LONG nWeight = 0) {
    CLoggedSurface surface;
    LOGFONT logFont = tessara::MakeLogFont(nHeight, "Times New Roman");
    logFont.lfWeight = nWeight;
    CFont font;
    font.CreateFontIndirect(&logFont);
    surface.dc.SelectObject(&font);
    return surface.dc.GetTextExtent(strText.c_str()).cx;
}

TEST(IndexedText, EachControlStylesTheRunBeforeIt) {
    EXPECT_THAT(Draw("a~Nb~Hc~Ld~Ge~jf~gg~bh~ii", true),
                ElementsAre("2000 \"a\" (Times New Roman 100)", "1990 \"b\" (Times New Roman 75)",
                            "2050 \"c\" (Times New Roman 75)", "2000 \"d\" (Symbol 100)",
                            "1990 \"e\" (Symbol 75)", "2050 \"f\" (Symbol 75)",
                            "2000 \"g\" (Times New Roman 100 weight 600)",
                            "2000 \"h\" (Times New Roman 100 italic)", "2000 \"i\" (Times New Roman 100)"));
}

TEST(IndexedText, AStackPutsTwoWholeCharactersAtTheSamePlaceBehindTheText) {
    const int nBase = 1000 + PlainWidth("x", 100) + 1;
    const int nEnd = nBase + std::max(PlainWidth("\xCE\xB1", 75), PlainWidth("b", 75)) + 1;
    EXPECT_THAT(Draw("x\xCE\xB1"
                     "b~By"),
                ElementsAre("Text 1000,2000 \"x\" (Times New Roman 100)",
                            CLoggedSurface::At(nBase, 2050, "\"\\xCE\\xB1\" (Times New Roman 75)"),
                            CLoggedSurface::At(nBase, 1990, "\"b\" (Times New Roman 75)"),
                            CLoggedSurface::At(nEnd, 2000, "\"y\" (Times New Roman 100)")));
    EXPECT_EQ(Draw("x~B").size(), 1U);
    EXPECT_THAT(Draw("~B"), IsEmpty());
}

TEST(IndexedText, UnknownControlsTakeTheNextCharacterLiterallyAndLongRunsEndBetweenCharacters) {
    const std::string strLong(126, 'x');
    const std::pair<std::string, std::string> cases[] = {{"a~~b", "ab"}, {"a~~~b", "a~b"},
                                                         {"~Xy", "y"},   {"a~\xC3\xA9z", "az"},
                                                         {"a~", "a"},    {strLong + "\xC3\xA9", strLong}};
    for (const auto& [strText, strShown] : cases) {
        EXPECT_THAT(Draw(strText, true), ElementsAre("2000 \"" + strShown + "\" (Times New Roman 100)"));
    }
}

TEST(IndexedText, MeasuresAdvancesAndTheHeightOfNormalRunsAndPrintedOnesTenPerCentMoreButTheLast) {
    EXPECT_EQ(Measure("f(x)~N"), (RECT{0, 0, PlainWidth("f(x)", 100), 100}));
    EXPECT_EQ(Measure("Function"), (RECT{0, 0, PlainWidth("Function", 100), 0}));
    EXPECT_EQ(Measure("Spinodal~b"), (RECT{0, 0, PlainWidth("Spinodal", 100, FW_SEMIBOLD), 0}));
    EXPECT_EQ(Measure("").right, 0);
    const int nPrinted = Measure("10~N5~Hend", CLoggedSurface::Printer(1 << 24)).right;
    EXPECT_EQ(nPrinted, static_cast<int>(PlainWidth("10", 100) * 1.1) +
                            static_cast<int>(PlainWidth("5", 75) * 1.1) + PlainWidth("end", 100));
}

TEST(IndexedText, AHundredThousandTextsOfAnyBytesAreMeasuredAndDrawn) {
    std::mt19937 random(3);
    CImageDC image(200, 60);
    const std::string strFavourites = "~~~~NHLGjgbiBxX\xC3\xA9\xD7";
    for (int i = 0; i < 100000; ++i) {
        std::string strText;
        const std::size_t nLength = random() % 24;
        while (strText.size() < nLength) {
            strText += random() % 3 == 0 ? static_cast<char>(1 + random() % 255)
                                         : strFavourites[random() % strFavourites.size()];
        }
        RECT rect{};
        ASSERT_EQ(GetIndexedTextExtent(&image, strText.c_str(), 20, &rect), 1);
        ASSERT_GE(rect.right, 0);
        ASSERT_EQ(IndexedTextOut(&image, 5, 5, strText.c_str(), 20, nullptr), 1);
    }
}

} // namespace
