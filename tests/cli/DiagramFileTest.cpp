#include <fstream>

#include <gmock/gmock.h>

#include "cli/DiagramFile.h"
#include "cli/TextPlace.h"
#include "tests/cli/Diagrams.h"
#include "tests/cli/Outcome.h"

using tessara::DIAGRAM;
using tessara::DIAGRAMPART;
using tessara::ParseDiagram;
using testing::ElementsAre;
using testing::IsNan;

namespace {

/// The message without the file's name.
std::string Outcome(const std::string& strText) {
    const std::string strMessage = Refusal([&] { ParseDiagram(strText, "d"); });
    return strMessage.starts_with("d:") ? strMessage.substr(2) : strMessage;
}

/// A file on one line whose members follow a header of 43 characters.
std::string File(const std::string& strMembers) {
    return R"({"format":"tessara-diagram","version":1    )" + (strMembers.empty() ? "" : "," + strMembers) +
           "}";
}

TEST(DiagramFile, ReadsEveryKey) {
    const DIAGRAM diagram = ParseDiagram(FULL_DIAGRAM, "d");
    EXPECT_EQ(diagram.name, "Polystyrene in cyclohexane");
    EXPECT_EQ(diagram.slide, "M~Nw~L");
    EXPECT_TRUE(diagram.x.symbol == "f~G" && diagram.x.format == "%.4lf");
    EXPECT_TRUE(diagram.y.symbol == "T~i" && diagram.y.format == "%.1lf");
    const auto scale = [](const tessara::DIAGRAMAXIS& axis) {
        return std::vector<double>{axis.scale->dFrom, axis.scale->dTo, axis.scale->dStep,
                                   1.0 * axis.scale->nExponent};
    };
    EXPECT_THAT(scale(diagram.x), ElementsAre(0, 0.4, 0.1, -1));
    EXPECT_THAT(scale(diagram.y), ElementsAre(260, 300, 10, 0));
    EXPECT_THAT(diagram.critical.y, ElementsAre(290));
    EXPECT_THAT(diagram.lifshitz.x, ElementsAre(0.2, 0.25));
    EXPECT_THAT(diagram.lifshitz.y, ElementsAre(270, 275));
    EXPECT_THAT(diagram.multiphase.x, ElementsAre());
    EXPECT_TRUE(diagram.zoom->dXMin == 0.05 && diagram.zoom->dXMax == 0.25);
    EXPECT_TRUE(diagram.zoom->dYMin == 262 && diagram.zoom->dYMax == 295);
    EXPECT_TRUE(diagram.leftBoundary == 0.01 && diagram.rightBoundary == 0.3);
    EXPECT_TRUE(diagram.bLegend && !diagram.bCaption && diagram.bMonochrome && diagram.bMultiphasePoints);
    const std::vector<DIAGRAMPART>& parts = diagram.binodal.parts;
    EXPECT_THAT(parts[0].shadow, ElementsAre(0.1, IsNan(), 0.04));
    EXPECT_THAT(parts[0].columns.at("sigma"), ElementsAre(1, 2, IsNan()));
    EXPECT_THAT(parts[1].x, ElementsAre(0.2, IsNan(), 0.25, 0.3));
    EXPECT_THAT(parts[1].y, ElementsAre(285, 10, 280, 270));
    EXPECT_TRUE(diagram.binodal.HasBranches() && parts[0].nColor == 0 && parts[1].nColor == 1);
    EXPECT_EQ(diagram.spinodal.parts[1].nColor, 3);
}

TEST(DiagramFile, NeedsNothingButItsHeader) {
    const DIAGRAM diagram = ParseDiagram(File(""), "d");
    EXPECT_TRUE(diagram.bLegend && diagram.bCaption && !diagram.bMonochrome && !diagram.bMultiphasePoints);
    EXPECT_FALSE(diagram.name || diagram.zoom || diagram.x.scale || diagram.leftBoundary);
    const DIAGRAM curve = ParseDiagram(File(R"("spinodal":[{"y":[],"x":[]}],"binodal":[])"), "d");
    EXPECT_FALSE(curve.spinodal.HasBranches());
    EXPECT_EQ(curve.spinodal.parts.size(), 1U);
}

TEST(DiagramFile, ReadsTheExampleOfItsDescription) {
    std::ifstream page(TESSARA_DOCUMENTS "/diagram-format.md");
    std::string strLine, strExample; // the first indented block that is an object
    while (std::getline(page, strLine) && (strExample.empty() || strLine.starts_with("    "))) {
        if (strLine == "    {" || !strExample.empty()) {
            strExample += strLine.substr(4) + "\n";
        }
    }
    const DIAGRAM diagram = ParseDiagram(strExample, "d");
    EXPECT_EQ(diagram.binodal.parts.size(), 2U);
    EXPECT_TRUE(diagram.zoom && diagram.x.scale && diagram.slide && diagram.rightBoundary);
}

TEST(DiagramFile, NamesThePlaceOfWhatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {R"("x":{"a~/b":1})", "1:50: /x/a~0~1b: the key is unknown; known are symbol, format, scale"},
        {R"("name":"a","name":"b")", "1:56: /name: the key appears twice"},
        {R"("name":null)", "1:52: /name: must be a text, not null"},
        {R"("name":"a\u0000b")", "1:52: /name: must have no line breaks and other control characters"},
        {R"("legend":1)", "1:54: /legend: must be true or false, not a number"},
        {R"("x":[])", "1:49: /x: must be an object, not a list"},
        {R"("x":{"format":"%s"})", "1:59: /x/format: must be a printf format for one number"},
        {R"("x":{"scale":{"from":1,"to":2}})", R"(1:58: /x/scale: "step" is missing)"},
        {R"("x":{"scale":{"from":1,"to":1,"step":1}})", R"(1:58: /x/scale: "from" must be below "to")"},
        {R"("binodal":{})", "1:55: /binodal: must be a list of parts, not an object"},
        {R"("binodal":[3])", "1:56: /binodal/0: must be an object, not a number"},
        {R"("binodal":[{"x":[1],"y":[1, 2]}])", R"(1:56: /binodal/0: "y" has 2 numbers, "x" has 1)"},
        {R"("binodal":[{"x":[1],"y":[1],"shadow":[1,2]}])",
         R"(1:56: /binodal/0: "shadow" has 2 numbers, "x" has 1)"},
        {R"("binodal":[{"x":[1],"y":[1],"columns":{"s":[]}}])",
         R"(1:56: /binodal/0: "s" has 0 numbers, "x" has 1)"},
        {R"("binodal":[{"x":[1, 2,"3"]}])", "1:67: /binodal/0/x/2: must be a number or null, not a text"},
        {R"("binodal":[{"x":[],"y":[]},{"branch":"a"}])",
         R"(1:82: /binodal/1/branch: must be "physical" or "non-physical")"},
        {R"("spinodal":[{"branch":"physical"}])",
         R"(1:67: /spinodal/0/branch: must be "trivial" or "nontrivial")"},
        {R"("spinodal":[{"shadow":[]}])",
         "1:58: /spinodal/0/shadow: the key is unknown; known are branch, color, x, y, columns"},
        {R"("spinodal":[{"color":6}])", "1:66: /spinodal/0/color: must be a whole number from 0 to 5"},
        {R"("spinodal":[{"color":1,"branch":"trivial"}])",
         R"(1:77: /spinodal/0/branch: "branch" and "color" exclude each other)"},
        {R"("spinodal":[{"color":1,"x":[],"y":[]},{"x":[],"y":[]}])",
         R"(1:56: /spinodal: either all parts or none must have a "branch" or "color")"},
        {R"("critical":[[1,2],[1,2,3]])", "1:63: /critical/1: must be [x, y], not a list of 3"},
        {R"("critical":[[1,null]])", "1:60: /critical/0/1: must be a number, not null"},
        {R"("critical":[[1e999,0]])", R"(1:58: /critical/0/0: "1e999" is beyond all numbers)"},
        {R"("critical":[[NaN,1]])", "1:58: syntax error while parsing value - invalid literal"},
        {R"("zoom":{"x":[1,2]})", R"(1:52: /zoom: "y" is missing)"},
        {R"("zoom":{"x":[2,2]})", "1:57: /zoom/x: the first number must be below the second"},
    };
    for (const auto& [pszMembers, pszMessage] : cases) {
        EXPECT_EQ(Outcome(File(pszMembers)), pszMessage);
    }
}

