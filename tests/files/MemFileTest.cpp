#include "tessara/platform/files/MemFile.h"

#include <cstring>
#include <limits>

#include <gtest/gtest.h>

namespace {

std::string Content(const CMemFile& file) {
    return {file.GetBuffer().begin(), file.GetBuffer().end()};
}

TEST(MemFile, BehavesAsAFile) {
    CMemFile file;
    file.Write("0123456789", 10);
    EXPECT_EQ(file.Seek(-3, CFile::end), 7);
    char text[8] = {};
    EXPECT_EQ(file.Read(text, 8), 3U);
    EXPECT_STREQ(text, "789");
    EXPECT_EQ(file.Read(text, 8), 0U);
    file.SetLength(2);
    EXPECT_EQ(file.GetPosition(), 10U);
    EXPECT_EQ(file.GetRemaining(), 0U);
    EXPECT_EQ(file.Read(text, 8), 0U);
    EXPECT_EQ(file.Seek(-6, CFile::current), 4);
    file.Write("ab", 2);
    EXPECT_EQ(Content(file), std::string("01\0\0ab", 6));
}

TEST(MemFile, RefusesPositionsThatCannotBe) {
    CMemFile file;
    file.Write("abc", 3);
    constexpr std::int64_t nHuge = std::numeric_limits<std::int64_t>::max();
    EXPECT_THROW(file.Seek(-4, CFile::end), CFileException);
    EXPECT_THROW(file.Seek(nHuge, CFile::end), CFileException);
    EXPECT_THROW(file.Seek(0, 3), CFileException);
    EXPECT_EQ(file.GetPosition(), 3U);
    file.Seek(nHuge, CFile::begin);
    EXPECT_THROW(file.Write("x", 1), CMemoryException);
    EXPECT_EQ(Content(file), "abc");
}

TEST(MemFile, ClosingEmptiesIt) {
    CMemFile file(16);
    file.Write("abc", 3);
    file.Close();
    EXPECT_EQ(file.GetLength(), 0U);
    file.Write("d", 1);
    EXPECT_EQ(Content(file), "d");
    CFileException error;
    EXPECT_FALSE(file.Open("a", CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::invalidFile);
}

} // namespace
