#include <cmath>
#include <sstream>

#include <gtest/gtest.h>

#include "cli/PlotData.h"
#include "tests/cli/Outcome.h"

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

/// The rows of a multi-curve, between bars.
std::string Show(const CMultiCurve* pCurve) {
    std::ostringstream text;
    for (int i = 0; pCurve && i < pCurve->m_nPoints; i++) {
        text << (i > 0 ? " | " : "") << pCurve->m_pX[i];
        for (int j = 0; j < pCurve->m_nDimensions; j++) {
            text << " " << pCurve->m_ppY[j][i];
        }
    }
    return pCurve ? text.str() : "none";
}

std::string Outcome(const std::vector<CColumnFile>& curves, const std::optional<CColumnFile>& symbols) {
    return Refusal([&] { CPlotData(curves, symbols); });
}

TEST(PlotData, JoinsFilesOverTheSameAbscissae) {
    const CPlotData data(Files({"1 10 20\n2 30 40\n", "1 50\n2 60\n"}), std::nullopt);
    EXPECT_EQ(Show(data.GetMultiCurve()), "1 10 20 50 | 2 30 40 60");
    EXPECT_FALSE(data.GetMultipartCurve());
    EXPECT_EQ(data.GetNumCurves(), 3);
}

TEST(PlotData, MakesPartsOfFilesOverDifferentAbscissaeAndEndsAPartAtAGap) {
    const CPlotData data(Files({"1 10 20\n2 30 40\n", "1 50\n3 60\n4 70\n"}), std::nullopt);
    EXPECT_EQ(Show(data.GetMultipartCurve()), "0: 1 10, 2 30 | 1: 1 20, 2 40 | 2: 1 50, 3 60, 4 70 | 3");
    EXPECT_EQ(data.GetNumCurves(), 3);
    const CPlotData gaps(Files({"1,NA,1\n2,5,NA\n3,6,NA\n4,NA,4\n5,NA,5\n6,7,NA\n"}), std::nullopt);
    EXPECT_EQ(Show(gaps.GetMultipartCurve()), "0: 2 5, 3 6 | 0: 6 7 | 1: 1 1 | 1: 4 4, 5 5 | 2");
    EXPECT_EQ(gaps.GetMultipartCurve()->m_nPoints, 6);
}

std::string Grid(const char* pszText, const tessara::PLOTWINDOW& window = {}) {
    const CPlotData data(Files({pszText}), std::nullopt, window, tessara::PlotGaps::Stay);
    return Show(data.GetMultiCurve());
}

TEST(PlotData, KeepsGapsInOneMultiCurveWhereTheyAreToStay) {
    // A row beside a gap is there once more on that side, a hair apart.
    EXPECT_EQ(Grid("1,1,5\n2,NA,6\n3,3,7\n"), "1 1 5 | 1 1 5 | 2 nan 6 | 2 nan 6 | 2 nan 6 | 3 3 7 | 3 3 7");
    EXPECT_EQ(Grid("1,1\n2,NA\n3,3\n4,NA\n"), "1 1 | 1 1 | 2 nan | 3 3 | 3 3");
    tessara::PLOTWINDOW window;
    window.dXMin = 1.5;
    window.dYMax = 4;
    EXPECT_EQ(Grid("1,2,0\n3,6,0\n", window), "1.5 3 0 | 2 4 0 | 2 4 0 | 3 nan 0 | 3 nan 0");
    EXPECT_EQ(Grid("2,2\n3,6\n4,2\n", window), "2 2 | 2.5 4 | 2.5 4 | 3 nan | 3.5 4 | 3.5 4 | 4 2");
    EXPECT_EQ(Grid("2,5\n3,3\n3,5\n", window), "2.5 4 | 3 3 | 3 4") << "a vertical step";
    EXPECT_THROW(Grid("1,1\n2,9\n2,9\n", {2, 5, 10, 20}), CException);
}

TEST(PlotData, ReadsOutTheValuesBesideAGap) {
    const CPlotData data(Files({"1,1,5\n2,NA,6\n3,3,7\n4,NA,8\n5,NA,9\n"}), std::nullopt, {},
                         tessara::PlotGaps::Stay);
    const double x[] = {1, 1.5, 2, 3, 4.5};
    double y[5];
    data.GetMultiCurve()->Values(0, x, y, 5);
    EXPECT_EQ(y[0], 1);
    EXPECT_EQ(y[3], 3);
    EXPECT_TRUE(std::isnan(y[1]) && std::isnan(y[2]) && std::isnan(y[4]));
    data.GetMultiCurve()->Values(1, x, y, 5);
    EXPECT_EQ(y[1], 5.5);
    EXPECT_EQ(y[4], 8.5);
}

