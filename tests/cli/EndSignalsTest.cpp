#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "cli/EndSignals.h"
#include "tessara/platform/files/ReplacementFile.h"
#include "tests/cli/Folder.h"

using testing::ElementsAre;

namespace {

/// How a process ends that gets the signal while it replaces a file, with what it had for the signal before.
int EndOf(const CFolder& folder, int nSignal, sighandler_t pfnBefore) {
    const pid_t nChild = fork();
    if (nChild == 0) {
        std::signal(nSignal, pfnBefore);
        tessara::RemoveUnfinishedOnEndSignals();
        tessara::CReplacementFile file(folder.Path("a.png").c_str());
        file.Write("new", 3);
        std::raise(nSignal);
        file.Close();
        _exit(0);
    }
    int nStatus = -1;
    waitpid(nChild, &nStatus, 0);
    return nStatus;
}

TEST(EndSignals, RemoveTheUnfinishedFileAndEndTheProcess) {
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
        const CFolder folder;
        folder.Write("a.png", "old");
        const int nStatus = EndOf(folder, nSignal, SIG_DFL);
        EXPECT_TRUE(WIFSIGNALED(nStatus) && WTERMSIG(nStatus) == nSignal);
        EXPECT_THAT(folder.List(), ElementsAre("a.png"));
        EXPECT_EQ(folder.Read("a.png"), "old");
    }
}

TEST(EndSignals, ThatTheProcessIgnoresStayIgnored) {
    const CFolder folder;
    folder.Write("a.png", "old");
    EXPECT_EQ(EndOf(folder, SIGHUP, SIG_IGN), 0);
    EXPECT_EQ(folder.Read("a.png"), "new");
}

} // namespace
