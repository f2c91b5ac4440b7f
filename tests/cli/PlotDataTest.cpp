#include <cmath>
#include <sstream>

#include <gtest/gtest.h>

#include "cli/InputError.h"
#include "cli/PlotData.h"

using tessara::CColumnFile;
using tessara::CPlotData;

namespace {

std::vector<CColumnFile> Files(std::initializer_list<const char*> texts) {
    std::vector<CColumnFile> files;
    for (const char* pszText : texts) {
        files.push_back(
            CColumnFile::Parse(pszText, std::string(1, static_cast<char>('a' + files.size())), {}));
    }
    return files;
}

std::optional<CColumnFile> Symbols(const char* pszText) {
    return CColumnFile::Parse(pszText, "s", {});
}

/// Each part as "colour: x y, x y", parts between bars, then the number of colours.
std::string Show(CMultipartCurve& curve) {
    std::ostringstream text;
    for (int nPart = 0; nPart < curve.m_nParts; nPart++) {
        const CCurvePartInfo& part = curve.m_pParts[nPart];
        text << part.nColor << ":";
        for (int i = part.nFirst; i < part.nFirst + part.nPoints; i++) {
            text << " " << curve.m_pX[i] << " " << curve.m_pY[i]
                 << (i + 1 < part.nFirst + part.nPoints ? "," : "");
        }
        text << " | ";
    }
    text << curve.GetNumColors();
    return text.str();
}

std::string Refusal(const std::vector<CColumnFile>& curves, const std::optional<CColumnFile>& symbols) {
    try {
        const CPlotData data(curves, symbols);
        return "accepted";
    } catch (const tessara::CInputError& error) {
        return error.what();
    }
}

TEST(PlotData, JoinsFilesOverTheSameAbscissae) {
    const CPlotData data(Files({"1 10 20\n2 30 40\n", "1 50\n2 60\n"}), std::nullopt);
    const CMultiCurve* pCurve = data.GetMultiCurve();
    ASSERT_TRUE(pCurve);
    EXPECT_FALSE(data.GetMultipartCurve());
    EXPECT_EQ(data.GetNumCurves(), 3);
    ASSERT_EQ(pCurve->m_nDimensions, 3);
    ASSERT_EQ(pCurve->m_nPoints, 2);
    EXPECT_EQ(pCurve->m_pX[1], 2);
    EXPECT_EQ(pCurve->m_ppY[1][0], 20);
    EXPECT_EQ(pCurve->m_ppY[2][1], 60);
}

TEST(PlotData, MakesPartsOfFilesOverDifferentAbscissae) {
    const CPlotData data(Files({"1 10 20\n2 30 40\n", "1 50\n3 60\n4 70\n"}), std::nullopt);
    ASSERT_TRUE(data.GetMultipartCurve());
    EXPECT_EQ(Show(*data.GetMultipartCurve()), "0: 1 10, 2 30 | 1: 1 20, 2 40 | 2: 1 50, 3 60, 4 70 | 3");
    EXPECT_EQ(data.GetNumCurves(), 3);
}

TEST(PlotData, EndsAPartAtAGap) {
    const CPlotData data(Files({"1,NA,1\n2,5,NA\n3,6,NA\n4,NA,4\n5,NA,5\n6,7,NA\n"}), std::nullopt);
    ASSERT_TRUE(data.GetMultipartCurve());
    EXPECT_EQ(Show(*data.GetMultipartCurve()), "0: 2 5, 3 6 | 0: 6 7 | 1: 1 1 | 1: 4 4, 5 5 | 2");
    EXPECT_EQ(data.GetMultipartCurve()->m_nPoints, 6);
}

TEST(PlotData, CutsCurvesAtTheEdgesOfTheWindow) {
    tessara::PLOTWINDOW window;
    window.dXMin = 1;
    window.dXMax = 5;
    window.dYMax = 10;
    const struct {
        const char* pszWhat;
        const char* pszText;
        const char* pszParts;
    } cases[] = {
        {"inside", "1 0\n5 10\n", ""},
        {"both ends outside", "0 0\n6 6\n", "0: 1 1, 5 5 | 1"},
        {"out through the top and in again", "1 0\n3 20\n5 0\n", "0: 1 0, 2 10 | 0: 4 10, 5 0 | 1"},
        {"across a corner", "3 12\n7 0\n", "0: 3.66667 10, 5 6 | 1"},
        {"past a corner", "4 12\n7 9\n2 1\n3 1\n", "0: 5 5.8, 2 1, 3 1 | 1"},
        {"level lines outside", "0 20\n6 20\n6 3\n2 3\n", "0: 5 3, 2 3 | 1"},
        {"a gap outside", "0,0\n0.5,NA\n0.6,1\n2,1\n", "0: 1 1, 2 1 | 1"},
        {"from end to end of all numbers", "-1e308 0\n1e308 0\n", "0: 1 0, 1 0 | 1"},
    };
    for (const auto& cut : cases) {
        // Sorted or not does not matter to cutting; the data class demands ascending abscissae.
        const CColumnFile file = CColumnFile::Parse(cut.pszText, "a", {});
        tessara::CCurveParts parts(window);
        parts.Add(file.GetAbscissa().m_Values, file.GetFunctions()[0].m_Values, 0);
        const std::string strParts = *cut.pszParts ? cut.pszParts : "0: 1 0, 5 10 | 1";
        EXPECT_EQ(Show(*parts.Make(1)), strParts) << cut.pszWhat;
    }
}

TEST(PlotData, ShowsOnlyWhatTheWindowShows) {
    tessara::PLOTWINDOW window;
    window.dXMin = 2;
    window.dXMax = 4;
    window.dYMax = 10;
    const CPlotData inside(Files({"2 1\n4 2\n"}), Symbols("1 1 1\n3 20 5\n3 9 12\n"), window);
    EXPECT_TRUE(inside.GetMultiCurve());
    ASSERT_EQ(inside.GetSymbols()->m_nPoints, 2);
    EXPECT_EQ(inside.GetSymbols()->m_ppY[1][0], 5);
    EXPECT_EQ(inside.GetSymbols()->m_ppY[0][1], 9);
    EXPECT_TRUE(std::isnan(inside.GetSymbols()->m_ppY[0][0]));
    const CPlotData crossing(Files({"0 1 1\n4 5 1\n"}), Symbols("9 9\n"), window);
    EXPECT_EQ(Show(*crossing.GetMultipartCurve()), "0: 2 3, 4 5 | 1: 2 1, 4 1 | 2");
    EXPECT_FALSE(crossing.GetSymbols());
    EXPECT_THROW(CPlotData(Files({"5 1\n6 1\n"}), Symbols("9 9\n"), window), CException);
}

TEST(PlotData, ManyGapsMakeManyParts) {
    std::string strText;
    for (int i = 0; i < 1000; i++) {
        strText += std::to_string(i) + (i % 2 ? ",NA\n" : ",1\n");
    }
    const CPlotData data(Files({strText.c_str()}), std::nullopt);
    EXPECT_EQ(data.GetMultipartCurve()->m_nParts, 500);
    EXPECT_EQ(data.GetMultipartCurve()->m_pParts[499].nFirst, 499);
}

TEST(PlotData, WithoutCurvesHoldsTheSymbolsForTheAxesOnly) {
    const CPlotData data({}, Symbols("T,chi\n3,1\n1,NA\n2,4\n"));
    ASSERT_TRUE(data.GetMultipartCurve());
    EXPECT_EQ(data.GetMultipartCurve()->m_nPoints, 2);
    EXPECT_EQ(data.GetMultipartCurve()->m_nParts, 0);
    EXPECT_EQ(data.GetMultipartCurve()->GetNumColors(), 1);
    EXPECT_EQ(data.GetArgumentName(), "T");
    EXPECT_EQ(data.GetFunctionNames(), "chi");
}

TEST(PlotData, KeepsSymbolsInAnyOrderWithoutRowsOfGaps) {
    const CPlotData data(Files({"1 2\n"}), Symbols("3,1\n1,NA\n2,4\n"));
    const CMultiCurve* pSymbols = data.GetSymbols();
    ASSERT_TRUE(pSymbols);
    ASSERT_EQ(pSymbols->m_nPoints, 2);
    EXPECT_EQ(pSymbols->m_pX[0], 3);
    EXPECT_EQ(pSymbols->m_pX[1], 2);
    EXPECT_EQ(pSymbols->m_ppY[0][1], 4);
}

TEST(PlotData, RefusesWhatCannotBeDrawn) {
    EXPECT_EQ(Refusal(Files({"1 2\n", "2 1\n1 2\n"}), std::nullopt),
              "b:2:1: the abscissa 1 is below the 2 before it; --sort sorts the rows");
    EXPECT_EQ(Refusal(Files({"1 2 3 4 5 6\n", "1 2 3\n"}), std::nullopt),
              "b: column 3 would be a seventh curve, of at most six; choose with --columns");
    EXPECT_EQ(Refusal(Files({"1,2,NA\n2,3,\n"}), std::nullopt), "a: column 3 has no numbers");
    EXPECT_EQ(Refusal({}, Symbols("1 2 3 4\n")),
              "s: column 4 would be a third kind of symbols, of at most two; choose with --symbols-columns");
    EXPECT_EQ(Refusal(Files({"1 2 3 4 5 6 7\n"}), Symbols("2 2 3\n1 2 3\n")), "accepted");
}

} // namespace
