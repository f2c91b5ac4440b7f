#include "tessara/platform/files/File.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tessara/platform/base/Archive.h"
#include "tessara/platform/files/MemFile.h"
#include "tests/cli/Folder.h"

namespace {

int CauseOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const CFileException& error) {
        return error.m_cause;
    }
    return CFileException::none;
}

std::string Content(CFile& file) {
    std::string strContent(file.GetLength(), '?');
    file.SeekToBegin();
    file.Read(strContent.data(), static_cast<UINT>(strContent.size()));
    return strContent;
}

/// A folder of its own for each test.
class File : public testing::Test {
protected:
    CString Path(const char* pszName) const { return CString(m_folder.Path(pszName)); }
    const CFolder m_folder;
};

TEST_F(File, OpeningCreatesEmptiesOrKeeps) {
    const auto write = [&](UINT nFlags, const std::string& strText) {
        CFile file(Path("a"), nFlags | CFile::modeReadWrite | CFile::shareExclusive);
        file.Write(strText.data(), static_cast<UINT>(strText.size()));
        return Content(file);
    };
    EXPECT_EQ(write(CFile::modeCreate, "first"), "first");
    EXPECT_EQ(write(CFile::modeCreate, "2nd"), "2nd");
    EXPECT_EQ(write(CFile::modeCreate | CFile::modeNoTruncate, "XY"), "XYd");
    EXPECT_EQ(write(0, "Z"), "ZYd");
}

TEST_F(File, OnDiskAndInMemoryReadsAndWritesAtPositions) {
    CFile disk(Path("a"), CFile::modeCreate | CFile::modeReadWrite);
    CMemFile memory;
    for (CFile* pFile : {&disk, static_cast<CFile*>(&memory)}) {
        pFile->Write("0123456789", 10);
        EXPECT_EQ(pFile->Seek(-3, CFile::end), 7);
        char text[8] = {};
        EXPECT_EQ(pFile->Read(text, 8), 3U);
        EXPECT_STREQ(text, "789");
        EXPECT_EQ(pFile->Seek(-8, CFile::current), 2);
        pFile->Write("ab", 2);
        pFile->SetLength(3);
        EXPECT_EQ(pFile->GetPosition(), 4U);
        EXPECT_EQ(pFile->GetRemaining(), 0U);
        EXPECT_EQ(pFile->Read(text, 8), 0U);
        pFile->Seek(5, CFile::begin);
        pFile->Write("!", 1);
        EXPECT_EQ(Content(*pFile), std::string("01a\0\0!", 6));
    }
}

TEST_F(File, EveryFailureHasItsCauseAndChangesNothing) {
    CFile file(Path("a"), CFile::modeCreate | CFile::modeReadWrite);
    CFile closed;
    CMemFile memory;
    memory.Write("abc", 3);
    const std::pair<int, std::function<void()>> cases[] = {
        {CFileException::fileNotFound, [&] { CFile(Path("missing"), CFile::modeRead); }},
        {CFileException::fileNotFound, [&] { CFile("", CFile::modeRead); }},
        {CFileException::badPath, [&] { CFile(Path("a/b"), CFile::modeRead); }},
        {CFileException::accessDenied, [&] { CFile(Path("."), CFile::modeRead); }},
        {CFileException::accessDenied, [&] { CFile::Remove(Path("")); }},
        {CFileException::badSeek, [&] { file.Seek(-1, CFile::begin); }},
        {CFileException::badSeek, [&] { memory.Seek(INT64_MAX, CFile::end); }},
        {CFileException::invalidFile, [&] { closed.GetLength(); }},
    };
    for (const auto& [nCause, action] : cases) {
        EXPECT_EQ(CauseOf(action), nCause);
    }
    memory.Seek(INT64_MAX, CFile::begin);
    EXPECT_THROW(memory.Write("x", 1), CMemoryException);
    EXPECT_EQ(Content(memory), "abc");
}

TEST_F(File, FailuresThatShareACauseSayWhichTheyAre) {
    const std::pair<int, std::string> cases[] = {
        {ENOENT, "no such file"},      {ENOTDIR, "no such folder"},
        {EACCES, "permission denied"}, {ENOSPC, "no space left on the disk"},
        {EISDIR, "Is a directory"},    {ELOOP, "Too many levels of symbolic links"},
        {EIO, "Input/output error"},   {EROFS, "Read-only file system"}};
    for (const auto& [nErrno, strReason] : cases) {
        EXPECT_EQ(CFileException::FromErrno(nErrno, "a").what(), "a: " + strReason);
    }
}

TEST_F(File, AWriteThatStopsHalfWayIsAFullDiskReportedOnceAndNotByADestructor) {
    // The limit lets the first part of the write succeed, so that only a second attempt meets the error.
    rlimit previous;
    getrlimit(RLIMIT_FSIZE, &previous);
    const rlimit limit = {1000, previous.rlim_max};
    const std::string strText(1500, 'x');
    CFile file(Path("a"), CFile::modeCreate | CFile::modeWrite);
    CArchive ar(&file, CArchive::store);
    ar.Write(strText.data(), 1500);
    setrlimit(RLIMIT_FSIZE, &limit);
    const int nCause = CauseOf([&] { ar.Flush(); });
    EXPECT_NO_THROW(ar.Close());
    CArchive(&file, CArchive::store).Write(strText.data(), 1500);
    setrlimit(RLIMIT_FSIZE, &previous);
    EXPECT_EQ(nCause, CFileException::diskFull);
    EXPECT_EQ(file.GetLength(), 1000U);
    sigset_t pending;
    sigpending(&pending);
    EXPECT_FALSE(sigismember(&pending, SIGXFSZ)) << "the system's signal must not come later either";
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

} // namespace
