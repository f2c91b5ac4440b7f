#include <gmock/gmock.h>

#include "tests/cli/CommandFixture.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// Runs `tessara plot` with a good file "d.txt" and a bad one.
class PlotCommand : public CCommandFixture {
protected:
    PlotCommand() : CCommandFixture("plot") {
        m_folder.Write("d.txt", "T,chi,phi\n21,0.51,0.13\n30,0.4,0.2\n38,0.45,0.3\n");
        m_folder.Write("bad.txt", "# note\n1 2 3\n4 5 abc\n");
    }
};

TEST_F(PlotCommand, RefusesWithOneLine) {
    const std::pair<const char*, std::string> cases[] = {
        {"", "--output is required"},
        {"-o @out.png", "a FILE or --symbols is required"},
        {"@d.txt -o @out.png --colour", "--colour"},
        {"@d.txt -o", "--output"},
        {"@d.txt -o ", "must end with .png, .svg, .pdf or .wmf"},
        {"@d.txt -o @out.gif", "out.gif: the name must end with .png, .svg, .pdf or .wmf"},
        {"@d.txt -o @none/out.png", "none/out.png: cannot be written: its folder does not exist"},
        {"@none.txt -o @out.png", "none.txt: cannot be read: No such file or directory"},
        {"@line\nbreak.txt -o @out.png", "line?break.txt: cannot be read"},
        {"@bad.txt -o @out.png", m_folder.Path("bad.txt") + ":3:3: \"abc\" is not a number\n"},
        {"@d.txt -o @out.png --size big", "--size: \"big\" is not a size"},
        {"@d.txt -o @out.png --dpi many", "--dpi"},
        {"@d.txt -o @out.png --dpi nan", "--dpi: must be 10 to 2400"},
        {"@d.txt -o @out.png --columns T,mass", "d.txt:1: no column is named \"mass\""},
        {"@d.txt -o @out.png --delimiter |", "--delimiter: \"|\" is not tab"},
        {"@d.txt -o @out.png --symbols-columns 1,2", "--symbols"},
        {"@d.txt -o @out.png --function-format %s", "--function-format: \"%s\" is not a printf format"},
        {"@d.txt -o @out.png --argument-format %f%n", "--argument-format: \"%f%n\" is not"},
        {"@d.txt -o @out.png --x-scale 40:20:5", "--x-scale: FROM must be below TO"},
        {"@d.txt -o @out.png --fit z", "--fit"},
        {"@d.txt -o @out.png --fit xy --y-scale 0:1:0.5", "--fit y and --y-scale exclude each other"},
    };
    for (const auto& [pszArguments, strMessage] : cases) {
        ExpectRefused(pszArguments, strMessage);
    }
}

TEST_F(PlotCommand, SaysWhyAPictureCannotBeWritten) {
    ExpectRefusedOutputs("@d.txt -o", {".png", ".svg", ".pdf", ".wmf"});
}

TEST_F(PlotCommand, WritesEachFormatWholeAndNothingElse) {
    ExpectEachFormat("@d.txt --size 640x460");
    EXPECT_THAT(m_folder.Read("out.png").substr(16), StartsWith(std::string("\0\0\x02\x80\0\0\x01\xCC", 8)));
}

TEST_F(PlotCommand, KeepsTheOldPictureWhenTheNewOneDoesNotFit) {
    for (const std::string strFile : {"out.png", "out.svg", "out.pdf", "out.wmf"}) {
        m_folder.Write(strFile, "old");
        const std::vector<std::string> before = m_folder.List();
        const COMMANDRESULT result = Run("@d.txt -o @" + strFile, 1000);
        EXPECT_EQ(result.nExitCode, 2) << strFile;
        EXPECT_EQ(result.strErrors,
                  "tessara: " + m_folder.Path(strFile) + ": cannot be written: File too large\n");
        EXPECT_EQ(m_folder.Read(strFile), "old");
        EXPECT_EQ(m_folder.List(), before);
    }
}

TEST_F(PlotCommand, DrawsWhatTheOptionsAskFor) {
    m_folder.Write("s.txt", "T mass chi\n25 a 0.45\n35 b 0.42\n");
    EXPECT_THAT(Draw("@d.txt"), HasSubstr("chi, phi"));
    ExpectEachChanges("@d.txt", {"--columns 1,2", "--symbols @s.txt --symbols-columns T,chi",
                                 "--name Caption", "--symbol c~G", "--argument-symbol K~N", "--slide M~N",
                                 "--x-scale 25:35:5", "--y-scale -1:2:0.5", "--fit xy", "--diagonal",
                                 "--no-legend", "--no-caption", "--monochrome"});
    EXPECT_THAT(Draw("--symbols @d.txt"), HasSubstr("</svg>")) << "markers alone";
}

TEST_F(PlotCommand, TakesTheWholeWidthUnlessSomethingStandsBeside) {
    const std::string strTitle = "@d.txt --columns 1,2 --argument-symbol T";
    EXPECT_TRUE(Draw(strTitle + "~N --no-legend") == Draw(strTitle + "~N"));
    EXPECT_TRUE(Draw(strTitle + "emperature~N --no-legend") != Draw(strTitle + "emperature~N"));
    m_folder.Write("long.txt", "T," + std::string(200, 'W') + "\n1,2\n3,4\n");
    EXPECT_THAT(Draw("@long.txt"),
                testing::AllOf(HasSubstr("WW..."), testing::Not(HasSubstr(std::string(200, 'W')))));
}

TEST(Command, AsksForASubcommandAndShowsVersionAndHelp) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"paint"}, {"--bad"}}) {
        const COMMANDRESULT result = RunCommand(arguments);
        EXPECT_EQ(result.nExitCode, 2);
        EXPECT_THAT(result.strErrors, StartsWith("tessara: "));
        EXPECT_EQ(result.strErrors.find('\n'), result.strErrors.size() - 1);
    }
    EXPECT_THAT(RunCommand({"--version"}).strOutput, testing::MatchesRegex("tessara [0-9.]+\n"));
    for (const std::string strSubcommand : {"plot", "diagram"}) {
        EXPECT_THAT(RunCommand({strSubcommand, "--version"}).strOutput, StartsWith("tessara "));
        const COMMANDRESULT help = RunCommand({strSubcommand, "--help"});
        EXPECT_EQ(help.nExitCode, 0);
        EXPECT_THAT(help.strOutput, HasSubstr("Examples:\n  tessara " + strSubcommand + " "));
        EXPECT_EQ(help.strErrors, "");
    }
}

} // namespace
