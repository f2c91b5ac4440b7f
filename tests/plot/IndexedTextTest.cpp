#include "tessara/plot/IndexedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <regex>

#include "tessara/platform/gdi/ImageDC.h"
#include "tests/support/LoggedSurface.h"

using tessara::CLoggedSurface;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What a text draws on a surface, one line a run.
std::vector<std::string> Draw(const std::string& strText, int nSize = 100) {
    CLoggedSurface surface;
    IndexedTextOut(&surface.dc, 1000, 2000, strText.c_str(), nSize, nullptr);
    return surface.lines;
}

/// The same without the places of the runs.
std::vector<std::string> Runs(const std::string& strText) {
    std::vector<std::string> lines = Draw(strText);
    for (std::string& strLine : lines) {
        strLine = std::regex_replace(strLine, std::regex("^Text [0-9]+,"), "");
    }
    return lines;
}

RECT Measure(const std::string& strText, int nSize = 100) {
    CLoggedSurface surface;
    RECT rect{1, 1, 1, 1};
    GetIndexedTextExtent(&surface.dc, strText.c_str(), nSize, &rect);
    EXPECT_THAT(surface.lines, IsEmpty());
    return rect;
}

int PlainWidth(const std::string& strText, LONG nHeight, const char* pszFace = "Times New Roman",
               LONG nWeight = 0) {
    CLoggedSurface surface;
    LOGFONT logFont = tessara::MakeLogFont(nHeight, pszFace);
    logFont.lfWeight = nWeight;
    CFont font;
    font.CreateFontIndirect(&logFont);
    surface.dc.SelectObject(&font);
    return surface.dc.GetTextExtent(strText.c_str()).cx;
}

TEST(IndexedText, EachControlStylesTheRunBeforeIt) {
    EXPECT_THAT(Runs("a~Nb~Hc~Ld~Ge~jf~gg~bh~ii"),
                ElementsAre("2000 \"a\" (Times New Roman 100)", "1990 \"b\" (Times New Roman 75)",
                            "2050 \"c\" (Times New Roman 75)", "2000 \"d\" (Symbol 100)",
                            "1990 \"e\" (Symbol 75)", "2050 \"f\" (Symbol 75)",
                            "2000 \"g\" (Times New Roman 100 weight 600)",
                            "2000 \"h\" (Times New Roman 100 italic)", "2000 \"i\" (Times New Roman 100)"));
}

TEST(IndexedText, RunsFollowEachOtherAtTheirMeasuredWidths) {
    const int nP = PlainWidth("P", 100);
    const int nW = PlainWidth("W", 75);
    EXPECT_THAT(Draw("P~NW~L1~H"),
                ElementsAre("Text 1000,2000 \"P\" (Times New Roman 100)",
                            CLoggedSurface::At(1000 + nP, 2050, "\"W\" (Times New Roman 75)"),
                            CLoggedSurface::At(1000 + nP + nW, 1990, "\"1\" (Times New Roman 75)")));
}

TEST(IndexedText, AStackPutsBothIndicesAtTheSamePlace) {
    const int nBase = 1000 + PlainWidth("x", 100) + 1;
    EXPECT_THAT(Draw("xab~By"),
                ElementsAre("Text 1000,2000 \"x\" (Times New Roman 100)",
                            CLoggedSurface::At(nBase, 2050, "\"a\" (Times New Roman 75)"),
                            CLoggedSurface::At(nBase, 1990, "\"b\" (Times New Roman 75)"),
                            CLoggedSurface::At(nBase + std::max(PlainWidth("a", 75), PlainWidth("b", 75)) + 1,
                                               2000, "\"y\" (Times New Roman 100)")));
}

TEST(IndexedText, AStackTakesWholeCharactersAndDoesWithoutMissingOnes) {
    EXPECT_THAT(Runs("\xCF\x87\xCE\xB1\xCE\xB2~B"), ElementsAre("2000 \"\\xCF\\x87\" (Times New Roman 100)",
                                                                "2050 \"\\xCE\\xB1\" (Times New Roman 75)",
                                                                "1990 \"\\xCE\\xB2\" (Times New Roman 75)"));
    EXPECT_EQ(Draw("x~B").size(), 1U);
    EXPECT_THAT(Draw("~B"), IsEmpty());
}

TEST(IndexedText, UnknownControlsTakeTheNextCharacterLiterally) {
    EXPECT_THAT(Runs("a~~b"), ElementsAre("2000 \"ab\" (Times New Roman 100)"));
    EXPECT_THAT(Runs("a~~~b"), ElementsAre("2000 \"a~b\" (Times New Roman 100)"));
    EXPECT_THAT(Runs("~Xy"), ElementsAre("2000 \"y\" (Times New Roman 100)"));
    EXPECT_THAT(Runs("a~\xC3\xA9z"), ElementsAre("2000 \"az\" (Times New Roman 100)"));
    EXPECT_THAT(Runs("a~"), ElementsAre("2000 \"a\" (Times New Roman 100)"));
}

TEST(IndexedText, LongRunsAreCutBetweenCharacters) {
    const std::string strLong = std::string(126, 'x') + "\xC3\xA9";
    EXPECT_THAT(Runs(strLong), ElementsAre("2000 \"" + std::string(126, 'x') + "\" (Times New Roman 100)"));
}

TEST(IndexedText, MeasuresAdvancesAndTheHeightOfNormalRuns) {
    const RECT normal = Measure("f(x)~N");
    EXPECT_EQ(normal.right, PlainWidth("f(x)", 100));
    EXPECT_EQ(normal.bottom, 100);
    const RECT trailing = Measure("Function");
    EXPECT_EQ(trailing.right, PlainWidth("Function", 100));
    EXPECT_EQ(trailing.bottom, 0);
    const RECT bold = Measure("Spinodal~b");
    EXPECT_EQ(bold.right, PlainWidth("Spinodal", 100, "Times New Roman", FW_SEMIBOLD));
    EXPECT_EQ(bold.bottom, 0);
    EXPECT_EQ(Measure("").right, 0);
}

TEST(IndexedText, TheSignOfTheSizeDoesNotMatter) {
    EXPECT_EQ(Draw("c~G(T~i)~N", -20), Draw("c~G(T~i)~N", 20));
}

TEST(IndexedText, PrintedRunsAdvanceTenPerCentFurtherButTheTrailingOne) {
    CLoggedSurface printer(CLoggedSurface::Printer(1 << 24));
    RECT rect{};
    GetIndexedTextExtent(&printer.dc, "10~N5~Hend", 1000, &rect);
    EXPECT_EQ(rect.right, static_cast<int>(PlainWidth("10", 1000) * 1.1) +
                              static_cast<int>(PlainWidth("5", 750) * 1.1) + PlainWidth("end", 1000));
}

TEST(IndexedText, ThePictureRepeatsTheSurfaceAndBothGetTheirFontsBack) {
    CImageDC image(300, 100);
    CMetaFileDC picture;
    picture.Create();
    CFont* pImageFont = image.GetState().pFont;
    CFont* pPictureFont = picture.GetState().pFont;
    IndexedTextOut(&image, 10, 20, "c~G10~N2~Hxab~B", 40, &picture);
    EXPECT_EQ(image.GetState().pFont, pImageFont);
    EXPECT_EQ(picture.GetState().pFont, pPictureFont);
    HMETAFILE hPicture = picture.Close();
    EXPECT_GT(GetMetaFileBitsEx(hPicture, 0, nullptr), 200U);
    DeleteMetaFile(hPicture);
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
