#include <fstream>

#include <gmock/gmock.h>

#include "cli/DiagramFile.h"
#include "cli/InputError.h"
#include "cli/TextPlace.h"
#include "tests/cli/Diagrams.h"

using tessara::DIAGRAM;
using tessara::DIAGRAMPART;
using tessara::ParseDiagram;
using testing::ElementsAre;
using testing::IsNan;

namespace {

/// The message without the file's name.
std::string Refusal(const std::string& strText) {
    try {
        ParseDiagram(strText, "d");
        return "accepted";
    } catch (const tessara::CInputError& error) {
        return std::string(error.what()).substr(2);
    }
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
    EXPECT_EQ(diagram.x.symbol, "f~G");
    EXPECT_EQ(diagram.x.format, "%.4lf");
    ASSERT_TRUE(diagram.x.scale && diagram.y.scale);
    EXPECT_EQ(diagram.x.scale->dTo, 0.4);
    EXPECT_EQ(diagram.x.scale->nExponent, -1);
    EXPECT_EQ(diagram.y.scale->dFrom, 260);
    EXPECT_EQ(diagram.y.scale->dStep, 10);
    EXPECT_EQ(diagram.y.scale->nExponent, 0);
    EXPECT_THAT(diagram.critical.y, ElementsAre(290));
    EXPECT_THAT(diagram.lifshitz.x, ElementsAre(0.2, 0.25));
    EXPECT_THAT(diagram.lifshitz.y, ElementsAre(270, 275));
    EXPECT_THAT(diagram.multiphase.x, ElementsAre());
    ASSERT_TRUE(diagram.zoom);
    EXPECT_EQ(diagram.zoom->dXMin, 0.05);
    EXPECT_EQ(diagram.zoom->dYMax, 295);
    EXPECT_EQ(diagram.leftBoundary, 0.01);
    EXPECT_EQ(diagram.rightBoundary, 0.3);
    EXPECT_TRUE(diagram.bLegend && !diagram.bCaption && diagram.bMonochrome && diagram.bMultiphasePoints);
}

TEST(DiagramFile, ReadsPartsWithTheirBranchesAndGaps) {
    const DIAGRAM diagram = ParseDiagram(FULL_DIAGRAM, "d");
    const std::vector<DIAGRAMPART>& parts = diagram.binodal.parts;
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_TRUE(diagram.binodal.HasBranches());
    EXPECT_EQ(parts[0].nColor, 0);
    EXPECT_THAT(parts[0].shadow, ElementsAre(0.1, IsNan(), 0.04));
    EXPECT_THAT(parts[0].columns.at("sigma"), ElementsAre(1, 2, IsNan()));
    EXPECT_EQ(parts[1].nColor, 1);
    EXPECT_THAT(parts[1].x, ElementsAre(0.2, IsNan(), 0.25, 0.3));
    EXPECT_THAT(parts[1].y, ElementsAre(285, 10, 280, 270));
    EXPECT_THAT(parts[1].shadow, ElementsAre());
    ASSERT_EQ(diagram.spinodal.parts.size(), 2U);
    EXPECT_EQ(diagram.spinodal.parts[1].nColor, 3);
}

TEST(DiagramFile, NeedsNothingButItsHeader) {
    const DIAGRAM diagram = ParseDiagram(File(""), "d");
    EXPECT_TRUE(diagram.bLegend && diagram.bCaption && !diagram.bMonochrome && !diagram.bMultiphasePoints);
    EXPECT_FALSE(diagram.name || diagram.zoom || diagram.x.scale || diagram.leftBoundary);
    const DIAGRAM curve = ParseDiagram(File(R"("spinodal":[{"y":[],"x":[]}],"binodal":[])"), "d");
    EXPECT_FALSE(curve.spinodal.HasBranches());
    EXPECT_EQ(curve.spinodal.parts.size(), 1U);
    EXPECT_EQ(curve.binodal.parts.size(), 0U);
}

/// The first indented block of a page that is an object.
std::string ExampleOf(const std::string& strPath) {
    std::ifstream page(strPath);
    std::string strExample;
    for (std::string strLine; std::getline(page, strLine);) {
        if (strLine == "    {" || (!strExample.empty() && strLine.starts_with("    "))) {
            strExample += strLine.substr(4) + "\n";
        } else if (!strExample.empty()) {
            break;
        }
    }
    return strExample;
}

TEST(DiagramFile, ReadsTheExampleOfItsDescription) {
    const DIAGRAM diagram = ParseDiagram(ExampleOf(TESSARA_DOCUMENTS "/diagram-format.md"), "d");
    EXPECT_EQ(diagram.binodal.parts.size(), 2U);
    EXPECT_EQ(diagram.lifshitz.x.size(), 1U);
    EXPECT_TRUE(diagram.zoom && diagram.x.scale && diagram.slide && diagram.rightBoundary);
}

TEST(DiagramFile, NamesThePlaceOfWhatIsWrong) {
    const struct {
        const char* pszMembers;
        const char* pszMessage;
    } cases[] = {
        {R"("names":1)",
         "1:45: /names: the key is unknown; known are format, version, note, name, slide, x, y, "
         "binodal, spinodal, critical, lifshitz, multiphase, zoom, boundaries, legend, caption, "
         "monochrome, multiphasePoints"},
        {R"("x":{"a~/b":1})", "1:50: /x/a~0~1b: the key is unknown; known are symbol, format, scale"},
        {R"("name":"a","name":"b")", "1:56: /name: the key appears twice"},
        {R"("name":null)", "1:52: /name: must be a text, not null"},
        {R"("name":"a\nb")", "1:52: /name: must have no line breaks and other control characters"},
        {R"("name":"a\u0000b")", "1:52: /name: must have no line breaks and other control characters"},
        {R"("legend":1)", "1:54: /legend: must be true or false, not a number"},
        {R"("legend":"yes")", "1:54: /legend: must be true or false, not a text"},
        {R"("x":[])", "1:49: /x: must be an object, not a list"},
        {R"("x":{"format":"%s"})", "1:59: /x/format: must be a printf format for one number"},
        {R"("x":{"scale":{"from":1,"to":2}})", R"(1:58: /x/scale: "step" is missing)"},
        {R"("x":{"scale":{"from":1,"to":1,"step":1}})", R"(1:58: /x/scale: "from" must be below "to")"},
        {R"("x":{"scale":{"from":1,"to":2,"step":0}})", R"(1:58: /x/scale: "step" must be above 0)"},
        {R"("x":{"scale":{"from":-1e308,"to":1e308,"step":1}})", "1:58: /x/scale: more than 200 steps"},
        {R"("x":{"scale":{"from":0,"to":2,"step":1,"exponent":0.5}})",
         R"(1:58: /x/scale: "exponent" must be a whole number from -8 to 8)"},
        {R"("binodal":{})", "1:55: /binodal: must be a list of parts, not an object"},
        {R"("binodal":[3])", "1:56: /binodal/0: must be an object, not a number"},
        {R"("binodal":[{"x":[1]}])", R"(1:56: /binodal/0: "y" is missing)"},
        {R"("binodal":[{"x":[1],"y":[1, 2]}])", R"(1:56: /binodal/0: "y" has 2 numbers, "x" has 1)"},
        {R"("binodal":[{"x":[1],"y":[1],"shadow":[1,2]}])",
         R"(1:56: /binodal/0: "shadow" has 2 numbers, "x" has 1)"},
        {R"("binodal":[{"x":[1],"y":[1],"columns":{"s":[]}}])",
         R"(1:56: /binodal/0: "s" has 0 numbers, "x" has 1)"},
        {R"("binodal":[{"x":[1, 2,"3"]}])", "1:67: /binodal/0/x/2: must be a number or null, not a text"},
        {R"("binodal":[{"x":[1,[2]]}])", "1:64: /binodal/0/x/1: must be a number or null, not a list"},
        {R"("binodal":[{"x":[],"y":[]},{"branch":"stable"}])",
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
        {R"("critical":[1,2])", "1:57: /critical/0: must be [x, y], not a number"},
        {R"("critical":[[1,null]])", "1:60: /critical/0/1: must be a number, not null"},
        {R"("zoom":{"x":[1,2]})", R"(1:52: /zoom: "y" is missing)"},
        {R"("zoom":{"x":[2,2]})", "1:57: /zoom/x: the first number must be below the second"},
        {R"("boundaries":{"left":false})", "1:66: /boundaries/left: must be a number, not false"},
        {R"("critical":[[1e999,0]])", R"(1:58: /critical/0/0: "1e999" is beyond all numbers)"},
    };
    for (const auto& bad : cases) {
        EXPECT_EQ(Refusal(File(bad.pszMembers)), bad.pszMessage);
    }
}

TEST(DiagramFile, NamesThePlaceOfASyntaxError) {
    const struct {
        std::string strText;
        const char* pszMessage;
    } cases[] = {
        {"{",
         "1:2: syntax error while parsing object key - unexpected end of input; expected string literal"},
        {"x", "1:1: syntax error while parsing value - invalid literal"},
        {File(R"("critical":[[NaN,1]])"), "1:58: syntax error while parsing value - invalid literal"},
        {File(R"("critical":[[-Infinity,1]])"),
         "1:59: syntax error while parsing value - invalid number; expected digit after '-'"},
        {File(R"("critical":[[1,2],])"), "1:63: syntax error while parsing value - unexpected ']'; expected "
                                         "'[', '{', or a literal"},
        {File("") + "\n }", "2:2: syntax error while parsing value - unexpected '}'; expected end of input"},
        {"{\n  // comment\n}",
         "2:3: syntax error while parsing object key - invalid literal; expected string literal"},
        {"{\"format\": \"\xFF\"}",
         "1:13: syntax error while parsing value - invalid string: ill-formed UTF-8 byte"},
        {"{\"format\": \"tess\nara\"}", "1:17: syntax error while parsing value - invalid string: control "
                                        "character U+000A (LF) must be escaped "
                                        "to \\u000A or \\n"},
    };
    for (const auto& bad : cases) {
        EXPECT_EQ(Refusal(bad.strText), bad.pszMessage);
    }
}

TEST(DiagramFile, CountsLinesAndCharacters) {
    const std::string strText = "a\r\nb\rc\nd\xC3\xA4\xE2\x82\xACx";
    const struct {
        std::size_t nOffset;
        int nLine;
        int nColumn;
    } cases[] = {{0, 1, 1}, {3, 2, 1}, {5, 3, 1}, {7, 4, 1}, {8, 4, 2}, {10, 4, 3}, {13, 4, 4}, {99, 4, 5}};
    for (const auto& place : cases) {
        const tessara::TEXTPLACE found = tessara::PlaceIn(strText, place.nOffset);
        EXPECT_EQ(found.nLine, place.nLine) << place.nOffset;
        EXPECT_EQ(found.nColumn, place.nColumn) << place.nOffset;
    }
    EXPECT_EQ(
        Refusal("{\"format\":\"tessara-diagram\", \"version\":1,\r\n\"name\":\"\xC3\xA4\",\"slide\":1}"),
        "2:20: /slide: must be a text, not a number");
}

TEST(DiagramFile, SaysFirstWhenAFileIsOfAnotherKindOrNewer) {
    const struct {
        const char* pszText;
        const char* pszMessage;
    } cases[] = {
        {"[]", "1:1: must be an object, not a list"},
        {"{}", R"(1:1: "format" is missing)"},
        {R"({"type":"chart"})", R"(1:1: "format" is missing)"},
        {R"({"type":1,"format":"chart"})", R"(1:20: /format: must be "tessara-diagram")"},
        {R"({"format":"tessara-diagram"})", R"(1:1: "version" is missing)"},
        {R"({"format":"tessara-diagram","version":"1"})", "1:39: /version: must be a number, not a text"},
        {R"({"format":"tessara-diagram","version":0})", "1:39: /version: must be a whole number from 1"},
        {R"({"format":"tessara-diagram","version":1.5})", "1:39: /version: must be a whole number from 1"},
        {R"({"binodal":"new","format":"tessara-diagram","tie-lines":[[[]]],"version":2})",
         "1:74: /version: version 2 is newer than this program, which reads version 1"},
    };
    for (const auto& file : cases) {
        EXPECT_EQ(Refusal(file.pszText), file.pszMessage);
    }
}

TEST(DiagramFile, BearsDepthAndLength) {
    const std::string strDeep(1000000, '[');
    EXPECT_EQ(Refusal(strDeep), "1:1: must be an object, not a list");
    EXPECT_THAT(Refusal(File("\"note\":" + strDeep)), testing::EndsWith(": lies more than 64 levels deep"));
    EXPECT_EQ(Refusal(File("\"name\":\"" + std::string(1001, 'a') + "\"")),
              "1:52: /name: must be at most 1000 bytes long");
    std::string strNumbers;
    for (int i = 0; i < 200000; i++) {
        strNumbers += i % 2 ? ",0.5" : ",null";
    }
    const std::string strColumn = "[0" + strNumbers + "]";
    const DIAGRAM diagram =
        ParseDiagram(File("\"spinodal\":[{\"x\":" + strColumn + ",\"y\":" + strColumn + "}]"), "d");
    EXPECT_EQ(diagram.spinodal.parts[0].x.size(), 200001U);
    EXPECT_EQ(diagram.spinodal.parts[0].y.back(), 0.5);
}

} // namespace
