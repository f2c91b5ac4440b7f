#include <gtest/gtest.h>

#include "cli/DiagramData.h"
#include "tessara/platform/gdi/DC.h"
#include "tests/cli/Outcome.h"

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
