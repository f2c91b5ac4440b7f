#include <gmock/gmock.h>

#include "tests/cli/CommandFixture.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr const char* CURVES = "T,chi,phi\n21,0.51,0.13\n30,0.4,0.2\n38,0.45,0.3\n";

/// Runs `tessara plot` with a good file "d.txt".
class PlotCommand : public CCommandFixture {
protected:
    PlotCommand() : CCommandFixture("plot") { m_folder.Write("d.txt", CURVES); }
};

TEST_F(PlotCommand, NamesFileLineAndColumn) {
    m_folder.Write("bad.txt", "# note\n1 2 3\n4 5 abc\n");
    const COMMANDRESULT result = Run({"@bad.txt", "-o", "@out.png"});
    EXPECT_EQ(result.strErrors, "tessara: " + m_folder.Path("bad.txt") + ":3:3: \"abc\" is not a number\n");
    EXPECT_EQ(result.nExitCode, 2);
}

TEST_F(PlotCommand, RefusesBadOptionsWithOneLine) {
    const struct {
        std::vector<std::string> arguments;
        const char* pszMessage;
    } cases[] = {
        {{}, "--output is required"},
        {{"-o", "@out.png"}, "a FILE or --symbols is required"},
        {{"@d.txt", "-o", "@out.png", "--colour"}, "--colour"},
        {{"@d.txt", "-o"}, "--output"},
        {{"@d.txt", "-o", ""}, "must end with .png, .svg, .pdf or .wmf"},
        {{"@d.txt", "-o", "@out.gif"}, "out.gif: the name must end with .png, .svg, .pdf or .wmf"},
        {{"@d.txt", "-o", "@none/out.png"}, "none/out.png: cannot be written: its folder does not exist"},
        {{"@none.txt", "-o", "@out.png"}, "none.txt: cannot be read: No such file or directory"},
        {{"@line\nbreak.txt", "-o", "@out.png"}, "line?break.txt: cannot be read"},
        {{"@d.txt", "-o", "@out.png", "--size", "big"}, "--size: \"big\" is not a size"},
        {{"@d.txt", "-o", "@out.png", "--dpi", "many"}, "--dpi"},
        {{"@d.txt", "-o", "@out.png", "--dpi", "nan"}, "--dpi: must be 10 to 2400"},
        {{"@d.txt", "-o", "@out.png", "--columns", "T,mass"}, "d.txt:1: no column is named \"mass\""},
        {{"@d.txt", "-o", "@out.png", "--delimiter", "|"}, "--delimiter: \"|\" is not tab"},
        {{"@d.txt", "-o", "@out.png", "--symbols-columns", "1,2"}, "--symbols"},
        {{"@d.txt", "-o", "@out.png", "--function-format", "%s"},
         "--function-format: \"%s\" is not a printf format"},
        {{"@d.txt", "-o", "@out.png", "--argument-format", "%f%n"}, "--argument-format: \"%f%n\" is not"},
        {{"@d.txt", "-o", "@out.png", "--x-scale", "40:20:5"}, "--x-scale: FROM must be below TO"},
        {{"@d.txt", "-o", "@out.png", "--fit", "z"}, "--fit"},
        {{"@d.txt", "-o", "@out.png", "--fit", "xy", "--y-scale", "0:1:0.5"},
         "--fit y and --y-scale exclude each other"},
    };
    for (const auto& refused : cases) {
        ExpectRefused(refused.arguments, refused.pszMessage);
    }
}

/// The four bytes of a PNG file's header from nOffset on, a big-endian number.
unsigned BigEndian(const std::string& strBytes, std::size_t nOffset) {
    unsigned nValue = 0;
    for (const char ch : strBytes.substr(nOffset, 4)) {
        nValue = nValue << 8 | static_cast<unsigned char>(ch);
    }
    return nValue;
}

TEST_F(PlotCommand, WritesEachFormatWholeAndNothingElse) {
    ExpectEachFormat({"@d.txt", "--size", "640x460"});
    EXPECT_EQ(BigEndian(m_folder.Read("out.png"), 16), 640U);
    EXPECT_EQ(BigEndian(m_folder.Read("out.png"), 20), 460U);
}

