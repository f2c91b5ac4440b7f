#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "tessara/platform/files/ReplacementFile.h"
#include "tests/cli/Folder.h"
#include "tests/files/SystemCalls.h"

using tessara::CReplacementFile;
using testing::ElementsAre;

namespace {

void Replace(const std::string& strPath) {
    CReplacementFile file(strPath.c_str());
    file.Write("new", 3);
    file.Close();
}

/// Leaves behind what a killed process does.
void BeKilledWhileReplacing(const std::string& strPath) {
    const pid_t nChild = fork();
    if (nChild == 0) {
        CReplacementFile file(strPath.c_str());
        file.Write("half", 4);
        raise(SIGKILL);
    }
    waitpid(nChild, nullptr, 0);
}

std::string UnfinishedName(const CFolder& folder) {
    for (const std::string& strName : folder.List()) {
        if (strName.starts_with(".tessara-")) {
            return folder.Path(strName);
        }
    }
    return {};
}

TEST(StrayFile, IsRemovedByTheNextReplacementUnlessAProcessHoldsIt) {
    const CFolder folder;
    BeKilledWhileReplacing(folder.Path("a"));
    BeKilledWhileReplacing(folder.Path("b"));
    EXPECT_EQ(folder.List().size(), 1U) << "the second removes the first";
    CReplacementFile alive(folder.Path("c").c_str());
    EXPECT_EQ(folder.List().size(), 1U);
    Replace(folder.Path("a"));
    EXPECT_EQ(folder.List().size(), 2U);
    alive.Close();
    EXPECT_THAT(folder.List(), ElementsAre("a", "c"));
}

TEST(StrayFile, IsOnlyAPlainFileOfThisUserWithExactlySuchAName) {
    const CFolder folder;
    std::vector<std::string> others = {".tessara-0123456789abcde",  ".tessara-0123456789abcdef0",
                                       ".tessara-0123456789ABCDEF", ".tessara-0123456789abcdeg",
                                       ".tessara-0123456789abc.ef", "tessara-0123456789abcdef"};
    for (const std::string& strName : others) {
        folder.Write(strName, "kept");
    }
    folder.Write("target", "kept");
    std::filesystem::create_symlink("target", folder.Path(".tessara-0000000000000001"));
    std::filesystem::create_directory(folder.Path(".tessara-0000000000000002"));
    mkfifo(folder.Path(".tessara-0000000000000003").c_str(), 0600);
    others.insert(others.end(), {"target", ".tessara-0000000000000001", ".tessara-0000000000000002",
                                 ".tessara-0000000000000003"});
    if (geteuid() == 0) {
        others.emplace_back(".tessara-0000000000000004");
        ASSERT_EQ(chown(folder.Write(others.back(), "another user's").c_str(), 1234, 1234), 0);
    }
    folder.Write(".tessara-0123456789abcdef", "stray");
    Replace(folder.Path("a"));
    others.emplace_back("a");
    EXPECT_THAT(folder.List(), testing::UnorderedElementsAreArray(others));
}

/// What is done when a call is about to happen for the first time.
CSystemCalls::CHandler Once(const char* pszCall, const std::function<void()>& action) {
    return [=, bDone = false](const char* pszNow) mutable {
        if (!bDone && std::string(pszNow) == pszCall) {
            bDone = true;
            action();
        }
        return 0;
    };
}

TEST(StrayFile, ANewFileTakenForOneBeforeItsLockGetsAnotherName) {
    for (const bool bRemoved : {true, false}) {
        const CFolder folder;
        std::string strTaken;
        int nHeld = -1;
        const CSystemCalls watch(Once("flock", [&] {
            strTaken = UnfinishedName(folder);
            nHeld = open(strTaken.c_str(), O_WRONLY);
            bRemoved ? unlink(strTaken.c_str()) : flock(nHeld, LOCK_EX);
        }));
        CReplacementFile file(folder.Path("a").c_str());
        file.Write("new", 3);
        EXPECT_NE(strTaken, "");
        EXPECT_NE(UnfinishedName(folder), strTaken);
        file.Close();
        close(nHeld);
        EXPECT_EQ(folder.Read("a"), "new");
        EXPECT_THAT(folder.List(), ElementsAre("a"));
    }
}

TEST(StrayFile, AFileThatGetsItsNameWhileItIsLookedAtStays) {
    const CFolder folder;
    CReplacementFile first(folder.Path("a").c_str());
    first.Write("new", 3);
    const CSystemCalls watch(Once("flock", [&] { first.Close(); })); // asked of the unfinished "a"
    Replace(folder.Path("b"));
    EXPECT_EQ(folder.Read("a"), "new");
    EXPECT_THAT(folder.List(), ElementsAre("a", "b"));
}

TEST(StrayFile, AllOfAProcessAreRemovedAtOnce) {
    const CFolder folder;
    const CFolder other;
    {
        CReplacementFile first(folder.Path("a").c_str());
        Replace(folder.Path("b"));
        CReplacementFile second(other.Path("c").c_str());
        CReplacementFile::RemoveUnfinished();
        EXPECT_THAT(folder.List(), ElementsAre("b"));
        EXPECT_THAT(other.List(), ElementsAre());
        EXPECT_THROW(first.Close(), CFileException);
    }
    Replace(folder.Path("c"));
    CReplacementFile::RemoveUnfinished();
    EXPECT_THAT(folder.List(), ElementsAre("b", "c"));
}

} // namespace
