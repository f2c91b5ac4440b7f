#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/StringResources.h"
#include "tests/phasediagram/Diagrams.h"

using tessara::AddSectionPart;
using tessara::CTestDiagram;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::array<tessara::CStringResource, 2> STRINGS{
    {{51001, "Name\nT~N\nx~N"}, {51002, "Name\nT~N\nx~N\n%.1lf"}}};

class DiagramModel : public testing::Test {
protected:
    DiagramModel() : m_section(3) {
        AddSectionPart(m_section, -1, -0.3, 0);
        AddSectionPart(m_section, -0.3, 0.3, 1);
        AddSectionPart(m_section, 0.3, 1, 0);
        m_section.SetNumColors(2);
    }

    CMultipartTable m_section;
    CTestDiagram m_diagram;
};

TEST_F(DiagramModel, LabelsNameTheBranchesThatAreThere) {
    CMultipartCurve spinodal;
    CCurve piece(2);
    piece.m_pX[0] = piece.m_pY[0] = 0;
    piece.m_pX[1] = piece.m_pY[1] = 1;
    spinodal.AddCurve(&piece, 1);
    spinodal.SetNumColors(2);
    m_diagram.SetSpinodalSection(&spinodal);
    m_diagram.SetBinodalSection(0, 1, 2, &m_section, 0);
    std::array<double, 1> x{0.5};
    m_diagram.SetMultiphasePoints(1, x.data(), x.data());
    m_diagram.SetLifshitzPoints(1, x.data(), x.data());
    m_diagram.FillLabelsArray(); // what is shown is what was set, before it is painted too
    EXPECT_EQ(m_diagram.m_CurveLabels.GetSize(), 10);
    m_diagram.PaintLogged();
    EXPECT_THAT(m_diagram.Labels(m_diagram.m_CurveLabels),
                ElementsAre("Spinodal curve", "(nontrivial branch)", "Cloud-point curve", "(physical)",
                            "Cloud-point curve", "(non-physical)", "Shadow curve", "(physical)",
                            "Shadow curve", "(non-physical)"));
    EXPECT_THAT(m_diagram.Labels(m_diagram.m_PointLabels),
                ElementsAre("Lifshitz point(s)", "Multiphase point(s)"));
    m_section.SetNumColors(3); // any number but 2: one kind
    m_diagram.SetBinodalSection(0, -1, 2, &m_section, 0);
    m_diagram.PaintLogged();
    EXPECT_EQ(m_diagram.Labels(m_diagram.m_CurveLabels)[2], "Cloud-point curve");
    EXPECT_EQ(m_diagram.Labels(m_diagram.m_CurveLabels)[3], "Shadow curve"); // kept from before
}

TEST_F(DiagramModel, PointsAreCopiedReplacedAndRemoved) {
    std::array<double, 2> x{0.1, 0.2};
    m_diagram.SetCriticalPoints(2, x.data(), x.data());
    x[0] = 7;
    EXPECT_EQ(m_diagram.m_pCriticalPoints->m_pX[0], 0.1);
    m_diagram.SetCriticalPoints(0, nullptr, nullptr);
    EXPECT_FALSE(m_diagram.m_pCriticalPoints);
}

TEST_F(DiagramModel, AxesSpanTheElementsButNotMultiphasePointsNorWhatIsNoNumber) {
    m_diagram.FindBoundingBox();
    EXPECT_EQ(m_diagram.m_AbscissaScale.dLower, -1); // nothing: around zero
    std::array<double, 2> x{3, std::numeric_limits<double>::quiet_NaN()};
    std::array<double, 2> y{5, 9};
    m_diagram.SetMultiphasePoints(1, y.data(), y.data());
    m_diagram.SetBinodalSection(0, 1, 2, &m_section, 0);
    m_diagram.SetCriticalPoints(2, x.data(), y.data());
    m_diagram.PaintLogged();
    EXPECT_EQ(m_diagram.m_AbscissaScale.dMax, 3);
    EXPECT_EQ(m_diagram.m_OrdinateScale.dMax, 9);
}

TEST_F(DiagramModel, CustomScalesComeBackAfterAZoom) {
    m_diagram.SetBinodalSection(0, 1, 2, &m_section, 0);
    EXPECT_EQ(m_diagram.UseCustomScale(1, 0, 1, 0.2, -2), 1);
    m_diagram.PaintLogged();
    EXPECT_EQ(m_diagram.m_AbscissaScale.dFactor, 0.01);
    m_diagram.ZoomTo({0.6, 0.4, 0.8, 0.5});
    m_diagram.PaintLogged();
    EXPECT_EQ(m_diagram.m_AbscissaScale.dLower, 0.4);
    EXPECT_EQ(m_diagram.m_AbscissaScale.dUpper, 0.6);
    EXPECT_EQ(m_diagram.m_OrdinateScale.dUpper, 0.8);
    EXPECT_TRUE(m_diagram.IsValidValue(0.5, 1));
    EXPECT_FALSE(m_diagram.IsValidValue(0.5001 + 0.3, 0));
    m_diagram.ShowWhole();
    m_diagram.PaintLogged();
    EXPECT_EQ(m_diagram.m_AbscissaScale.dUpper, 1);
    EXPECT_EQ(m_diagram.m_AbscissaScale.dStep, 0.2);
    m_diagram.UseAutomaticScale(1);
    m_diagram.PaintLogged();
    EXPECT_LT(m_diagram.m_AbscissaScale.dLower, 0);
}

