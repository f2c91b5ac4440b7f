#include "cli/DiagramText.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/Diagrams.h"

using tessara::DIAGRAM;
using tessara::DiagramText;
using tessara::ParseDiagram;

namespace {

TEST(DiagramText, IsReadAsTheSameDiagram) {
    const DIAGRAM diagram = ParseDiagram(FULL_DIAGRAM, "full");
    const std::string strText = DiagramText(diagram, {});
    const DIAGRAM again = ParseDiagram(strText, "again");
    EXPECT_EQ(DiagramText(again, {}), strText);
    EXPECT_EQ(again.slide, diagram.slide);
    EXPECT_EQ(again.x.scale->nExponent, -1);
    EXPECT_EQ(again.y.format, diagram.y.format);
    EXPECT_EQ(again.binodal.parts[0].columns.at("sigma")[1], 2);
    EXPECT_TRUE(std::isnan(again.binodal.parts[0].shadow[1]));
    EXPECT_EQ(again.binodal.parts[1].nColor, 1);
    EXPECT_EQ(again.spinodal.parts[1].nColor, 3);
    EXPECT_EQ(again.lifshitz.y, diagram.lifshitz.y);
    EXPECT_EQ(again.zoom->dYMax, 295);
    EXPECT_EQ(again.rightBoundary, 0.3);
    EXPECT_FALSE(again.bCaption);
    EXPECT_TRUE(again.bMonochrome && again.bMultiphasePoints && again.bLegend);
}

TEST(DiagramText, KeepsEveryDigitAndWritesGapsForWhatIsNotFinite) {
    DIAGRAM diagram;
    const std::vector<double> values = {1. / 3, 0.1 + 0.2, 5e-324, 1.7976931348623157e308, -0.0};
    diagram.spinodal.parts.resize(1);
    diagram.spinodal.parts[0].x = values;
    diagram.spinodal.parts[0].y = {NAN, INFINITY, -INFINITY, 1, 2};
    const DIAGRAM again = ParseDiagram(DiagramText(diagram, {}), "again");
    EXPECT_EQ(again.spinodal.parts.at(0).x, values);
    EXPECT_TRUE(std::isnan(again.spinodal.parts[0].y[1]) && std::isnan(again.spinodal.parts[0].y[2]));
    EXPECT_FALSE(again.spinodal.parts[0].bHasColor);
}

TEST(DiagramText, HoldsTheNoteAndAnyBytesOfTexts) {
    DIAGRAM diagram;
    diagram.name = "a \"quoted\" \\ \xFF name";
    const std::string strText = DiagramText(diagram, {"first", "second"});
    EXPECT_THAT(strText, testing::HasSubstr("\"note\": [\"first\",\"second\"]"));
    EXPECT_EQ(ParseDiagram(strText, "again").name, "a \"quoted\" \\ \xEF\xBF\xBD name");
}

} // namespace
