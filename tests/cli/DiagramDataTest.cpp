#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "cli/DiagramData.h"
#include "tessara/platform/gdi/DC.h"
#include "tests/cli/Outcome.h"
#include "tests/support/LoggedSurface.h"

using tessara::CDiagramData;
using tessara::DIAGRAM;
using tessara::ParseDiagram;

namespace {

DIAGRAM Diagram(const std::string& strMembers) {
    return ParseDiagram(R"({"format":"tessara-diagram","version":1,)" + strMembers + "}", "d");
}

/// Shows what a diagram was given.
class CDiagramProbe : public CPhaseDiagramOutput {
public:
    std::string CloudPointCurve() const { return Show(m_pCloudPointCurve.get()); }
    std::string ShadowCurve() const { return Show(m_pShadowCurve.get()); }
    std::string Spinodal() const { return Show(m_pSpinodal.get()); }
    int CountCriticalPoints() const { return m_pCriticalPoints ? m_pCriticalPoints->m_nPoints : 0; }
    int CountMultiphasePoints() const { return m_pMultiphasePoints ? m_pMultiphasePoints->m_nPoints : 0; }
    int CountLabels() const { return m_nCurveLabels; }
    const CMultipartTable& Section() const { return *m_pBinodalSection; }
    std::pair<int, int> ShadowColumns() const { return {m_ShadowColumns.nX, m_ShadowColumns.nY}; }
    bool AreOneTable() const { return m_pShadowCurve->m_pY == m_pCloudPointCurve->m_pY; }
    void TakeShadowFrom(CMultipartTable& table) { SetBinodalSection(0, 0, 1, &table, 0); }
    void TakeCloudPointsFrom(CMultipartTable& table) { SetBinodalSection(0, -1, 1, &table, 0); }
};

constexpr const char* CURVES = R"("binodal":[
    {"branch":"physical","x":[1,2,3],"shadow":[5,null,7],"y":[10,20,30]},
    {"branch":"non-physical","x":[3,null,5,6],"y":[30,31,null,33]}],
    "spinodal":[{"x":[1,3],"y":[10,30]}],
    "critical":[[2,20],[9,9]],"multiphase":[[3,30]])";

TEST(DiagramData, SplitsEachCurveAtItsOwnGaps) {
    CDiagramData data(Diagram(CURVES));
    CDiagramProbe output;
    data.ApplyTo(output);
    EXPECT_EQ(output.CloudPointCurve(), "0: 1 10, 2 20, 3 30 | 1: 3 30 | 1: 6 33 | 2");
    EXPECT_EQ(output.ShadowCurve(), "0: 5 10 | 0: 7 30 | 2");
    EXPECT_EQ(output.Spinodal(), "0: 1 10, 3 30 | 1");
    EXPECT_EQ(output.CountCriticalPoints(), 2);
    EXPECT_EQ(output.CountMultiphasePoints(), 1);
}

/// A column of the section, part by part.
std::string Column(const CMultipartTable& table, int nColumn) {
    const CMultipartCurve column(table.m_nPoints, table.m_ppData[0], table.m_ppData[nColumn], table.m_nParts,
                                 table.m_pParts, table.m_nColors);
    return Show(&column);
}

