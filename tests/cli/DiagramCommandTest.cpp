#include <gmock/gmock.h>

#include "tests/cli/CommandFixture.h"

using testing::HasSubstr;
using testing::Not;

namespace {

const std::string EXAMPLE = TESSARA_EXAMPLE_DATA "/ps_cyclohexane_diagram.json";

/// Runs `tessara diagram`.
class DiagramCommand : public CCommandFixture {
protected:
    DiagramCommand() : CCommandFixture("diagram") {}

    /// The picture of a file with these members.
    std::string DrawFile(const std::string& strMembers, const std::string& strOptions = "") const {
        m_folder.Write("blend.v2.json", R"({"format":"tessara-diagram","version":1)" + strMembers + "}");
        return Draw("@blend.v2.json" + strOptions);
    }
};

TEST_F(DiagramCommand, DrawsTheExampleInEachFormat) {
    ExpectEachFormat(EXAMPLE + " --size 640x460");
}

TEST_F(DiagramCommand, SaysWhyAPictureCannotBeWritten) {
    ExpectRefusedOutputs(EXAMPLE + " -o", {".pdf", ".wmf", ".png", ".svg"});
}

TEST_F(DiagramCommand, RefusesWithOneLine) {
    m_folder.Write("nul.json", std::string("{\0}", 3));
    m_folder.Write("bad.json",
                   "{\"format\": \"tessara-diagram\", \"version\": 1,\n \"critical\": [[1, true]]}");
    const std::pair<std::string, std::string> cases[] = {
        {"", "FILE is required"},
        {EXAMPLE, "--output is required"},
        {EXAMPLE + " extra -o @out.png", "extra"},
        {"@none.json -o @out.png", "none.json: cannot be read: No such file or directory"},
        {"@nul.json -o @out.png", "nul.json: holds binary data (a NUL byte), not text"},
        {"@bad.json -o @out.png",
         m_folder.Path("bad.json") + ":2:19: /critical/0/1: must be a number, not true\n"},
        {"@none.json -o @out.gif", "out.gif: the name must end with"},
        {EXAMPLE + " -o @none/out.png", "none/out.png: cannot be written: its folder does not exist"},
        {"@none.json -o @out.png --size big", "--size: \"big\" is not a size"},
        {"@none.json -o @out.png --zoom 1:2:3", "--zoom: \"1:2:3\" is not a region X1:Y1:X2:Y2"},
        {"@none.json -o @out.png --zoom 1:2:1:3", "--zoom: \"1:2:1:3\" is not a region"},
        {"@none.json -o @out.png --zoom 1:2:x:3", "--zoom: \"x\" is not a number"},
        {"@none.json -o @out.png --x-scale 1:0:1", "--x-scale: FROM must be below TO"},
        {"@none.json -o @out.png --zoom 1:2:3:4 --y-scale 1:2:1", "exclude each other"},
        {EXAMPLE + " -o @out.png --zoom 1:2:3:4", "nothing of the diagram lies within"},
    };
    for (const auto& [strArguments, strMessage] : cases) {
        ExpectRefused(strArguments, strMessage);
    }
}

TEST_F(DiagramCommand, DrawsWhatTheOptionsAskFor) {
    ExpectEachChanges(EXAMPLE, {"--name Caption", "--slide M~N", "--zoom 0.05:280:0.15:290",
                                "--x-scale 0:0.5:0.1", "--y-scale 280:290:2", "--multiphase-points",
                                "--no-legend", "--no-caption", "--monochrome"});
}

TEST_F(DiagramCommand, PutsOptionsBeforeTheFile) {
    const auto draw = [&](const std::string& strOptions) {
        return DrawFile(R"(,"name":"Of the file","x":{"scale":{"from":0,"to":8,"step":4}},
            "zoom":{"x":[1,3],"y":[2,5]},"critical":[[2,3],[7,3]])",
                        strOptions);
    };
    EXPECT_THAT(draw(""), HasSubstr("Of the file"));
    EXPECT_THAT(draw(" --name Option"), Not(HasSubstr("Of the file")));
    EXPECT_TRUE(draw("") == draw(" --zoom 3:5:1:2"));
    EXPECT_TRUE(draw("") != draw(" --y-scale 2:5:1")) << "a scale ends the zoom";
    EXPECT_TRUE(draw(" --y-scale 2:5:1") == draw(" --y-scale 2:5:1 --x-scale 0:8:4"));
}

TEST_F(DiagramCommand, TakesTheCaptionFromTheFilesName) {
    EXPECT_THAT(DrawFile(""), testing::AllOf(HasSubstr("blend.v2<"), HasSubstr("No phase separation")));
}

TEST_F(DiagramCommand, DrawsBoundariesOnlyWhereTheAxisReaches) {
    for (const std::string strRegion :
         {"", R"("x":{"scale":{"from":0,"to":4,"step":1}},)", R"("zoom":{"x":[0.5,1.6],"y":[0,2]},)"}) {
        const std::string strPoints = R"(,"critical":[[1,1],[2,2]],)" + strRegion;
        const auto draw = [&](const char* pszBoundaries) {
            return DrawFile((strPoints + R"("boundaries":)").append(pszBoundaries));
        };
        EXPECT_TRUE(draw(R"({"left":-0.5,"right":4.5})") == draw("{}")) << strRegion;
        EXPECT_TRUE(draw(R"({"left":1.2})") != draw("{}")) << strRegion;
        EXPECT_TRUE(draw(R"({"right":1.5})") != draw("{}")) << strRegion;
    }
}

} // namespace