TEST_F(PlotCommand, KeepsTheOldPictureWhenTheNewOneDoesNotFit) {
    for (const char* pszFile : {"out.png", "out.svg", "out.pdf", "out.wmf"}) {
        m_folder.Write(pszFile, "old");
        const std::vector<std::string> before = m_folder.List();
        const COMMANDRESULT result = Run({"@d.txt", "-o", std::string("@") + pszFile}, 1000);
        EXPECT_EQ(result.nExitCode, 2) << pszFile;
        EXPECT_EQ(result.strErrors,
                  "tessara: " + m_folder.Path(pszFile) + ": cannot be written: File too large\n");
        EXPECT_EQ(m_folder.Read(pszFile), "old");
        EXPECT_EQ(m_folder.List(), before);
    }
}

TEST_F(PlotCommand, DrawsWhatTheOptionsAskFor) {
    m_folder.Write("s.txt", "T mass chi\n25 a 0.45\n35 b 0.42\n");
    ASSERT_EQ(Run({"@d.txt", "-o", "@out.svg"}).nExitCode, 0);
    EXPECT_THAT(m_folder.Read("out.svg"), HasSubstr("chi, phi"));
    ExpectEachChanges({"@d.txt", "-o", "@out.svg"}, {{"--columns", "1,2"},
                                                     {"--symbols", "@s.txt", "--symbols-columns", "T,chi"},
                                                     {"--name", "Caption"},
                                                     {"--symbol", "c~G"},
                                                     {"--argument-symbol", "T, K~N"},
                                                     {"--slide", "M~N"},
                                                     {"--x-scale", "25:35:5"},
                                                     {"--y-scale", "-1:2:0.5"},
                                                     {"--fit", "xy"},
                                                     {"--diagonal"},
                                                     {"--no-legend"},
                                                     {"--no-caption"},
                                                     {"--monochrome"}});
}

TEST_F(PlotCommand, TakesTheWholeWidthUnlessSomethingStandsBeside) {
    const auto draw = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"@d.txt", "--columns", "1,2", "-o", "@out.svg"});
        EXPECT_EQ(Run(arguments).nExitCode, 0);
        return m_folder.Read("out.svg");
    };
    const std::string strWide = draw({"--argument-symbol", "T~N"});
    EXPECT_EQ(draw({"--argument-symbol", "T~N", "--no-legend"}), strWide);
    const std::string strLong = draw({"--argument-symbol", "Temperature~N"});
    EXPECT_TRUE(draw({"--argument-symbol", "Temperature~N", "--no-legend"}) != strLong);
}

TEST_F(PlotCommand, DrawsMarkersAlone) {
    const COMMANDRESULT result = Run({"--symbols", "@d.txt", "-o", "@out.svg"});
    EXPECT_EQ(result.nExitCode, 0);
    EXPECT_EQ(result.strErrors, "");
    EXPECT_THAT(m_folder.Read("out.svg"), HasSubstr("</svg>"));
}

TEST(Command, AsksForASubcommand) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"paint"}, {"--bad"}}) {
        const COMMANDRESULT result = RunCommand(arguments);
        EXPECT_EQ(result.nExitCode, 2);
        EXPECT_THAT(result.strErrors, StartsWith("tessara: "));
        EXPECT_EQ(result.strErrors.find('\n'), result.strErrors.size() - 1);
    }
}

TEST(Command, ShowsVersionAndHelp) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--version"}, {"plot", "--version"}, {"diagram", "--version"}}) {
        const COMMANDRESULT result = RunCommand(arguments);
        EXPECT_EQ(result.nExitCode, 0);
        EXPECT_THAT(result.strOutput, testing::MatchesRegex("tessara [0-9.]+\n"));
    }
    for (const char* pszSubcommand : {"plot", "diagram"}) {
        const COMMANDRESULT help = RunCommand({pszSubcommand, "--help"});
        EXPECT_EQ(help.nExitCode, 0);
        EXPECT_THAT(help.strOutput, HasSubstr(std::string("Examples:\n  tessara ") + pszSubcommand + " "));
        EXPECT_EQ(help.strErrors, "");
    }
}

} // namespace