TEST(DiagramFile, SaysFirstWhenAFileIsOfAnotherKindOrNewerOrHasNoSyntax) {
    const std::pair<std::string, const char*> cases[] = {
        {"[]", "1:1: must be an object, not a list"},
        {R"({"type":"chart"})", R"(1:1: "format" is missing)"},
        {R"({"type":1,"format":"chart"})", R"(1:20: /format: must be "tessara-diagram")"},
        {R"({"format":"tessara-diagram"})", R"(1:1: "version" is missing)"},
        {R"({"format":"tessara-diagram","version":0})", "1:39: /version: must be a whole number from 1"},
        {R"({"format":"tessara-diagram","version":1.5})", "1:39: /version: must be a whole number from 1"},
        {R"({"binodal":"new","format":"tessara-diagram","tie-lines":[[[]]],"version":2})",
         "1:74: /version: version 2 is newer than this program, which reads version 1"},
        {"x", "1:1: syntax error while parsing value - invalid literal"},
        {File("") + "\n }", "2:2: syntax error while parsing value - unexpected '}'; expected end of input"},
        {"{\"format\": \"\xFF\"}",
         "1:13: syntax error while parsing value - invalid string: ill-formed UTF-8 byte"},
    };
    for (const auto& [strText, pszMessage] : cases) {
        EXPECT_EQ(Outcome(strText), pszMessage);
    }
}

