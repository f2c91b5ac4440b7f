#include <gmock/gmock.h>

#include "tests/cli/CommandFixture.h"

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* EXAMPLE = TESSARA_EXAMPLE_DATA "/ps_cyclohexane_diagram.json";

class DiagramCommand : public CCommandFixture {
protected:
    DiagramCommand() : CCommandFixture("diagram") {}
};

TEST_F(DiagramCommand, DrawsTheExampleInEachFormat) {
    ExpectEachFormat({EXAMPLE, "--size", "640x460"});
}

TEST_F(DiagramCommand, NamesFileLineAndCharacter) {
    m_folder.Write("bad.json",
                   "{\"format\": \"tessara-diagram\", \"version\": 1,\n \"critical\": [[1, true]]}");
    ExpectRefused({"@bad.json", "-o", "@out.png"},
                  m_folder.Path("bad.json") + ":2:19: /critical/0/1: must be a number, not true\n");
}

TEST_F(DiagramCommand, RefusesWithOneLine) {
    m_folder.Write("nul.json", std::string("{\0}", 3));
    m_folder.Write("empty.json", "");
    const struct {
        std::vector<std::string> arguments;
        const char* pszMessage;
    } cases[] = {
        {{}, "FILE is required"},
        {{EXAMPLE}, "--output is required"},
        {{EXAMPLE, EXAMPLE, "-o", "@out.png"}, "ps_cyclohexane_diagram.json"},
        {{"@none.json", "-o", "@out.png"}, "none.json: cannot be read: No such file or directory"},
        {{"@", "-o", "@out.png"}, ": is a folder, not a file"},
        {{"@nul.json", "-o", "@out.png"}, "nul.json: holds binary data (a NUL byte), not text"},
        {{"@empty.json", "-o", "@out.png"}, "empty.json: is empty"},
        {{"@none.json", "-o", "@out.gif"}, "out.gif: the name must end with"},
        {{EXAMPLE, "-o", "@none/out.png"}, "none/out.png: cannot be written: its folder does not exist"},
        {{"@none.json", "-o", "@out.png", "--size", "big"}, "--size: \"big\" is not a size"},
        {{"@none.json", "-o", "@out.png", "--zoom", "1:2:3"},
         "--zoom: \"1:2:3\" is not a region X1:Y1:X2:Y2"},
        {{"@none.json", "-o", "@out.png", "--zoom", "1:2:1:3"}, "--zoom: \"1:2:1:3\" is not a region"},
        {{"@none.json", "-o", "@out.png", "--zoom", "1:2:x:3"}, "--zoom: \"x\" is not a number"},
        {{"@none.json", "-o", "@out.png", "--x-scale", "1:0:1"}, "--x-scale: FROM must be below TO"},
        {{"@none.json", "-o", "@out.png", "--zoom", "1:2:3:4", "--y-scale", "1:2:1"}, "exclude each other"},
        {{EXAMPLE, "-o", "@out.png", "--zoom", "1:2:3:4"}, "nothing of the diagram lies within"},
    };
    for (const auto& refused : cases) {
        ExpectRefused(refused.arguments, refused.pszMessage);
    }
}

TEST_F(DiagramCommand, DrawsWhatTheOptionsAskFor) {
    ExpectEachChanges({EXAMPLE, "-o", "@out.svg"}, {{"--name", "Caption"},
                                                    {"--slide", "M~N"},
                                                    {"--zoom", "0.05:280:0.15:290"},
                                                    {"--x-scale", "0:0.5:0.1"},
                                                    {"--y-scale", "280:290:2"},
                                                    {"--multiphase-points"},
                                                    {"--no-legend"},
                                                    {"--no-caption"},
                                                    {"--monochrome"}});
}

TEST_F(DiagramCommand, PutsOptionsBeforeTheFile) {
    const std::string strMembers = R"("name":"Of the file","x":{"scale":{"from":0,"to":8,"step":4}},
        "zoom":{"x":[1,3],"y":[2,5]},"critical":[[2,3],[7,3]]})";
    const auto draw = [&](std::vector<std::string> arguments) {
        m_folder.Write("c.json", R"({"format":"tessara-diagram","version":1,)" + strMembers);
        arguments.insert(arguments.begin(), {"@c.json", "-o", "@out.svg"});
        EXPECT_EQ(Run(arguments).nExitCode, 0);
        return m_folder.Read("out.svg");
    };
    EXPECT_THAT(draw({}), HasSubstr("Of the file"));
    EXPECT_THAT(draw({"--name", "Of the option"}), Not(HasSubstr("Of the file")));
    EXPECT_TRUE(draw({}) == draw({"--zoom", "3:5:1:2"}));
    EXPECT_TRUE(draw({}) != draw({"--y-scale", "2:5:1"})) << "a scale ends the zoom";
    EXPECT_TRUE(draw({"--y-scale", "2:5:1"}) == draw({"--y-scale", "2:5:1", "--x-scale", "0:8:4"}));
}

TEST_F(DiagramCommand, TakesTheCaptionFromTheFilesName) {
    m_folder.Write("blend.v2.json", R"({"format":"tessara-diagram","version":1})");
    EXPECT_EQ(Run({"@blend.v2.json", "-o", "@out.svg"}).nExitCode, 0);
    EXPECT_THAT(m_folder.Read("out.svg"), HasSubstr("blend.v2<"));
    EXPECT_THAT(m_folder.Read("out.svg"), HasSubstr("No phase separation"));
}

TEST_F(DiagramCommand, DrawsBoundariesOnlyWhereTheAxisReaches) {
    const auto draw = [&](const std::string& strRegion, const std::string& strBoundaries) {
        m_folder.Write("b.json", R"({"format":"tessara-diagram","version":1,"critical":[[1,1],[2,2]],)" +
                                     strRegion + R"("boundaries":{)" + strBoundaries + "}}");
        EXPECT_EQ(Run({"@b.json", "-o", "@out.svg"}).nExitCode, 0);
        return m_folder.Read("out.svg");
    };
    for (const char* pszRegion :
         {"", R"("x":{"scale":{"from":0,"to":4,"step":1}},)", R"("zoom":{"x":[0.5,1.6],"y":[0,2]},)"}) {
        const std::string strPlain = draw(pszRegion, "");
        EXPECT_TRUE(draw(pszRegion, R"("left":-0.5,"right":4.5)") == strPlain) << pszRegion;
        EXPECT_TRUE(draw(pszRegion, R"("left":1.2)") != strPlain) << pszRegion;
        EXPECT_TRUE(draw(pszRegion, R"("right":1.5)") != strPlain) << pszRegion;
    }
}

} // namespace
