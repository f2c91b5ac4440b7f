#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "examples/flory/model/InteractionFit.h"
#include "tessara/platform/base/Number.h"
#include "tests/cli/CommandFixture.h"

using testing::HasSubstr;

namespace {

/// Temperatures in degrees Celsius at which chi = -0.3 + 240/T has some values.
std::string Temperature(double dChi) {
    return tessara::FormatText("%.9f", flory::CInteraction(-0.3, 240).Temperature(dChi) - 273.15);
}

class FloryFit : public CCommandFixture {
protected:
    FloryFit() : CCommandFixture("fit") {
        std::string strChi = "# measured\nT_C\tchi\tref\tphi\n", strClouds = "phi\tT_C\n",
                    strCritical = "T_C,N\n";
        const flory::CCloudPointCurve curve(flory::CSample({100, 3000}, {0.9, 0.1}));
        for (int i = 1; i <= 8; ++i) {
            const double dPhi = 0.04 * i, dChi = 0.45 + 0.01 * i, dN = 50 * i * i;
            const std::string strT = Temperature(dChi);
            const double dShown = dChi + (i % 3) * 0.01; // 0.2 for the whole of phi
            strChi += strT + tessara::FormatText("\t%.12g\tX%d\t%.12g\n", dShown, i, (i % 3) * 0.05);
            strClouds +=
                tessara::FormatText("%.12g\t", dPhi) + Temperature(*flory::CloudPointChi(curve, dPhi)) + '\n';
            strCritical += Temperature((1 + 1 / std::sqrt(dN)) * (1 + 1 / std::sqrt(dN)) / 2) +
                           tessara::FormatText(",%.12g\n", dN);
        }
        m_folder.Write("chi.txt", strChi + "33\tNA\tX9\t0\n");
        m_folder.Write("clouds.txt", strClouds);
        m_folder.Write("critical.csv", strCritical);
    }

    void ExpectFits(const std::string& strArguments, const std::string& strPoints) const {
        const COMMANDRESULT result = Run(strArguments);
        EXPECT_EQ(result.nExitCode, 0) << result.strErrors;
        EXPECT_EQ(result.strErrors, "");
        EXPECT_THAT(result.strOutput, testing::AllOf(HasSubstr(strPoints), HasSubstr("degrees Celsius")));
        EXPECT_THAT(result.strOutput, testing::ContainsRegex("\na = -0\\.(30000|29999)"));
        EXPECT_THAT(result.strOutput, testing::ContainsRegex("\nb = (240\\.000|239\\.999)"));
    }
};

TEST_F(FloryFit, RecoversTheInteractionFromEachKindOfMeasurement) {
    ExpectFits("@chi.txt --columns T_C,chi,phi --composition", "fitted to 8 values of chi");
    EXPECT_THAT(Run("@chi.txt --columns T_C,chi,phi --composition").strOutput, HasSubstr("\nc = 0.2000"));
    ExpectFits("@clouds.txt --columns T_C,phi --chains 100,3000 --weights 0.9,0.1",
               "fitted to 8 cloud points");
    ExpectFits("@critical.csv --critical", "fitted to 8 critical temperatures");
}

TEST_F(FloryFit, DrawsPointsAndCurve) {
    for (const std::string strKind :
         {"@chi.txt", "@chi.txt --columns 1,2,4 --composition", "@critical.csv --critical",
          "@clouds.txt --columns T_C,phi --chains 100,3000 --weights 0.9,0.1"}) {
        for (const char* pszEnding : {"svg", "wmf"}) {
            const std::string strPicture = "@fit." + std::string(pszEnding);
            EXPECT_EQ(Run(strKind + " -o " + strPicture).nExitCode, 0) << strKind;
        }
        EXPECT_EQ(Run(strKind + " -o @curve.txt").nExitCode, 0) << strKind;
    }
    // A curve is a file of measured points without errors.
    EXPECT_EQ(Run("@chi.txt -o @curve.txt").nExitCode, 0);
    EXPECT_THAT(Run("@curve.txt").strOutput, HasSubstr("fitted to 201 values of chi"));
}

TEST_F(FloryFit, RefusesWithOneLine) {
    m_folder.Write("one.txt", "300 0.5\n300 0.6\n");
    m_folder.Write("cold.txt", "-3 0.5\n3 0.6\n");
    const struct {
        const char* pszArguments;
        const char* pszMessage;
    } cases[] = {
        {"-o @out.png", "FILE is required"},
        {"@none.txt", "none.txt"},
        {"@one.txt", "one.txt: the points do not tell the parameters apart"},
        {"@cold.txt", "-3 K is no temperature; --celsius"},
        {"@chi.txt --columns T_C", "--columns: "},
        {"@chi.txt --columns T_C,chi,phi", "--columns: two columns"},
        {"@critical.csv --chains 100", "50 is no polymer fraction"},
        {"@chi.txt --critical --composition", "--composition: "},
        {"@chi.txt -o @out.gif", "out.gif"},
        {"@chi.txt -o @none/out.png", "none/out.png"},
    };
    for (const auto& refused : cases) {
        const COMMANDRESULT result = Run(refused.pszArguments);
        EXPECT_EQ(result.nExitCode, 2) << refused.pszArguments;
        EXPECT_EQ(result.strOutput, "");
        EXPECT_THAT(result.strErrors, testing::ContainsRegex(refused.pszMessage));
    }
}

class FloryPoints : public CCommandFixture {
protected:
    FloryPoints() : CCommandFixture("critical-end") {}
};

TEST_F(FloryPoints, AreTabulated) {
    const COMMANDRESULT ends = Run("--chains 100,3000 --chi -0.2956,243.29");
    EXPECT_EQ(ends.nExitCode, 0);
    EXPECT_THAT(ends.strOutput, testing::AllOf(HasSubstr("\nw2\tphi\tT\tchi\tother_phi\tsigma\n"),
                                               HasSubstr("\n0.03941444")));
    const COMMANDRESULT three = Run("--chains 100,1000,9000 --w3 0.005:0.01 --rows 2 -o @ends.txt");
    EXPECT_EQ(three.nExitCode, 0);
    EXPECT_THAT(m_folder.Read("ends.txt"), HasSubstr("\nw2\tw3\tphi\tchi\tother_phi\tsigma\n"));
    const COMMANDRESULT tricritical = RunCommand({"tricritical", "--chains", "1"});
    EXPECT_THAT(tricritical.strOutput,
                testing::AllOf(HasSubstr("\nw2\tphi\tchi\tr2\tstable\n"), HasSubstr("\t15.645")));
    EXPECT_EQ(RunCommand({"tricritical", "--chains", "1,2"}).nExitCode, 2);
    EXPECT_EQ(Run("--chains 1,2,3 --w3 2:3").nExitCode, 2);
    EXPECT_EQ(Run("--chains 100").nExitCode, 2);
}

} // namespace
