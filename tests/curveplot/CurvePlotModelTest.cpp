#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <tuple>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/plot/TickWalk.h"
#include "tests/curveplot/Plots.h"

using tessara::CTestPlot;
using tessara::MakeLines;

namespace {

constexpr std::array<tessara::CStringResource, 3> STRINGS{{
    {50001, "Volume\nV~N\nTemperature\nT~N"},
    {50003, "Volume\nV~N\nTemperature\nT~N\n%.1lf\n%.3lf"},
    {50004, "no line feed"},
}};

TEST(CurvePlotModel, CustomScalesAreCheckedAndSetOneAxis) {
    using CScale = std::tuple<int, double, double, double, int>; // axis, ends, step, exponent
    const CScale refused[] = {{3, 0, 1, 0.2, 0},   {0, 0, 1, 0.2, 0}, {1, 1, 1, 0.2, 0},  {1, 2, 1, 0.2, 0},
                              {1, 0, 1, 0, 0},     {1, 0, 1, 0.2, 9}, {1, 0, 1, 0.2, -9}, {2, 0, 1, -1, 0},
                              {1, NAN, 1, 0.2, 0}, {1, 0, 1, NAN, 0}};
    CTestPlot plot;
    for (const auto& [nAxis, dFrom, dTo, dStep, nExponent] : refused) {
        EXPECT_EQ(plot.UseCustomScale(nAxis, dFrom, dTo, dStep, nExponent), 0);
        EXPECT_EQ(plot.m_nFlags, 0U);
        EXPECT_EQ(plot.m_ArgumentScale.dStep, 0.5);
    }
    EXPECT_EQ(plot.UseCustomScale(2, 0, 1, 0.25, -2), 1);
    EXPECT_EQ(plot.m_FunctionScale.dFactor, 0.01);
    EXPECT_EQ(plot.m_FunctionScale.dLastTick, 1);
    EXPECT_EQ(plot.m_nFlags, DWORD{OCF_CUSTOMFUNCTION});
    plot.UseAutomaticScale(3);
    EXPECT_EQ(plot.m_nFlags, 0U);
}

TEST(CurvePlotModel, NewDataEndsCustomScalesAndAssignmentAlsoFitting) {
    double values[] = {2, 3, 4};
    CTestPlot plot;
    plot.UseCustomScale(1, 0, 1, 0.2, 0);
    plot.FitScale(1);
    plot.DisplayDiagonal(1);
    plot.SetOutputData(values, values, 3);
    EXPECT_EQ(plot.m_nFlags, DWORD{OCF_FITARGUMENT});
    plot.FindBoundingBox();
    EXPECT_EQ(plot.m_ArgumentScale.dUpper, 4);
    CCurve curve(3, values, values);
    plot = &curve;
    EXPECT_EQ(plot.m_nFlags, 0U);
    EXPECT_EQ(plot.m_bDiagonal, 0);
}

TEST(CurvePlotModel, AxesSpanCurvesAndSymbolsButNothingThatIsNotANumber) {
    const auto pLines = MakeLines(9, 3); // 0..2, 0..2 to 0..12 in the six columns that are shown
    pLines->m_ppY[0][1] = std::numeric_limits<double>::infinity();
    CMultiCurve symbols(2);
    symbols.Allocate(1);
    symbols.m_pX[0] = 5;
    symbols.m_ppY[0][0] = std::numeric_limits<double>::quiet_NaN();
    symbols.m_ppY[1][0] = -3;
    CTestPlot plot;
    plot = pLines.get();
    plot.SetSymbolsCurve(&symbols);
    plot.FindBoundingBox();
    EXPECT_EQ(plot.m_ArgumentScale.dMax, 5);
    EXPECT_EQ(plot.m_FunctionScale.dMax, 12);
    EXPECT_EQ(plot.m_FunctionScale.dMin, -3);
}

TEST(CurvePlotModel, AConstantHasAnAxisWithTicksHoweverLargeItIs) {
    for (const double dConstant : {3.0, 1e15, 9007199254740994.0, 1e17, -1e17, 1e300, -1.7e308}) {
        double x[] = {0, 1};
        double y[] = {dConstant, dConstant};
        CTestPlot plot;
        plot.SetOutputData(x, y, 2);
        plot.FindBoundingBox();
        const CHOOSESCALE& scale = plot.m_FunctionScale;
        EXPECT_LT(scale.dLower, scale.dUpper) << dConstant;
        EXPECT_GE(tessara::CTickWalk(scale).GetCount(), 2) << dConstant;
        EXPECT_EQ(scale.dMax, dConstant);
        if (std::fabs(dConstant) < 4e307) {
            EXPECT_TRUE(scale.dLower <= dConstant && dConstant <= scale.dUpper) << dConstant;
        }
    }
}

TEST(CurvePlotModel, ResourceStringsSetNamesAndTheFormatsTheyHave) {
    tessara::AddStringResources(STRINGS);
    const std::tuple<UINT, const char*, const char*, const char*, const char*> cases[] = {
        {50001, "Volume", "T~N", "%.2lf", "%.2lf"},
        {50003, "Volume", "T~N", "%.1lf", "%.3lf"},
        {50004, "", "no line feed", "%.2lf", "%.2lf"}};
    for (const auto& [nID, pszName, pszArgument, pszFunctionFormat, pszArgumentFormat] : cases) {
        CTestPlot plot;
        plot.SetSlideName("slide");
        plot.LoadResourceString(nID);
        EXPECT_STREQ(plot.m_strCurveName, pszName);
        EXPECT_STREQ(plot.m_strCurveArgument, pszArgument);
        EXPECT_STREQ(plot.GetFunctionFormat(), pszFunctionFormat);
        EXPECT_STREQ(plot.GetArgumentFormat(), pszArgumentFormat);
        EXPECT_TRUE(plot.m_strSlideName.IsEmpty()) << "a new plot forgets the slide";
    }
    EXPECT_THROW(CTestPlot().LoadResourceString(59999), CResourceException);
}

TEST(CurvePlotModel, ValuesAreValidOnTheArgumentAxisEndsIncludedAndZeroWithoutACurve) {
    CTestPlot plot;
    plot.UseCustomScale(1, 2, 4, 1, 0);
    EXPECT_TRUE(plot.IsValidValue(2));
    EXPECT_TRUE(plot.IsValidValue(4));
    EXPECT_FALSE(plot.IsValidValue(4.001));
    EXPECT_FALSE(plot.IsValidValue(NAN));
    EXPECT_EQ(plot.Value(0, 3), 0);
}

TEST(CurvePlotModel, TheListOwnsOnlyWhatItMade) {
    double values[] = {0, 1};
    CCurvePartInfo part{0, 2, 0};
    CCurve mine(2, values, values);
    CTestPlot plot;
    plot.Add(&mine);
    plot.Add(values, values, 2);
    plot.Add(values, values, 2, 1, &part);
    EXPECT_EQ(plot.m_OwnedCurves.GetSize(), 2);
    plot.ClearOutputList();
    EXPECT_EQ(mine.Value(0.5), 0.5);
    plot.Add(values, values, 2); // freed by the destructor
}

} // namespace
