#include "tessara/platform/files/File.h"

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/resource.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tessara/platform/base/Archive.h"

namespace {

namespace fs = std::filesystem;

int CauseOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const CFileException& error) {
        return error.m_cause;
    }
    return CFileException::none;
}

/// A folder of its own for each test.
class File : public testing::Test {
protected:
    File() {
        std::string strPattern = (fs::temp_directory_path() / "tessara-file-XXXXXX").string();
        m_folder = mkdtemp(strPattern.data());
    }
    ~File() override { fs::remove_all(m_folder); }

    CString Path(const char* pszName) const { return CString((m_folder / pszName).string()); }

    void WriteText(const char* pszName, const char* pszText, UINT nFlags = CFile::modeCreate) {
        CFile file(Path(pszName), nFlags | CFile::modeWrite | CFile::typeBinary | CFile::shareExclusive);
        file.Write(pszText, static_cast<UINT>(std::strlen(pszText)));
        file.Close();
    }

    std::string Content(const char* pszName) const {
        std::ifstream stream(m_folder / pszName, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    fs::path m_folder;
};

TEST_F(File, OpeningCreatesEmptiesOrKeeps) {
    WriteText("a", "first");
    WriteText("a", "2nd");
    EXPECT_EQ(Content("a"), "2nd");
    WriteText("a", "XY", CFile::modeCreate | CFile::modeNoTruncate);
    EXPECT_EQ(Content("a"), "XYd");
    WriteText("a", "Z", 0);
    EXPECT_EQ(Content("a"), "ZYd");
}

TEST_F(File, ReadsAndWritesAtPositions) {
    CFile file(Path("a"), CFile::modeCreate | CFile::modeReadWrite);
    file.Write("0123456789", 10);
    EXPECT_EQ(file.Seek(-3, CFile::end), 7);
    EXPECT_EQ(file.GetRemaining(), 3U);
    char text[8] = {};
    EXPECT_EQ(file.Read(text, 8), 3U);
    EXPECT_STREQ(text, "789");
    EXPECT_EQ(file.Read(text, 8), 0U);
    EXPECT_EQ(file.Seek(-8, CFile::current), 2);
    file.Write("ab", 2);
    EXPECT_EQ(file.GetPosition(), 4U);
    file.SetLength(6);
    EXPECT_EQ(file.SeekToEnd(), 6U);
    EXPECT_EQ(file.Seek(8, CFile::begin), 8);
    EXPECT_EQ(file.GetRemaining(), 0U);
    file.Write("!", 1);
    file.Flush();
    EXPECT_EQ(Content("a"), std::string("01ab45\0\0!", 9));
    EXPECT_EQ(CauseOf([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
    EXPECT_EQ(CauseOf([&] { file.Seek(0, 7); }), CFileException::badSeek);
    EXPECT_EQ(file.GetPosition(), 9U);
}

TEST_F(File, SaysWhyItCannotBeOpened) {
    WriteText("plain", "");
    const struct {
        CString strPath;
        UINT nFlags;
        int nCause;
    } cases[] = {
        {Path("missing"), CFile::modeRead, CFileException::fileNotFound},
        {Path("missing/a"), CFile::modeCreate | CFile::modeWrite, CFileException::fileNotFound},
        {Path("plain/a"), CFile::modeRead, CFileException::badPath},
        {Path("."), CFile::modeRead, CFileException::accessDenied},
        {Path("."), CFile::modeWrite, CFileException::accessDenied},
        {CString(), CFile::modeRead, CFileException::fileNotFound},
    };
    for (const auto& item : cases) {
        CFile file;
        CFileException error;
        EXPECT_FALSE(file.Open(item.strPath, item.nFlags, &error)) << item.strPath;
        EXPECT_EQ(error.m_cause, item.nCause) << item.strPath;
        EXPECT_FALSE(file.Open(item.strPath, item.nFlags)) << item.strPath;
        EXPECT_THROW(CFile(item.strPath, item.nFlags), CFileException) << item.strPath;
    }
}

TEST_F(File, AClosedFileRefusesEverything) {
    CFile file(Path("a"), CFile::modeCreate | CFile::modeReadWrite);
    file.Close();
    EXPECT_NO_THROW(file.Close());
    char ch = 0;
    const std::function<void()> actions[] = {[&] { file.Read(&ch, 1); }, [&] { file.Write(&ch, 1); },
                                             [&] { file.SeekToBegin(); }, [&] { file.GetLength(); },
                                             [&] { file.Flush(); }};
    for (const auto& action : actions) {
        EXPECT_EQ(CauseOf(action), CFileException::invalidFile);
    }
}

TEST_F(File, AFullDiskIsADiskFull) {
    CFile file("/dev/full", CFile::modeWrite);
    EXPECT_EQ(CauseOf([&] { file.Write("x", 1); }), CFileException::diskFull);

    CArchive ar(&file, CArchive::store);
    ar << 1.0;
    EXPECT_EQ(CauseOf([&] { ar.Close(); }), CFileException::diskFull);
}

TEST_F(File, AWriteThatStopsHalfWayIsReported) {
    // The limit lets the first part of the write succeed, so that only a second attempt meets the error.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit previous;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &previous), 0);
    const rlimit limit = {1000, previous.rlim_max};
    CFile file(Path("a"), CFile::modeCreate | CFile::modeWrite);
    const std::string strText(1500, 'x');
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    const int nCause = CauseOf([&] { file.Write(strText.data(), 1500); });
    setrlimit(RLIMIT_FSIZE, &previous);
    EXPECT_EQ(nCause, CFileException::diskFull);
    EXPECT_EQ(Content("a").size(), 1000U);
}

TEST_F(File, IsClosedWithTheObjectAndNotInherited) {
    const int nProbe = dup(0);
    close(nProbe); // the lowest descriptor that is free: the file's
    {
        CFile file(Path("a"), CFile::modeCreate | CFile::modeWrite);
        EXPECT_TRUE(file.Open(Path("b"), CFile::modeCreate | CFile::modeWrite));
        EXPECT_EQ(fcntl(nProbe, F_GETFD), FD_CLOEXEC);
        EXPECT_EQ(fcntl(nProbe + 1, F_GETFD), -1);
    }
    EXPECT_EQ(fcntl(nProbe, F_GETFD), -1);
}

TEST_F(File, KnowsItsPathAndRemovesFilesOnly) {
    WriteText("name.tsv", "");
    const fs::path previous = fs::current_path();
    fs::current_path(m_folder);
    CFile file("name.tsv", CFile::modeRead);
    fs::current_path(previous);
    EXPECT_EQ(file.GetFilePath(), Path("name.tsv"));
    EXPECT_EQ(file.GetFileName(), "name.tsv");
    file.SetFilePath("other");
    EXPECT_EQ(file.GetFileName(), "other");

    CFile::Remove(Path("name.tsv"));
    EXPECT_FALSE(fs::exists(m_folder / "name.tsv"));
    EXPECT_EQ(CauseOf([&] { CFile::Remove(Path("name.tsv")); }), CFileException::fileNotFound);
    EXPECT_NE(CauseOf([&] { CFile::Remove(CString(m_folder.string())); }), CFileException::none);
    EXPECT_TRUE(fs::exists(m_folder));
}

} // namespace
