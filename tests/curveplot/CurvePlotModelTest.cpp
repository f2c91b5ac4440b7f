#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/StringResources.h"
#include "tests/curveplot/Plots.h"

using tessara::CTestPlot;
using tessara::MakeLines;

namespace {

constexpr std::array<tessara::CStringResource, 4> STRINGS{{
    {50001, "Volume\nV~N\nTemperature\nT~N"},
    {50002, "Volume\nV~N\nTemperature\nT~N\n%.1lf"},
    {50003, "Volume\nV~N\nTemperature\nT~N\n%.1lf\n%.3lf"},
    {50004, "no line feed"},
}};

TEST(CurvePlotModel, StartsWithItsDefaults) {
    const CTestPlot plot;
    EXPECT_STREQ(plot.m_strCurveName, "Function");
    EXPECT_STREQ(plot.m_strCurveSymbol, "f(x)~N");
    EXPECT_STREQ(plot.m_strCurveArgument, "x~N");
    EXPECT_STREQ(plot.GetFunctionFormat(), "%.2lf");
    EXPECT_EQ(plot.m_nParts, 1);
    EXPECT_EQ(plot.m_nFlags, 0U);
    EXPECT_STREQ(plot.GetRuntimeClass()->m_lpszClassName, "COutputCurve");
    EXPECT_EQ(plot.GetRuntimeClass()->m_wSchema, 0xFFFFU);
}

TEST(CurvePlotModel, ColoursAreFoundByValue) {
    CTestPlot plot;
    EXPECT_EQ(plot.CurveColor(4), 0xFF00FFU);
    EXPECT_EQ(plot.CurveFromColor(0x00FF00), 2);
    EXPECT_EQ(plot.CurveFromColor(0x808080), -1);
}

TEST(CurvePlotModel, CustomScalesAreCheckedAndSetOneAxis) {
    struct {
        int nAxis;
        double dFrom, dTo, dStep;
        int nExponent;
    } const refused[] = {{3, 0, 1, 0.2, 0},   {0, 0, 1, 0.2, 0}, {1, 1, 1, 0.2, 0},  {1, 2, 1, 0.2, 0},
                         {1, 0, 1, 0, 0},     {1, 0, 1, 0.2, 9}, {1, 0, 1, 0.2, -9}, {2, 0, 1, -1, 0},
                         {1, NAN, 1, 0.2, 0}, {1, 0, 1, NAN, 0}};
    CTestPlot plot;
    for (const auto& given : refused) {
        EXPECT_EQ(plot.UseCustomScale(given.nAxis, given.dFrom, given.dTo, given.dStep, given.nExponent), 0);
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
    std::array<double, 3> x{2, 3, 4};
    std::array<double, 3> y{10, 20, 30};
    CTestPlot plot;
    plot.UseCustomScale(1, 0, 1, 0.2, 0);
    plot.FitScale(1);
    plot.DisplayDiagonal(1);
    plot.SetOutputData(x.data(), y.data(), 3);
    EXPECT_EQ(plot.m_nFlags, DWORD{OCF_FITARGUMENT});
    EXPECT_EQ(plot.m_bDiagonal, 1);
    plot.FindBoundingBox();
    EXPECT_EQ(plot.m_ArgumentScale.dLower, 2);
    EXPECT_EQ(plot.m_ArgumentScale.dUpper, 4);
    CCurve curve(3, x.data(), y.data());
    plot = &curve;
    EXPECT_EQ(plot.m_nFlags, 0U);
    EXPECT_EQ(plot.m_bDiagonal, 0);
}

TEST(CurvePlotModel, ACustomScaleStaysWhileTheOtherAxisFollowsTheData) {
    const auto pLines = MakeLines(2, 5);
    CTestPlot plot;
    plot = pLines.get();
    plot.UseCustomScale(1, 1, 3, 0.5, 0);
    plot.FindBoundingBox();
    EXPECT_EQ(plot.m_ArgumentScale.dLower, 1);
    EXPECT_EQ(plot.m_FunctionScale.dUpper, 8);
}

TEST(CurvePlotModel, AxesSpanCurvesAndSymbolsButNothingThatIsNotANumber) {
    const auto pLines = MakeLines(1, 3); // 0..2, 0..2
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
    EXPECT_EQ(plot.m_FunctionScale.dMax, 2);
    EXPECT_EQ(plot.m_FunctionScale.dMin, -3);
}

TEST(CurvePlotModel, AtMostSixColumnsAreShown) {
    const auto pLines = MakeLines(9, 3);
    CTestPlot plot;
    plot = pLines.get();
    EXPECT_EQ(plot.m_nFunctions, COutputCurve::MAX_FUNCTIONS);
    plot.FindBoundingBox();
    EXPECT_EQ(plot.m_FunctionScale.dMax, 12);
}

TEST(CurvePlotModel, ResourceStringsSetNamesAndTheFormatsTheyHave) {
    tessara::AddStringResources(STRINGS);
    CTestPlot plot;
    plot.SetSlideName("slide");
    plot.LoadResourceString(50001);
    EXPECT_STREQ(plot.m_strCurveName, "Volume");
    EXPECT_STREQ(plot.m_strCurveSymbol, "V~N");
    EXPECT_STREQ(plot.m_strArgumentName, "Temperature");
    EXPECT_STREQ(plot.m_strCurveArgument, "T~N");
    EXPECT_STREQ(plot.GetFunctionFormat(), "%.2lf");
    EXPECT_TRUE(plot.m_strSlideName.IsEmpty());
    plot.LoadResourceString(50002);
    EXPECT_STREQ(plot.GetFunctionFormat(), "%.1lf");
    EXPECT_STREQ(plot.GetArgumentFormat(), "%.2lf");
    plot.LoadResourceString(50003);
    EXPECT_STREQ(plot.m_strCurveArgument, "T~N");
    EXPECT_STREQ(plot.GetArgumentFormat(), "%.3lf");
    plot.LoadResourceString(50004);
    EXPECT_STREQ(plot.m_strCurveArgument, "no line feed");
    EXPECT_THROW(plot.LoadResourceString(59999), CResourceException);
    plot.SetArgumentFormat(nullptr);
    EXPECT_STREQ(plot.GetArgumentFormat(), "%.2lf");
}

TEST(CurvePlotModel, NamesThatStartANewPlotForgetTheSlide) {
    CTestPlot plot;
    plot.SetSlideName("first");
    plot.SetNames("Name", "s", "Argument name", "a");
    EXPECT_TRUE(plot.m_strSlideName.IsEmpty());
    EXPECT_STREQ(plot.m_strArgumentName, "Argument name");
    EXPECT_STREQ(plot.m_strCurveArgument, "a");
    plot.SetSlideName("second");
    plot.SetCurveName("Other");
    EXPECT_TRUE(plot.m_strSlideName.IsEmpty());
}

TEST(CurvePlotModel, TheListOwnsOnlyWhatItMade) {
    std::array<double, 2> x{0, 1};
    std::array<double, 2> y{0, 1};
    CCurvePartInfo part{0, 2, 0};
    auto pMine = std::make_unique<CCurve>(2, x.data(), y.data());
    CTestPlot plot;
    plot.Add(pMine.get());
    plot.Add(x.data(), y.data(), 2);
    plot.Add(x.data(), y.data(), 2, 1, &part);
    EXPECT_EQ(plot.m_OutputList.GetSize(), 3);
    EXPECT_EQ(plot.m_OwnedCurves.GetSize(), 2);
    plot.ClearOutputList();
    EXPECT_EQ(plot.m_OutputList.GetSize(), 0);
    EXPECT_EQ(plot.m_OwnedCurves.GetSize(), 0);
    EXPECT_EQ(pMine->Value(0.5), 0.5);
    plot.Add(x.data(), y.data(), 2); // freed by the destructor
}

} // namespace
