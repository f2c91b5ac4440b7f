#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "cli/OutputFile.h"
#include "tests/cli/Folder.h"
#include "tests/cli/Outcome.h"

using tessara::COutputFile;
using testing::ElementsAre;

namespace {

void Fill(const COutputFile& output, const char* pszText) {
    std::ofstream(output.GetTemporaryPath()) << pszText;
}

/// What making, filling and committing an output file says.
std::string Outcome(const std::string& strPath, const char* pszText = "new") {
    return Refusal([&] {
        COutputFile output(strPath);
        Fill(output, pszText);
        output.Commit();
    });
}

TEST(OutputFile, ReplacesTheTargetOnlyWhenCommitted) {
    const CFolder folder;
    const std::string strPath = folder.Write("a.png", "old");
    for (const char* pszName : {"a.png", "b.png"}) {
        Fill(COutputFile(folder.Path(pszName)), "half");
    }
    EXPECT_THAT(folder.List(), ElementsAre("a.png"));
    COutputFile output(strPath);
    EXPECT_TRUE(output.GetTemporaryPath().ends_with(".png"));
    EXPECT_EQ(std::filesystem::path(output.GetTemporaryPath()).parent_path(),
              std::filesystem::path(strPath).parent_path());
    Fill(output, "new");
    EXPECT_EQ(folder.Read("a.png"), "old");
    output.Commit();
    EXPECT_EQ(folder.Read("a.png"), "new");
    EXPECT_THAT(folder.List(), ElementsAre("a.png"));
}

TEST(OutputFile, HasTheModeOfTheUmaskWhoeverWroteIt) {
    const CFolder folder;
    const mode_t nOld = umask(027);
    COutputFile output(folder.Path("a.svg"));
    std::filesystem::remove(output.GetTemporaryPath()); // as a writer does that renames a file of its own
    Fill(output, "new");
    chmod(output.GetTemporaryPath().c_str(), 0600);
    output.Commit();
    umask(nOld);
    struct stat status {};
    ASSERT_EQ(stat(folder.Path("a.svg").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST(OutputFile, FollowsASymbolicLink) {
    const CFolder folder;
    std::filesystem::create_directory(folder.Path("real"));
    folder.Write("real/a.png", "old");
    std::filesystem::create_symlink("real/a.png", folder.Path("link.png"));
    EXPECT_EQ(Outcome(folder.Path("link.png")), "accepted");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.png")));
    EXPECT_EQ(folder.Read("real/a.png"), "new");
}

TEST(OutputFile, RefusesWhatCannotBecomeAFile) {
    const CFolder folder;
    std::filesystem::create_directory(folder.Path("d.png"));
    mkfifo(folder.Path("pipe.png").c_str(), 0600);
    folder.Write("file", "x");
    const std::pair<std::string, std::string> cases[] = {
        {"d.png", ": is a folder, not a file"},
        {"pipe.png", ": is not a plain file"},
        {"none/a.png", ": cannot be written: its folder does not exist"},
        {"file/a.png", ": cannot be written: Not a directory"},
        {std::string(300, 'a') + ".png", ": cannot be written: File name too long"}};
    for (const auto& [strName, strMessage] : cases) {
        EXPECT_EQ(Outcome(folder.Path(strName)), folder.Path(strName) + strMessage);
    }
    EXPECT_EQ(Outcome(folder.Path("empty.png"), ""), folder.Path("empty.png") + ": cannot be written");
    EXPECT_THAT(folder.List(), ElementsAre("d.png", "file", "pipe.png"));
}

TEST(OutputFile, IsRemovedWhenASignalEndsTheProcess) {
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
        const CFolder folder;
        folder.Write("a.png", "old");
        const pid_t nChild = fork();
        if (nChild == 0) {
            std::signal(nSignal, SIG_DFL); // whoever runs the tests may ignore it
            const COutputFile output(folder.Path("a.png"));
            Fill(output, "half");
            std::raise(nSignal);
            _exit(0);
        }
        int nStatus = 0;
        ASSERT_EQ(waitpid(nChild, &nStatus, 0), nChild);
        EXPECT_TRUE(WIFSIGNALED(nStatus) && WTERMSIG(nStatus) == nSignal);
        EXPECT_THAT(folder.List(), ElementsAre("a.png"));
        EXPECT_EQ(folder.Read("a.png"), "old");
    }
}

} // namespace
