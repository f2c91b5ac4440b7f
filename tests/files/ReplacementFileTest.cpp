#include "tessara/platform/files/ReplacementFile.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>

#include "tests/cli/Folder.h"
#include "tests/support/PlainUser.h"

using tessara::CReplacementFile;
using testing::ElementsAre;

namespace {

/// What replacing a file by these bytes says.
std::string Replace(const std::string& strPath, const std::string& strBytes = "new") {
    try {
        CReplacementFile file(strPath.c_str());
        file.Write(strBytes.data(), static_cast<UINT>(strBytes.size()));
        file.Close();
        return "replaced";
    } catch (const CFileException& error) {
        return error.what();
    }
}

mode_t ModeOf(const std::string& strPath) {
    struct stat status {};
    stat(strPath.c_str(), &status);
    return status.st_mode & 07777;
}

/// The mode of the one file in the folder that is not finished.
mode_t UnfinishedMode(const CFolder& folder) {
    for (const std::string& strName : folder.List()) {
        if (strName.starts_with(".tessara-")) {
            return ModeOf(folder.Path(strName));
        }
    }
    return 0;
}

TEST(ReplacementFile, IsInPlaceOnlyWhenItIsClosed) {
    const CFolder folder;
    const std::string strPath = folder.Write("a.dat", "old");
    CReplacementFile file(strPath.c_str());
    CReplacementFile other(folder.Path("b.dat").c_str());
    CReplacementFile lost(folder.Path("c.dat").c_str());
    for (CReplacementFile* pFile : {&file, &other, &lost}) {
        pFile->Write("new one", 7);
        EXPECT_EQ(folder.Read("a.dat"), "old");
    }
    EXPECT_EQ(file.GetFilePath(), strPath.c_str());
    file.Close();
    file.Close();
    other.Close();
    EXPECT_EQ(folder.Read("a.dat") + folder.Read("b.dat"), "new onenew one");
    lost.Abort();
    { CReplacementFile(strPath.c_str()).Write("half", 4); }
    EXPECT_EQ(folder.Read("a.dat"), "new one");
    EXPECT_THAT(folder.List(), ElementsAre("a.dat", "b.dat"));
}

TEST(ReplacementFile, OpensAgainAndTellsWhyItCannot) {
    const CFolder folder;
    CReplacementFile file(folder.Path("a").c_str());
    file.Write("1", 1);
    EXPECT_TRUE(file.Open(folder.Path("b").c_str()));
    CFileException error;
    EXPECT_FALSE(file.Open(folder.Path("none/c").c_str(), CFile::modeCreate, &error));
    EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
    EXPECT_EQ(error.m_strFileName, folder.Path("none/c"));
    EXPECT_THROW(file.Write("1", 1), CFileException) << "closed";
    EXPECT_THAT(folder.List(), ElementsAre());
}

TEST(ReplacementFile, FollowsLinksAlsoToWhatIsNotThereYet) {
    const CFolder folder;
    const CFolder elsewhere;
    std::filesystem::create_directory(folder.Path("real"));
    std::filesystem::create_symlink("real/a.dat", folder.Path("link"));
    std::filesystem::create_symlink("link", folder.Path("chain"));
    std::filesystem::create_symlink(elsewhere.Path("b.dat"), folder.Path("real/away"));
    std::filesystem::create_symlink("real/away", folder.Path("far"));
    for (const char* pszBytes : {"first", "second"}) {
        EXPECT_EQ(Replace(folder.Path("chain"), pszBytes), "replaced");
        EXPECT_EQ(Replace(folder.Path("far"), pszBytes), "replaced");
        EXPECT_EQ(folder.Read("real/a.dat") + elsewhere.Read("b.dat"), std::string(pszBytes) + pszBytes);
    }
    for (const char* pszLink : {"link", "chain", "far", "real/away"}) {
        EXPECT_TRUE(std::filesystem::is_symlink(folder.Path(pszLink)));
    }
}

TEST(ReplacementFile, RefusesWhatCannotBecomeAFileAndChangesNothing) {
    const CFolder folder;
    const std::string strLong(300, 'a');
    std::filesystem::create_directory(folder.Path("folder"));
    std::filesystem::create_directory(folder.Path("closed"));
    std::filesystem::create_directory(folder.Path("fixed"));
    mkfifo(folder.Path("pipe").c_str(), 0600);
    for (const char* pszName : {"file", "locked", "fixed/a", "closed/a"}) {
        folder.Write(pszName, "old");
    }
    const std::pair<const char*, const char*> links[] = {{"loop", "loop"},
                                                         {"dangling", "none/a"},
                                                         {"to-pipe", "pipe"},
                                                         {"to-folder", "folder/"},
                                                         {"to-closed", "closed/b"}};
    for (const auto& [pszName, pszTo] : links) {
        std::filesystem::create_symlink(pszTo, folder.Path(pszName));
    }
    chmod(folder.Path("locked").c_str(), 0444);
    chmod(folder.Path("fixed").c_str(), 0555);
    chmod(folder.Path("closed").c_str(), 0);
    const std::pair<std::string, std::string> cases[] = {
        {"folder", "is a folder, not a file"},
        {"folder/", "is a folder, not a file"},
        {"to-folder", "is a folder, not a file"},
        {".", "is a folder, not a file"},
        {"pipe", "is not a plain file"},
        {"to-pipe", "is not a plain file"},
        {"none/a", "cannot be written: its folder does not exist"},
        {"none/", "cannot be written: its folder does not exist"},
        {"dangling", "cannot be written: its folder does not exist"},
        {"file/", "cannot be written: Not a directory"},
        {"file/a", "cannot be written: Not a directory"},
        {"loop", "cannot be written: Too many levels of symbolic links"},
        {strLong, "cannot be written: File name too long"},
        {"locked", "cannot be written: Permission denied"},
        {"fixed/a", "cannot be written: Permission denied"},
        {"fixed/b", "cannot be written: Permission denied"},
        {"closed/a", "cannot be written: Permission denied"},
        {"to-closed", "cannot be written: Permission denied"}};
    const auto before = folder.List();
    for (const auto& [strName, strReason] : cases) {
        const std::string strPath = folder.Path(strName);
        EXPECT_EQ(AsPlainUser([&] { return Replace(strPath); }), strPath + ": " + strReason);
    }
    EXPECT_EQ(AsPlainUser([] { return Replace(""); }), "the name of the file to write is empty");
    EXPECT_EQ(folder.List(), before);
    for (const auto& [pszName, pszTo] : links) {
        EXPECT_EQ(std::filesystem::read_symlink(folder.Path(pszName)), pszTo);
    }
    chmod(folder.Path("closed").c_str(), 0700);
    for (const char* pszName : {"file", "locked", "fixed/a", "closed/a"}) {
        EXPECT_EQ(folder.Read(pszName), "old") << pszName;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path("folder")));
}

