#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <pty.h>
#include <sstream>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/DiagramCommand.h"
#include "examples/flory/model/StabilityMap.h"
#include "examples/flory/program/CopolymerDiagram.h"
#include "examples/flory/program/RowReport.h"
#include "tests/cli/CommandFixture.h"

using testing::HasSubstr;

namespace {

const std::string POLYSTYRENE = "--chains 300,9000 --weights 0.99,0.01 --chi -0.2956,243.29";

class CFloryFixture : public CCommandFixture {
protected:
    using CCommandFixture::CCommandFixture;

    /// The program says one line that contains the message, and changes no file.
    void ExpectRefused(const std::string& strArguments, const std::string& strMessage) const {
        const std::vector<std::string> before = m_folder.List();
        const COMMANDRESULT result = Run(strArguments);
        EXPECT_EQ(result.nExitCode, 2) << strMessage;
        EXPECT_EQ(result.strOutput, "");
        EXPECT_THAT(result.strErrors, testing::AllOf(testing::StartsWith("flory: "), HasSubstr(strMessage)));
        EXPECT_EQ(result.strErrors.find('\n'), result.strErrors.size() - 1) << result.strErrors;
        EXPECT_EQ(m_folder.List(), before);
    }
};

class FlorySolution : public CFloryFixture {
protected:
    FlorySolution() : CFloryFixture("solution") {}
};

TEST_F(FlorySolution, DrawsEachFormat) {
    ExpectEachFormat(POLYSTYRENE + " --size 640x460");
}

TEST_F(FlorySolution, DrawsWhatTheCommandDrawsFromItsFile) {
    for (const std::string strMore :
         {"", " --zoom three-phase --monochrome", " --zoom 0.05:280:0.1:285", " --section 0.1"}) {
        const std::string strDirect = Draw(POLYSTYRENE + strMore);
        EXPECT_EQ(Run(POLYSTYRENE + strMore + " -o @file.json").nExitCode, 0);
        tessara::DIAGRAMOPTIONS options;
        options.strFile = m_folder.Path("file.json");
        options.strOutput = m_folder.Path("read.svg");
        tessara::RunDiagram(options);
        EXPECT_TRUE(strDirect == m_folder.Read("read.svg")) << strMore;
    }
}

TEST_F(FlorySolution, MayBeLeftOut) {
    EXPECT_EQ(RunCommand({"--chains", "100", "-o", m_folder.Path("short.json")}).nExitCode, 0);
    EXPECT_EQ(Run("--chains 100 -o @long.json").nExitCode, 0);
    EXPECT_EQ(m_folder.Read("short.json"), m_folder.Read("long.json"));
    EXPECT_THAT(m_folder.Read("long.json"), HasSubstr("\"chain lengths 100\""));
}

TEST_F(FlorySolution, DrawsWhatTheOptionsAskFor) {
    ExpectEachChanges(POLYSTYRENE,
                      {"--ordinate chi", "--points 60", "--section 0.05,0.1", "--no-spinodal", "--no-shadow",
                       "--physical", "--zoom three-phase", "--zoom 0.05:280:0.1:285", "--y-scale 270:300:5",
                       "--name Caption", "--multiphase-points", "--no-legend"});
}

TEST_F(FlorySolution, RefusesWithOneLine) {
    const struct {
        const char* pszArguments;
        const char* pszMessage;
    } cases[] = {
        {"-o @out.png", "--chains is required"},
        {"--chains 300", "--output is required"},
        {"--chains 300,x -o @out.png", "--chains: \"x\" is not a number"},
        {"--chains -3 -o @out.png", "--chains: a chain length"},
        {"--chains 3,4 --weights 1 -o @out.png", "--weights: 1 for 2 chain lengths"},
        {"--chains 3 --weights 0 -o @out.png", "--weights: "},
        {"--chains 3 --chi 0.5 -o @out.png", "--chi: \"0.5\" is not 2 numbers"},
        {"--chains 3 --chi 0.5,0 -o @out.png", "--chi: "},
        {"--chains 3 --ordinate T -o @out.png", "--ordinate: T needs --chi"},
        {"--chains 3 --ordinate P -o @out.png", "--ordinate"},
        {"--chains 3 --points 4 -o @out.png", "--points: must be 16 to 1000000"},
        {"--chains 3 --section 1 -o @out.png", "--section: a polymer fraction"},
        {"--chains 3 --zoom three-phase -o @out.png", "has no three-phase point"},
        {"--chains 3 --zoom two-phase -o @out.png", "--zoom: \"two-phase\""},
        {"--chains 3 --size big -o @out.png", "--size: \"big\""},
        {"--chains 3 -o @out.gif", "must end with .json, .png, .svg, .pdf or .wmf"},
        {"--chains 3 --what -o @out.png", "--what"},
        {"--chains 100 --chi -0.5,-30 -o @out.png", "--chi: chi stays below -0.5 at every temperature"},
    };
    for (const auto& refused : cases) {
        ExpectRefused(refused.pszArguments, refused.pszMessage);
    }
}

TEST_F(FlorySolution, SaysWhyAFileCannotBeWritten) {
    ExpectRefusedOutputs("--chains 3 --points 16 -o", {".json", ".png", ".wmf"});
}

TEST(Flory, ShowsHelpWithExamplesAndItsVersion) {
    const std::string strHelp = RunCommand({"--help"}).strOutput;
    for (const char* pszCommand :
         {"solution", "copolymer", "three-phases", "critical-end", "tricritical", "fit", "stability"}) {
        const COMMANDRESULT help = RunCommand({pszCommand, "--help"});
        EXPECT_EQ(help.nExitCode, 0);
        EXPECT_THAT(help.strOutput, testing::AllOf(HasSubstr("Example"), HasSubstr("\n  flory ")));
        EXPECT_THAT(strHelp, HasSubstr(pszCommand));
    }
    EXPECT_EQ(RunCommand({"--version"}).strOutput, "flory " TESSARA_VERSION "\n");
    EXPECT_EQ(RunCommand({}).nExitCode, 2);
    const COMMANDRESULT gels = RunCommand({"gels", "--chains", "3"});
    EXPECT_EQ(gels.nExitCode, 2);
    EXPECT_THAT(gels.strErrors,
                testing::AllOf(HasSubstr("\"gels\" is no subcommand"), HasSubstr("solution, copolymer")));
}

TEST_F(FlorySolution, TellsOfASectionThatIsEmpty) {
    const COMMANDRESULT result = Run("--chains 100 --section 0.3,0.9999 -o @out.json");
    EXPECT_EQ(result.nExitCode, 0);
    EXPECT_EQ(result.strErrors, "flory: --section: the solution of polymer fraction 0.9999 does not separate "
                                "below chi 1.21\n");
}

class FloryCopolymer : public CFloryFixture {
protected:
    FloryCopolymer() : CFloryFixture("copolymer") {}
};

TEST_F(FloryCopolymer, DrawsEachFormat) {
    ExpectEachFormat("--homopolymers 50,50 --diblock 100 --size 640x460");
}

TEST_F(FloryCopolymer, RefusesWithOneLine) {
    ExpectRefused("--homopolymers 50 --diblock 100 -o @out.png", "--homopolymers: ");
    ExpectRefused("--homopolymers 50,0 --diblock 100 -o @out.png", "--homopolymers: ");
    ExpectRefused("--homopolymers 50,50 --diblock 100,2 -o @out.png", "--diblock: must be");
    ExpectRefused("--homopolymers 50,50 --diblock 100 --at 1 -o @out.png", "--at: ");
    ExpectRefused("--homopolymers 50,50 --diblock 100 --share 2 -o @out.png", "--share");
}

TEST(CopolymerDiagramTest, HasTheLifshitzPointAndTheBranchesThatMeetThere) {
    const tessara::DIAGRAM diagram = flory::CopolymerDiagram({50, 50, 100});
    ASSERT_EQ(diagram.lifshitz.x.size(), 1u);
    EXPECT_NEAR(diagram.lifshitz.x[0], 1 / 3., 1e-6);
    EXPECT_NEAR(diagram.lifshitz.y[0], 6, 1e-5);
    ASSERT_EQ(diagram.spinodal.parts.size(), 2u);
    EXPECT_EQ(diagram.spinodal.parts[1].nColor, 1);
    EXPECT_EQ(diagram.spinodal.parts[1].x.front(), diagram.lifshitz.x[0]);
    EXPECT_NEAR(diagram.spinodal.parts[1].y.back(), 10.494868, 1e-5);
    EXPECT_THAT(diagram.critical.y, testing::ElementsAre(testing::DoubleNear(4, 1e-12)));
    // Across the blends with a fixed share of diblock the axis is the fraction of A.
    flory::CCopolymerPlan across{40, 90, 100};
    across.diblock = 0.2;
    const tessara::DIAGRAM other = flory::CopolymerDiagram(across);
    EXPECT_NEAR(other.x.scale->dTo, 0.8, 1e-12);
    EXPECT_EQ(other.critical.x.size(), 1u);
}

class FloryMaps : public CFloryFixture {
protected:
    FloryMaps() : CFloryFixture("stability") {}

