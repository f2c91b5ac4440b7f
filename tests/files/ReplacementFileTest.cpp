#include "tessara/platform/files/ReplacementFile.h"

#include <csignal>
#include <sys/resource.h>

#include <gtest/gtest.h>

#include "tests/cli/Folder.h"

namespace {

using Names = std::vector<std::string>;

TEST(ReplacementFile, IsInPlaceOnlyWhenItIsClosed) {
    const CFolder folder;
    const std::string strPath = folder.Write("a.dat", "old");
    tessara::CReplacementFile file(strPath.c_str());
    file.Write("new one", 7);
    EXPECT_EQ(folder.Read("a.dat"), "old");
    file.Close();
    EXPECT_EQ(folder.Read("a.dat"), "new one");
    EXPECT_EQ(folder.List(), Names{"a.dat"});
    tessara::CReplacementFile other(folder.Path("b.dat").c_str());
    other.Write("b", 1);
    other.Close();
    other.Close();
    EXPECT_EQ(folder.List(), (Names{"a.dat", "b.dat"}));
}

TEST(ReplacementFile, LeavesTheOldOneAndNothingElseWithoutClosing) {
    const CFolder folder;
    const std::string strPath = folder.Write("a.dat", "old");
    {
        tessara::CReplacementFile file(strPath.c_str());
        file.Write("new", 3);
    }
    tessara::CReplacementFile aborted(strPath.c_str());
    aborted.Write("new", 3);
    aborted.Abort();
    EXPECT_THROW(tessara::CReplacementFile(folder.Path("none/a.dat").c_str()), CFileException);
    EXPECT_EQ(folder.Read("a.dat"), "old");
    EXPECT_EQ(folder.List(), Names{"a.dat"});
}

TEST(ReplacementFile, AFullDiskLeavesTheOldOne) {
    const CFolder folder;
    const std::string strPath = folder.Write("a.dat", "old");
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const auto pfnPrevious = signal(SIGXFSZ, SIG_IGN);
    const rlimit small{2, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(
        {
            tessara::CReplacementFile file(strPath.c_str());
            file.Write("longer", 6);
            file.Close();
        },
        CFileException);
    setrlimit(RLIMIT_FSIZE, &before);
    signal(SIGXFSZ, pfnPrevious);
    EXPECT_EQ(folder.Read("a.dat"), "old");
    EXPECT_EQ(folder.List(), Names{"a.dat"});
}

} // namespace