TEST(ReplacementFile, TellsWhatBecameOfItsPlaceMeanwhile) {
    const std::string strGone = "cannot be written: its folder does not exist";
    const std::pair<std::function<void(const std::string&)>, std::string> cases[] = {
        {[](const std::string& str) { std::filesystem::remove_all(str); }, strGone},
        {[](const std::string& str) { std::filesystem::create_directory(str + "/a"); },
         "is a folder, not a file"},
        {[](const std::string& str) { std::filesystem::create_symlink("b", str + "/a"); },
         "is not a plain file"},
        {[](const std::string& str) {
             for (const auto& entry : std::filesystem::directory_iterator(str)) {
                 std::filesystem::remove(entry);
             }
         },
         "cannot be written: somebody removed the unfinished file"}};
    for (const auto& [change, strMessage] : cases) {
        const CFolder folder;
        std::filesystem::create_directory(folder.Path("d"));
        CReplacementFile file(folder.Path("d/a").c_str());
        file.Write("new", 3);
        change(folder.Path("d"));
        try {
            file.Close();
            ADD_FAILURE() << strMessage;
        } catch (const CFileException& error) {
            EXPECT_EQ(error.what(), folder.Path("d/a") + ": " + strMessage);
        }
    }
}

TEST(ReplacementFile, StaysInItsFolderWhateverThatIsCalled) {
    const CFolder folder;
    std::filesystem::create_directory(folder.Path("d"));
    const auto pathBefore = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path("d"));
    CReplacementFile file("a");
    std::filesystem::current_path(pathBefore);
    std::filesystem::rename(folder.Path("d"), folder.Path("e"));
    file.Write("new", 3);
    file.Close();
    EXPECT_EQ(folder.Read("e/a"), "new");
}

TEST(ReplacementFile, HasTheOldPermissionsOrTheUmasksFromTheStart) {
    const CFolder folder;
    const mode_t nBefore = umask(027);
    const std::pair<const char*, mode_t> cases[] = {{"new", 0640}, {"a", 0600}, {"b", 0644},
                                                    {"c", 0666},   {"d", 0755}, {"e", 0707}};
    for (const auto& [pszName, nMode] : cases) {
        if (pszName != std::string("new")) {
            folder.Write(pszName, "old");
            chmod(folder.Path(pszName).c_str(), nMode | S_ISUID | S_ISGID);
        }
        CReplacementFile file(folder.Path(pszName).c_str());
        EXPECT_EQ(UnfinishedMode(folder), nMode) << pszName;
        file.Close();
        EXPECT_EQ(ModeOf(folder.Path(pszName)), nMode) << pszName;
    }
    umask(nBefore);
}

