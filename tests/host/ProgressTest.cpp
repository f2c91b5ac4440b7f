#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/host/DisplayServer.h"
#include "tests/host/Programs.h"

namespace {

/// A number from the environment, for long runs by hand.
int NumberFrom(const char* pszVariable, int nUsual) {
    const char* const pszNumber = std::getenv(pszVariable);
    return pszNumber ? std::atoi(pszNumber) : nUsual;
}

TEST(ProgressOfAnotherThread, LeavesTheMainThreadFreeOnEveryPlatformAndScale) {
    const int nRuns = NumberFrom("TESSARA_PROGRESS_RUNS", 1);
    const std::string strBusy = std::to_string(NumberFrom("TESSARA_PROGRESS_BUSY", 100));
    const CPrograms programs;
    const CDisplayServer server;
    for (const char* pszPlatform : {"offscreen", "xcb"}) {
        for (const char* pszScale : {"1", "1.5", "2"}) {
            for (int i = 0; i < nRuns; ++i) {
                const PROCESSRESULT result =
                    programs.Run({TESSARA_PROGRESS_PROGRAM, strBusy}, {{"QT_QPA_PLATFORM", pszPlatform},
                                                                       {"QT_SCALE_FACTOR", pszScale},
                                                                       {"DISPLAY", server.GetName()}});
                std::printf("%s at scale %s: %s", pszPlatform, pszScale, result.strOutput.c_str());
                EXPECT_EQ(result.nExitCode, 0);
                EXPECT_EQ(result.strErrors, "") << "a warning";
            }
        }
    }
}

} // namespace