TEST(PlotData, CutsCurvesAtTheEdgesOfTheWindow) {
    tessara::PLOTWINDOW window;
    window.dXMin = 1;
    window.dXMax = 5;
    window.dYMax = 10;
    const struct {
        const char *pszWhat, *pszText, *pszParts;
    } cases[] = {
        {"inside", "1 0\n5 10\n", "0: 1 0, 5 10 | 1"},
        {"both ends outside", "0 0\n6 6\n", "0: 1 1, 5 5 | 1"},
        {"out through the top and in again", "1 0\n3 20\n5 0\n", "0: 1 0, 2 10 | 0: 4 10, 5 0 | 1"},
        {"across a corner", "3 12\n7 0\n", "0: 3.66667 10, 5 6 | 1"},
        {"past a corner", "4 12\n7 9\n2 1\n3 1\n", "0: 5 5.8, 2 1, 3 1 | 1"},
        {"level lines outside", "0 20\n6 20\n6 3\n2 3\n", "0: 5 3, 2 3 | 1"},
        {"a gap outside", "0,0\n0.5,NA\n0.6,1\n2,1\n", "0: 1 1, 2 1 | 1"},
        {"from end to end of all numbers", "-1e308 0\n1e308 0\n", "0: 1 0, 5 0 | 1"},
        {"to an infinite value and back", "1 1\n2 inf\n3 1\n4 2\n", "0: 1 1 | 0: 3 1, 4 2 | 1"},
    };
    for (const auto& cut : cases) {
        // Sorted or not does not matter to cutting; the data class demands ascending abscissae.
        const CColumnFile file = CColumnFile::Parse(cut.pszText, "a", {});
        tessara::CCurveParts parts(window);
        parts.Add(file.GetAbscissa().m_Values, file.GetFunctions()[0].m_Values, 0);
        EXPECT_EQ(Show(&*parts.Make(1)), cut.pszParts) << cut.pszWhat;
    }
}

TEST(PlotData, ShowsOnlyWhatTheWindowShows) {
    tessara::PLOTWINDOW window;
    window.dXMin = 2;
    window.dXMax = 4;
    window.dYMax = 10;
    const CPlotData inside(Files({"2 1\n4 2\n"}), Symbols("1 1 1\n3 20 5\n3 9 12\n"), window);
    EXPECT_TRUE(inside.GetMultiCurve());
    EXPECT_EQ(Show(inside.GetSymbols()), "3 nan 5 | 3 9 nan");
    const CPlotData crossing(Files({"0 1 1\n4 5 1\n"}), Symbols("9 9\n"), window);
    EXPECT_EQ(Show(crossing.GetMultipartCurve()), "0: 2 3, 4 5 | 1: 2 1, 4 1 | 2");
    EXPECT_FALSE(crossing.GetSymbols());
    EXPECT_THROW(CPlotData(Files({"5 1\n6 1\n"}), Symbols("9 9\n"), window), CException);
}

TEST(PlotData, KeepsSymbolsInAnyOrderWithoutRowsOfGaps) {
    const auto symbols = Symbols("T,chi\n3,1\n1,NA\n2,4\n");
    EXPECT_EQ(Show(CPlotData(Files({"1 2\n"}), symbols).GetSymbols()), "3 1 | 2 4");
    const CPlotData alone({}, symbols);
    EXPECT_EQ(Show(alone.GetMultipartCurve()), "1") << "no parts: points for the axes only";
    EXPECT_EQ(alone.GetMultipartCurve()->m_nPoints, 2);
    EXPECT_EQ(alone.GetArgumentName(), "T");
    EXPECT_EQ(alone.GetFunctionNames(), "chi");
}

TEST(PlotData, RefusesWhatCannotBeDrawn) {
    EXPECT_EQ(Outcome(Files({"1 2\n", "2 1\n1 2\n"}), std::nullopt),
              "b:2:1: the abscissa 1 is below the 2 before it; --sort sorts the rows");
    EXPECT_EQ(Outcome(Files({"1 2 3 4 5 6\n", "1 2 3\n"}), std::nullopt),
              "b: column 3 would be a seventh curve, of at most six; choose with --columns");
    EXPECT_EQ(Outcome(Files({"1,2,NA\n2,3,\n"}), std::nullopt), "a: column 3 has no numbers");
    EXPECT_EQ(Outcome({}, Symbols("1 2 3 4\n")),
              "s: column 4 would be a third kind of symbols, of at most two; choose with --symbols-columns");
    EXPECT_EQ(Outcome(Files({"1 2 3 4 5 6 7\n"}), Symbols("2 2 3\n1 2 3\n")), "accepted");
}

} // namespace