TEST(DiagramFile, CountsLinesAndCharacters) {
    const std::string strText = "a\r\nb\rc\nd\xC3\xA4\xE2\x82\xACx";
    const std::size_t cases[][3] = {{0, 1, 1}, {3, 2, 1},  {5, 3, 1},  {7, 4, 1},
                                    {8, 4, 2}, {10, 4, 3}, {13, 4, 4}, {99, 4, 5}};
    for (const auto& [nOffset, nLine, nColumn] : cases) {
        const tessara::TEXTPLACE found = tessara::PlaceIn(strText, nOffset);
        EXPECT_EQ(static_cast<std::size_t>(found.nLine), nLine) << nOffset;
        EXPECT_EQ(static_cast<std::size_t>(found.nColumn), nColumn) << nOffset;
    }
    EXPECT_EQ(
        Outcome("{\"format\":\"tessara-diagram\", \"version\":1,\r\n\"name\":\"\xC3\xA4\",\"slide\":1}"),
        "2:20: /slide: must be a text, not a number");
}

TEST(DiagramFile, BearsDepthAndLength) {
    const std::string strDeep(1000000, '[');
    EXPECT_EQ(Outcome(strDeep), "1:1: must be an object, not a list");
    EXPECT_THAT(Outcome(File("\"note\":" + strDeep)), testing::EndsWith(": lies more than 64 levels deep"));
    EXPECT_EQ(Outcome(File("\"name\":\"" + std::string(1001, 'a') + "\"")),
              "1:52: /name: must be at most 1000 bytes long");
    std::string strNumbers = "[0";
    for (int i = 0; i < 200000; i++) {
        strNumbers += i % 2 ? ",0.5" : ",null";
    }
    const DIAGRAM diagram =
        ParseDiagram(File("\"spinodal\":[{\"x\":" + strNumbers + "],\"y\":" + strNumbers + "]}]"), "d");
    EXPECT_EQ(diagram.spinodal.parts[0].x.size(), 200001U);
    EXPECT_EQ(diagram.spinodal.parts[0].y.back(), 0.5);
}

} // namespace