TEST_F(DiagramModel, ARefusedScaleChangesNothingButRefreshesTheCopies) {
    m_diagram.SetBinodalSection(0, 1, 2, &m_section, 0);
    m_diagram.PaintLogged();
    const double dUpper = m_diagram.m_AbscissaScale.dUpper;
    EXPECT_EQ(m_diagram.UseCustomScale(1, 1, 1, 0.2, 0), 0);
    EXPECT_EQ(m_diagram.m_nFlags, 0U);
    EXPECT_EQ(m_diagram.m_AbscissaScale.dUpper, dUpper);
    EXPECT_EQ(m_diagram.m_SavedAbscissaScale.dUpper, dUpper);
}

TEST_F(DiagramModel, PickableColoursFollowTheMode) {
    const auto pickable = [&] { // of blue, green, red, black, white, yellow, magenta, critical, found, purple
        std::string strPickable;
        for (const DWORD color : {0xFF0000, 0x00FF00, 0x0000FF, 0x000000, 0xFFFFFF, 0x00FFFF, 0xFF00FF,
                                  0x000080, 0x008000, 0x800080, 0x123456}) {
            strPickable += m_diagram.IsValidColor(color) ? '+' : '-';
        }
        return strPickable;
    };
    EXPECT_EQ(pickable(), "+++--------");
    m_diagram.EnableCriticalPointsClicking(1);
    EXPECT_EQ(pickable(), "+++----+---");
    m_diagram.ToggleMultiphasePoints();
    EXPECT_EQ(pickable(), "+++----++--");
    m_diagram.m_nFlags |= MF_CROSSSECTION;
    EXPECT_EQ(pickable(), "-+-----+---");
    m_diagram.SetElementReadOut(true);
    EXPECT_EQ(pickable(), "+++--+++++-");
}

TEST_F(DiagramModel, TheCloudPointCurvesOwnCrossingIsFoundOnce) {
    CMultipartTable loop(3);
    AddSectionPart(loop, -1, 1, 0, 2000);
    m_diagram.ToggleMultiphasePoints(); // nothing to search yet
    EXPECT_FALSE(m_diagram.m_pFoundMultiphasePoints);
    m_diagram.ToggleMultiphasePoints();
    m_diagram.SetBinodalSection(0, 1, 2, &loop, 0);
    m_diagram.ToggleMultiphasePoints();
    ASSERT_TRUE(m_diagram.m_pFoundMultiphasePoints);
    ASSERT_EQ(m_diagram.m_pFoundMultiphasePoints->m_nPoints, 2);
    EXPECT_NEAR(m_diagram.m_pFoundMultiphasePoints->m_ppData[0][0], 0.5, 1e-6);
    EXPECT_NEAR(m_diagram.m_pFoundMultiphasePoints->m_ppData[2][0], 0.75, 1e-6);
    EXPECT_NEAR(m_diagram.m_pFoundMultiphasePoints->m_ppData[1][0], 0.6, 1e-6); // its two shadows
    EXPECT_NEAR(m_diagram.m_pFoundMultiphasePoints->m_ppData[1][1], 0.4, 1e-6);
}

TEST_F(DiagramModel, ResourceStringsSetNamesAndTheFormatsTheyHave) {
    tessara::AddStringResources(STRINGS);
    m_diagram.SetSlideName("slide");
    m_diagram.LoadResourceString(51001);
    EXPECT_STREQ(m_diagram.m_strName, "Name");
    EXPECT_TRUE(m_diagram.m_strSlideName.IsEmpty());
    m_diagram.LoadResourceString(51002);
    EXPECT_STREQ(m_diagram.m_strOrdinateFormat, "%.1lf");
    EXPECT_STREQ(m_diagram.m_strAbscissaFormat, "%.2lf");
    EXPECT_THROW(m_diagram.LoadResourceString(51999), CResourceException);
}

TEST_F(DiagramModel, ResetForgetsElementsAndModesButNotNamesAndScales) {
    m_diagram.SetBinodalSection(0, 1, 2, &m_section, 0);
    m_diagram.SetNames("Name", "T~N", "x~N");
    m_diagram.UseCustomScale(2, 0, 1, 0.5, 0);
    m_diagram.ZoomTo({1, 0, 1, 0});
    m_diagram.SetMonochrome(true);
    m_diagram.AddFormatString(0, 1, "%.3lf");
    m_diagram.Reset();
    EXPECT_FALSE(m_diagram.m_pShadowCurve);
    EXPECT_FALSE(m_diagram.IsZoomed());
    EXPECT_STREQ(m_diagram.m_strName, "Name");
    EXPECT_EQ(m_diagram.m_nFlags, DWORD{MF_CUSTOMORDINATE});
    EXPECT_THAT(m_diagram.PaintLogged(), testing::Contains(testing::HasSubstr("No phase separation")));
}

} // namespace
