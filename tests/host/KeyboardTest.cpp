#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "tests/cli/Folder.h"
#include "tests/host/DisplayServer.h"
#include "tests/support/Process.h"

namespace {

constexpr int FRAME = 40; ///< no window manager's frame is as wide

/// A window manager, and how many pixels one of the desktop's units is.
struct DESKTOP {
    const char* pszManager;
    const char* pszScale;
};

class KeyboardUnder : public testing::TestWithParam<DESKTOP> {};

TEST_P(KeyboardUnder, ADialogInTheFirstActivationHasItAndStandsInTheMiddle) {
    const CDisplayServer server;
    const CFolder home;
    const PROCESSRESULT result = RunProcess({{"/bin/sh", TESSARA_PRESS_KEYS, GetParam().pszManager, "Welcome",
                                              TESSARA_WELCOME_PROGRAM, "Escape", "Return", "a,Tab,Return"},
                                             {{"DISPLAY", server.GetName()},
                                              {"QT_QPA_PLATFORM", "xcb"},
                                              {"QT_SCALE_FACTOR", GetParam().pszScale},
                                              {"HOME", home.Path("")},
                                              {"XDG_RUNTIME_DIR", home.Path("")}}});
    std::istringstream text(result.strOutput);
    for (const char* const pszEnd : {"Cancel ''", "OK ''", "Cancel 'a'"}) {
        std::string strLine;
        std::getline(text, strLine);
        const auto nPlace = strLine.find(" off the middle by ");
        ASSERT_NE(nPlace, strLine.npos) << result.strOutput << result.strErrors;
        EXPECT_EQ(strLine.substr(0, nPlace), pszEnd);
        int nAcross = FRAME;
        int nDown = FRAME;
        EXPECT_EQ(std::sscanf(strLine.c_str() + nPlace, " off the middle by %d,%d", &nAcross, &nDown), 2);
        EXPECT_LT(std::max(std::abs(nAcross), std::abs(nDown)), FRAME) << strLine;
    }
}

INSTANTIATE_TEST_SUITE_P(WindowManagers, KeyboardUnder,
                         testing::Values(DESKTOP{"openbox", "1"}, DESKTOP{"icewm", "2"}),
                         [](const auto& parameters) { return parameters.param.pszManager; });

} // namespace