    /// The numbers of a table's line, counted from the first after the names.
    std::vector<double> Row(const char* pszFile, int nRow) const {
        std::istringstream text(m_folder.Read(pszFile));
        std::string strLine;
        for (int i = 0; i < nRow + 3; ++i) {
            std::getline(text, strLine);
        }
        std::istringstream line(strLine);
        std::vector<double> values;
        for (double d = 0; line >> d;) {
            values.push_back(d);
        }
        return values;
    }
};

TEST_F(FloryMaps, WritesATableAndReportsRows) {
    const COMMANDRESULT result =
        Run("--chains 100,3000 --at-chi 0.6 --size 20 --phi 0:0.4 --w 0:0.5 -o @map.txt");
    EXPECT_EQ(result.nExitCode, 0);
    EXPECT_EQ(std::count(result.strErrors.begin(), result.strErrors.end(), '\n'), 11);
    EXPECT_THAT(result.strErrors, HasSubstr("10 of 20 rows\n"));
    flory::CStabilityMap map(100, 3000, 0.6, 20, {0, 0.4}, {0, 0.5});
    ASSERT_TRUE(map.Compute());
    EXPECT_THAT(Row("map.txt", 3 * 20 + 7), testing::ElementsAre(map.W(3), map.Phi(7), map.Value(3, 7)));
    EXPECT_TRUE(Row("map.txt", 400).empty());
}

TEST_F(FloryMaps, WritesTablesThatCanBeReadHoweverTheLengthsAreTyped) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"stability", "--chains", "100,\n3000", "--at-chi", "0.6", "--size", "4"},
          std::vector<std::string>{"three-phases", "--chains", "300,\n9000", "--chi", "-0.2956,\n243.29",
                                   "--rows", "4"}}) {
        std::vector<std::string> all = arguments;
        all.insert(all.end(), {"-o", m_folder.Path("map.txt")});
        ASSERT_EQ(RunCommand(all).nExitCode, 0) << arguments[0];
        std::istringstream text(m_folder.Read("map.txt"));
        std::string strNote, strNames;
        std::getline(text, strNote);
        std::getline(text, strNames);
        EXPECT_TRUE(strNote.starts_with("#") && strNames.starts_with("w\tphi\t")) << strNames;
    }
}

