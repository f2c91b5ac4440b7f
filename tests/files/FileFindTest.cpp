#include "tessara/platform/files/FileFind.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "tests/cli/Folder.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FileFind : public testing::Test {
protected:
    /// What a program's loop sees.
    std::vector<std::string> Find(const std::string& strPattern) const {
        CFileFind finder;
        std::vector<std::string> names;
        BOOL bMore = finder.FindFile(m_folder.Path(strPattern).c_str());
        while (bMore) {
            bMore = finder.FindNextFile();
            names.emplace_back(finder.GetFileName());
        }
        return names;
    }

    const CFolder m_folder;
};

TEST_F(FileFind, PatternsMatchWholeNamesByCharactersAndCase) {
    for (const char* pszName :
         {"bas00002.bas", "bas00001.bas", "A.BAS", "noext", "\xC3\xA4.bas", "[x].bas", "a.b.c", ".h"}) {
        m_folder.Write(pszName, "");
    }
    EXPECT_THAT(Find("*.bas"), ElementsAre("[x].bas", "bas00001.bas", "bas00002.bas", "\xC3\xA4.bas"));
    EXPECT_THAT(Find("?.bas"), ElementsAre("\xC3\xA4.bas"));
    EXPECT_THAT(Find("[x].*"), ElementsAre("[x].bas"));
    EXPECT_THAT(Find("bas*1*as"), ElementsAre("bas00001.bas"));
    EXPECT_THAT(Find("*?.?"), ElementsAre("a.b.c"));
    EXPECT_THAT(Find("**a**"),
                ElementsAre("[x].bas", "a.b.c", "bas00001.bas", "bas00002.bas", "\xC3\xA4.bas"));
    EXPECT_EQ(Find("*.*").size(), 10U) << "all, with . and ..";
    EXPECT_EQ(Find("*"), Find("*.*"));
    EXPECT_THAT(Find("none/*"), IsEmpty());
    EXPECT_THAT(Find("*.bas/*"), IsEmpty());
    EXPECT_THAT(Find(""), IsEmpty());
}

TEST_F(FileFind, APatternOfManyStarsEndsQuickly) {
    m_folder.Write(std::string(200, 'a'), "");
    std::string strPattern;
    for (int i = 0; i < 60; ++i) {
        strPattern += "*a";
    }
    EXPECT_EQ(Find(strPattern).size(), 1U);
    EXPECT_THAT(Find(strPattern + "b"), IsEmpty());
}

TEST_F(FileFind, TellsWhatIsSafeToOpen) {
    m_folder.Write("file.x", "12345");
    std::filesystem::create_directory(m_folder.Path("folder.x"));
    std::filesystem::create_symlink("file.x", m_folder.Path("link.x"));
    std::filesystem::create_symlink("folder.x", m_folder.Path("linked-folder.x"));
    std::filesystem::create_symlink("nowhere", m_folder.Path("loose.x"));
    mkfifo(m_folder.Path("pipe.x").c_str(), 0600);
    CFileFind finder;
    EXPECT_TRUE(finder.FindFile(m_folder.Path("*.x").c_str()));
    EXPECT_EQ(finder.GetFileName(), "") << "before the first";
    EXPECT_FALSE(finder.IsDirectory() || finder.IsRegularFile());
    std::string strSeen;
    for (BOOL bMore = TRUE; bMore;) {
        bMore = finder.FindNextFile();
        strSeen += std::string(finder.GetFileTitle()) + (finder.IsDirectory() ? " directory" : "") +
                   (finder.IsSymbolicLink() ? " link" : "") + (finder.IsRegularFile() ? " regular" : "") +
                   " " + std::to_string(finder.GetLength()) + "\n";
        EXPECT_EQ(finder.GetFilePath(), m_folder.Path(std::string(finder.GetFileName())).c_str());
    }
    EXPECT_EQ(strSeen, "file regular 5\nfolder directory 0\nlink link 5\nlinked-folder directory link 0\n"
                       "loose link 0\npipe 0\n");
    EXPECT_FALSE(finder.FindNextFile());
    EXPECT_EQ(finder.GetFileName(), "") << "after the last";
}

TEST_F(FileFind, DotsAreFoldersAndARelativePatternIsOfTheWorkingFolder) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.Path(""));
    CFileFind finder;
    EXPECT_TRUE(finder.FindFile());
    for (const char* pszName : {".", ".."}) {
        finder.FindNextFile();
        EXPECT_EQ(finder.GetFileName(), pszName);
        EXPECT_EQ(finder.GetFileTitle(), pszName);
        EXPECT_TRUE(finder.IsDots() && finder.IsDirectory());
    }
    EXPECT_EQ(finder.GetRoot(), m_folder.Path("").c_str());
    std::filesystem::current_path(before);
}

} // namespace