TEST(ReplacementFile, KeepsOwnerAndGroupOrGivesNobodyMore) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can give a file away";
    }
    const struct {
        uid_t nOwner;
        gid_t nGroup;
        mode_t nMode, nAsRoot, nAsPlainUser;
    } cases[] = {{1234, 4321, 0642, 0642, 0600}, {1234, 4321, 0666, 0666, 0666},
                 {1234, 0, 0662, 0662, 0662},    {0, 4321, 0664, 0664, 0644},
                 {0, 4321, 0604, 0604, 0600},    {0, 4321, 04755, 0755, 0755}};
    const CFolder folder;
    for (const auto& item : cases) {
        for (const bool bRoot : {true, false}) {
            const std::string strPath = folder.Write("a", "old");
            ASSERT_EQ(chown(strPath.c_str(), item.nOwner, item.nGroup), 0);
            chmod(strPath.c_str(), item.nMode);
            const auto replace = [&] { return Replace(strPath); };
            EXPECT_EQ(bRoot ? replace() : AsPlainUser(replace), "replaced") << item.nMode;
            struct stat status {};
            ASSERT_EQ(stat(strPath.c_str(), &status), 0);
            EXPECT_EQ(status.st_uid, bRoot ? item.nOwner : 0);
            EXPECT_EQ(status.st_gid, bRoot ? item.nGroup : 0);
            EXPECT_EQ(status.st_mode & 07777U, bRoot ? item.nAsRoot : item.nAsPlainUser);
            unlink(strPath.c_str());
        }
    }
}

/// An access control list as the system has it: what one further user and the owning group may do.
std::string AccessList(unsigned char nUserMay, unsigned char nGroupMay, unsigned char nMask) {
    constexpr unsigned char USER = 99;
    const auto entry = [](unsigned char nTag, unsigned char nMay, unsigned char nId = 0xFF) {
        const char nRest = nId == 0xFF ? '\xFF' : '\0';
        return std::string{static_cast<char>(nTag),
                           0,
                           static_cast<char>(nMay),
                           0,
                           static_cast<char>(nId),
                           nRest,
                           nRest,
                           nRest};
    };
    return std::string("\2\0\0\0", 4) + entry(1, 6) + entry(2, nUserMay, USER) + entry(4, nGroupMay) +
           entry(16, nMask) + entry(32, 0);
}

std::string ListOf(const std::string& strPath) {
    std::array<char, 256> list;
    const ssize_t nLength = getxattr(strPath.c_str(), "system.posix_acl_access", list.data(), list.size());
    return nLength < 0 ? std::string() : std::string(list.data(), static_cast<std::size_t>(nLength));
}

TEST(ReplacementFile, HasTheAccessListOfTheOldOneAndNoOther) {
    const CFolder folder;
    const std::string strListed = folder.Write("listed", "old");
    const std::string strPlain = folder.Write("plain", "old");
    chmod(strPlain.c_str(), 0660);
    const std::string strList = AccessList(6, 0, 6);
    if (setxattr(strListed.c_str(), "system.posix_acl_access", strList.data(), strList.size(), 0) != 0) {
        GTEST_SKIP() << "no access control lists here: " << std::strerror(errno);
    }
    const std::string strDefault = AccessList(4, 4, 4);
    ASSERT_EQ(setxattr(folder.Path("").c_str(), "system.posix_acl_default", strDefault.data(),
                       strDefault.size(), 0),
              0);
    for (const std::string& strPath : {strListed, strPlain, folder.Path("new")}) {
        EXPECT_EQ(Replace(strPath), "replaced");
    }
    EXPECT_EQ(ListOf(strListed), strList);
    EXPECT_EQ(ListOf(strPlain), "");
    EXPECT_EQ(ModeOf(strPlain), 0660U);
    EXPECT_EQ(ListOf(folder.Path("new")), strDefault);
    if (geteuid() == 0) { // the group 4321 is out of a plain user's reach
        ASSERT_EQ(chown(strListed.c_str(), 0, 4321), 0);
        EXPECT_EQ(AsPlainUser([&] { return Replace(strListed); }), "replaced");
        EXPECT_EQ(ListOf(strListed), "");
        EXPECT_EQ(ModeOf(strListed), 0600U);
    }
}

TEST(ReplacementFile, LeavesTheOldContentToAnotherName) {
    const CFolder folder;
    folder.Write("a", "old");
    std::filesystem::create_hard_link(folder.Path("a"), folder.Path("b"));
    EXPECT_EQ(Replace(folder.Path("a")), "replaced");
    EXPECT_EQ(folder.Read("a") + folder.Read("b"), "newold");
}

TEST(ReplacementFile, OfSeveralAtOnceOneWinsWhole) {
    const char* pszRounds = std::getenv("TESSARA_FILE_ROUNDS");
    const int nRounds = pszRounds ? std::atoi(pszRounds) : 25;
    constexpr std::size_t SIZE = 20000;
    const CFolder folder;
    const std::string strPath = folder.Write("a", std::string(SIZE, '-'));
    std::atomic<int> nWriting = 4;
    std::vector<std::thread> writers;
    std::vector<std::string> said(4);
    for (int n = 0; n < 4; ++n) {
        writers.emplace_back([&, n] {
            for (int i = 0; i < nRounds; ++i) {
                const std::string str = Replace(strPath, std::string(SIZE, static_cast<char>('a' + n)));
                said[n] = str == "replaced" ? said[n] : str;
            }
            --nWriting;
        });
    }
    while (nWriting > 0) {
        const std::string strSeen = folder.Read("a");
        ASSERT_TRUE(strSeen == std::string(SIZE, strSeen.empty() ? '?' : strSeen[0]));
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    EXPECT_THAT(said, testing::Each(""));
    EXPECT_THAT(folder.List(), ElementsAre("a"));
}

} // namespace