TEST_F(FloryMaps, WritesThreePhasePoints) {
    EXPECT_EQ(RunCommand({"three-phases", "--chains", "300,9000", "--chi", "-0.2956,243.29", "--w",
                          "0.01:0.02", "--rows", "2", "-o", m_folder.Path("three.txt")})
                  .nExitCode,
              0);
    EXPECT_THAT(Row("three.txt", 0),
                testing::ElementsAre(testing::DoubleNear(0.01, 1e-12), testing::DoubleNear(0.0891387, 1e-7),
                                     testing::DoubleNear(283.650, 1e-3), testing::_, testing::_, testing::_,
                                     3));
}

TEST_F(FloryMaps, RefusesWithOneLine) {
    ExpectRefused("--chains 100 --at-chi 0.6 -o @out.txt", "--chains: ");
    ExpectRefused("--chains 100,300 -o @out.txt", "--at-chi is required");
    ExpectRefused("--chains 1,3 --at-chi 0.6 --size 0 -o @out.txt", "--size: must be");
    ExpectRefused("--chains 1,3 --at-chi 1 --phi 0:2 -o @out.txt", "--phi: fractions");
    ExpectRefused("--chains 1,3 --at-chi 1 --w 1 -o @out.txt", "is not a range FROM:TO");
    ExpectRefused("--chains 1,3 --at-chi 1 -o @none/a.txt", "none/a.txt: cannot be written");
}

