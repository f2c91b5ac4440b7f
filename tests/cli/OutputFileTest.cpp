#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "cli/InputError.h"
#include "cli/OutputFile.h"
#include "tests/cli/Folder.h"

using tessara::CInputError;
using tessara::COutputFile;
using testing::ElementsAre;

namespace {

void Fill(const COutputFile& output, const char* pszText) {
    std::ofstream(output.GetTemporaryPath()) << pszText;
}

/// What making an output file, and optionally committing it, says.
std::string Refusal(const std::string& strPath, const char* pszText = "new") {
    try {
        COutputFile output(strPath);
        Fill(output, pszText);
        output.Commit();
        return "accepted";
    } catch (const CInputError& error) {
        return std::string(error.what()).substr(strPath.size());
    }
}

mode_t ModeOf(const std::string& strPath) {
    struct stat status {};
    return stat(strPath.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
}

TEST(OutputFile, ReplacesTheTargetOnlyWhenCommitted) {
    const CFolder folder;
    const std::string strPath = folder.Write("a.png", "old");
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

TEST(OutputFile, LeavesEverythingAsItWasWithoutCommit) {
    const CFolder folder;
    folder.Write("a.png", "old");
    for (const char* pszName : {"a.png", "b.png"}) {
        const COutputFile output(folder.Path(pszName));
        Fill(output, "half");
    }
    EXPECT_THAT(folder.List(), ElementsAre("a.png"));
    EXPECT_EQ(folder.Read("a.png"), "old");
}

TEST(OutputFile, HasTheModeOfTheUmaskWhoeverWroteIt) {
    const CFolder folder;
    const mode_t nOld = umask(027);
    COutputFile output(folder.Path("a.svg"));
    std::filesystem::remove(
        output.GetTemporaryPath()); // as a writer does that makes its own file and renames it
    Fill(output, "new");
    chmod(output.GetTemporaryPath().c_str(), 0600);
    output.Commit();
    umask(nOld);
    EXPECT_EQ(ModeOf(folder.Path("a.svg")), 0640U);
}

TEST(OutputFile, FollowsASymbolicLink) {
    const CFolder folder;
    std::filesystem::create_directory(folder.Path("real"));
    folder.Write("real/a.png", "old");
    std::filesystem::create_symlink("real/a.png", folder.Path("link.png"));
    EXPECT_EQ(Refusal(folder.Path("link.png")), "accepted");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.png")));
    EXPECT_EQ(folder.Read("real/a.png"), "new");
}

TEST(OutputFile, RefusesWhatCannotBecomeAFile) {
    const CFolder folder;
    std::filesystem::create_directory(folder.Path("d.png"));
    mkfifo(folder.Path("pipe.png").c_str(), 0600);
    folder.Write("file", "x");
    EXPECT_EQ(Refusal(folder.Path("d.png")), ": is a folder, not a file");
    EXPECT_EQ(Refusal(folder.Path("pipe.png")), ": is not a plain file");
    EXPECT_EQ(Refusal(folder.Path("none/a.png")), ": cannot be written: its folder does not exist");
    EXPECT_EQ(Refusal(folder.Path("file/a.png")), ": cannot be written: Not a directory");
    EXPECT_EQ(Refusal(folder.Path(std::string(300, 'a') + ".png")),
              ": cannot be written: File name too long");
    EXPECT_EQ(Refusal(folder.Path("empty.png"), ""), ": cannot be written");
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