TEST(DiagramData, GivesCloudPointsAndShadowAsOneSection) {
    CDiagramData data(Diagram(R"("binodal":[
        {"branch":"physical","x":[1,null,3,4],"shadow":[5,6,7,8],"y":[10,20,null,40],"columns":{"b":[1,2,3,4]}},
        {"branch":"non-physical","x":[4,5],"shadow":[8,9],"y":[40,50],"columns":{"a":[1,2]}}])"));
    CDiagramProbe output;
    data.ApplyTo(output);
    EXPECT_FALSE(output.AreOneTable()) << "the shadow goes on where the cloud points have a gap";
    EXPECT_EQ(Column(output.Section(), 2), "0: 1 5 | 0: 4 8 | 1: 4 8, 5 9 | 2");
    EXPECT_EQ(Column(output.Section(), 3), "0: 1 nan | 0: 4 nan | 1: 4 1, 5 2 | 2") << "a";
    EXPECT_EQ(Column(output.Section(), 4), "0: 1 1 | 0: 4 4 | 1: 4 nan, 5 nan | 2") << "b";
    EXPECT_EQ(data.GetBinodalColumns(), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(output.ShadowCurve(), "0: 5 10, 6 20 | 0: 8 40 | 1: 8 40, 9 50 | 2");
    EXPECT_EQ(output.ShadowColumns(), std::pair(2, 1));

    CDiagramData whole(Diagram(R"("binodal":[{"x":[1,null,3],"shadow":[5,null,7],"y":[10,20,30]}])"));
    whole.ApplyTo(output);
    EXPECT_TRUE(output.AreOneTable());
    EXPECT_EQ(Column(output.Section(), 2), "0: 1 5 | 0: 3 7 | 1");
    EXPECT_EQ(output.ShadowCurve(), "0: 5 10 | 0: 7 30 | 1");
}

TEST(DiagramData, CutsFurtherColumnsWithTheCurve) {
    CDiagramData data(Diagram(R"("x":{"scale":{"from":0,"to":2.5,"step":1}},"binodal":[
        {"x":[1,2,3],"shadow":[2,3,4],"y":[10,20,30],"columns":{"a":[1,null,7]}}])"));
    CDiagramProbe output;
    data.ApplyTo(output);
    EXPECT_EQ(Column(output.Section(), 2), "0: 1 2, 2 3, 2.5 3.5 | 1");
    EXPECT_EQ(Column(output.Section(), 3), "0: 1 1, 2 nan, 2.5 nan | 1");
    EXPECT_EQ(output.ShadowCurve(), "0: 2 10, 2.5 15 | 1");
}

/// What is drawn of a diagram, whole and zoomed.
std::vector<std::string> Drawn(CPhaseDiagramOutput& output) {
    tessara::CLoggedSurface surface;
    output.Paint(&surface.dc, {0, 0, 512, 368}, nullptr);
    output.ZoomTo({4.5, 1.5, 45, 15});
    output.Paint(&surface.dc, {0, 0, 512, 368}, nullptr);
    return surface.lines;
}

TEST(DiagramData, DrawsOneSectionAsTwoTablesOfTheCurves) {
    const char* const curves[] = {
        R"({"x":[1,2,3,5],"shadow":[5,4,2,1],"y":[10,20,30,50]})",
        R"({"x":[1,2,null,5],"shadow":[5,4,2,1],"y":[10,20,30,50]})",
        R"({"x":[1,2,3,5],"shadow":[5,null,2,1],"y":[10,20,30,50]})",
        R"({"x":[1,2,3,5],"shadow":[5,null,2,null],"y":[10,20,30,50]},{"x":[2,4],"y":[50,10]})",
        R"({"x":[1,2,3,5],"shadow":[5,4,2,1],"y":[10,null,30,50]})",
    };
    for (const char* const pszBinodal : curves) {
        const DIAGRAM diagram = Diagram(R"("binodal":[)" + std::string(pszBinodal) + "]");
        CDiagramData data(diagram);
        CDiagramProbe joint;
        data.ApplyTo(joint);
        tessara::CCurveParts cloudPoints({});
        tessara::CCurveParts shadow({});
        for (const tessara::DIAGRAMPART& part : diagram.binodal.parts) {
            std::vector<double> y = part.y;
            std::transform(part.x.begin(), part.x.end(), y.begin(), y.begin(),
                           [](double dX, double dY) { return std::isnan(dX) ? dX : dY; });
            cloudPoints.Add(part.x, y, 0);
            y = part.y;
            std::transform(part.shadow.begin(), part.shadow.end(), y.begin(), y.begin(),
                           [](double dX, double dY) { return std::isnan(dX) ? dX : dY; });
            shadow.Add(part.shadow, y, 0);
        }
        const auto pCloudPoints = cloudPoints.MakeTable(1);
        const auto pShadow = shadow.MakeTable(1);
        CDiagramProbe apart;
        apart.TakeShadowFrom(*pShadow);
        apart.TakeCloudPointsFrom(*pCloudPoints);
        EXPECT_EQ(Drawn(joint), Drawn(apart)) << pszBinodal;
    }
}

TEST(DiagramData, CutsElementsAtScalesAndZoom) {
    const std::string strScale = R"(,"x":{"scale":{"from":0,"to":2.5,"step":1}})";
    CDiagramData scaled(Diagram(CURVES + strScale));
    CDiagramProbe output;
    scaled.ApplyTo(output);
    EXPECT_EQ(output.CloudPointCurve(), "0: 1 10, 2 20, 2.5 25 | 2");
    EXPECT_EQ(output.Spinodal(), "0: 1 10, 2.5 25 | 1");
    EXPECT_EQ(output.CountCriticalPoints(), 1);
    EXPECT_EQ(output.CountMultiphasePoints(), 0);
    CDiagramData zoomed(Diagram(CURVES + strScale + R"(,"zoom":{"x":[1.5,9],"y":[0,32]})"));
    zoomed.ApplyTo(output);
    EXPECT_EQ(output.CloudPointCurve(), "0: 1.5 15, 2 20, 3 30 | 1: 3 30 | 2");
    EXPECT_EQ(output.CountMultiphasePoints(), 1);
}

TEST(DiagramData, KeepsACurveOfWhichNothingIsShownWithoutALabel) {
    CDiagramData data(Diagram(CURVES + std::string(R"(,"zoom":{"x":[8,10],"y":[8,10]})")));
    CDiagramProbe output;
    data.ApplyTo(output);
    EXPECT_EQ(output.CloudPointCurve(), "2");
    EXPECT_EQ(output.ShadowCurve(), "2");
    EXPECT_EQ(output.Spinodal(), "2");
    CDC nowhere;
    output.Paint(&nowhere, {0, 0, 512, 368}, nullptr);
    EXPECT_EQ(output.CountLabels(), 0);
}

TEST(DiagramData, RefusesARegionWithoutAnything) {
    EXPECT_THROW(CDiagramData(Diagram(CURVES + std::string(R"(,"zoom":{"x":[10,11],"y":[8,10]})"))),
                 CException);
    EXPECT_NO_THROW(CDiagramData(Diagram(R"("zoom":{"x":[10,11],"y":[8,10]})")));
}

} // namespace