/// Standard error as a terminal while the object lives.
class CErrorTerminal {
public:
    CErrorTerminal() : m_nOld(dup(STDERR_FILENO)) {
        int nTerminal = -1;
        if (openpty(&m_nMaster, &nTerminal, nullptr, nullptr, nullptr) == 0) {
            dup2(nTerminal, STDERR_FILENO);
            close(nTerminal);
        }
    }
    ~CErrorTerminal() {
        dup2(m_nOld, STDERR_FILENO);
        close(m_nOld);
        close(m_nMaster);
    }
    CErrorTerminal(const CErrorTerminal&) = delete;
    CErrorTerminal& operator=(const CErrorTerminal&) = delete;

    /// False where the system gives out no terminals, as in a folder made root without its devices.
    bool IsThere() const { return m_nMaster >= 0; }
    /// What has been written, with a mark of our own so that reading ends.
    std::string Read() const {
        std::fputs("~", stderr);
        std::string strText;
        for (char c = 0; c != '~' && read(m_nMaster, &c, 1) == 1;) {
            strText += c;
        }
        return strText;
    }

private:
    int m_nOld;
    int m_nMaster = -1;
};

TEST(RowReportTest, TellsAShareOnATerminalOnceSomeoneHasWaited) {
    const CErrorTerminal terminal;
    if (!terminal.IsThere()) {
        GTEST_SKIP() << "there is no pseudo-terminal to be had";
    }
    const auto told = [&](std::chrono::milliseconds patience) {
        {
            flory::CRowReport report(patience);
            EXPECT_TRUE(report.Progress()(45, 300));
        }
        return terminal.Read();
    };
    EXPECT_EQ(told(std::chrono::hours(1)), "~");
    EXPECT_THAT(told(std::chrono::milliseconds(0)), HasSubstr("15 %"));
}

TEST(RowReportTest, AnInterruptEndsTheWorkBetweenTwoRows) {
    flory::CStabilityMap map(100, 3000, 0.55, 6);
    flory::CRowReport report;
    const flory::CRowProgress progress = report.Progress();
    const bool bDone = map.Compute([&](int nDone, int nRows) {
        if (nDone == 2) {
            std::raise(SIGINT);
        }
        return progress(nDone, nRows);
    });
    EXPECT_EQ(map.RowsDone(), 2);
    try {
        report.Check(bDone);
        FAIL() << "not told";
    } catch (const flory::CAborted& aborted) {
        EXPECT_STREQ(aborted.what(), "aborted after 2 of 6 rows; nothing was written");
    }
}

} // namespace
