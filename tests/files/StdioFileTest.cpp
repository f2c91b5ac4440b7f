#include "tessara/platform/files/StdioFile.h"

#include <cstring>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "tests/cli/Folder.h"

using testing::ElementsAre;
using namespace std::string_literals;

namespace {

class StdioFile : public testing::Test {
protected:
    std::vector<std::string> Lines(const std::string& strBytes, UINT nFlags) const {
        CStdioFile file(m_folder.Write("a", strBytes).c_str(), CFile::modeRead | nFlags);
        std::vector<std::string> lines;
        for (CString strLine; file.ReadString(strLine);) {
            lines.emplace_back(strLine.View());
        }
        return lines;
    }

    /// The lines put together from buffers of a size.
    std::string Pieces(const std::string& strBytes, UINT nFlags, UINT nMax) const {
        CStdioFile file(m_folder.Write("a", strBytes).c_str(), CFile::modeRead | nFlags);
        std::string strText;
        std::string strBuffer(nMax, '#');
        while (const char* psz = file.ReadString(strBuffer.data(), nMax)) {
            EXPECT_GT(std::strlen(psz), 0U);
            EXPECT_LT(std::strlen(psz), nMax);
            strText += psz;
        }
        return strText;
    }

    const CFolder m_folder;
};

TEST_F(StdioFile, LinesEndWithEitherEndAndKeepAllElse) {
    const std::string strBytes = "a\r\n\r\nb\n\rc\rd\r\r\nx\0y\nlast\r"s;
    EXPECT_THAT(Lines(strBytes, CFile::typeText), ElementsAre("a", "", "b", "\rc\rd\r", "x\0y"s, "last\r"));
    EXPECT_THAT(Lines(strBytes, CFile::typeBinary),
                ElementsAre("a\r", "\r", "b", "\rc\rd\r\r", "x\0y"s, "last\r"));
    EXPECT_THAT(Lines("\xEF\xBB\xBF"
                      "1\n\xEF\xBB\xBF",
                      0),
                ElementsAre("1", "\xEF\xBB\xBF"));
    EXPECT_THAT(Lines("\xEF\xBB\xBF"
                      "1\n",
                      CFile::typeBinary),
                ElementsAre("\xEF\xBB\xBF"
                            "1"));
    EXPECT_THAT(Lines("\xEF\xBB\xBF", 0), ElementsAre());
    EXPECT_THAT(Lines("", 0), ElementsAre());
    EXPECT_THAT(Lines("\n", 0), ElementsAre(""));
}

TEST_F(StdioFile, LineEndsAreFoundWhereverWhatIsReadAheadEnds) {
    for (const std::size_t nLength : {65534U, 65535U, 65536U, 65537U, 200000U}) {
        const std::string strLong(nLength, 'x');
        EXPECT_THAT(Lines(strLong + "\r\n" + strLong + "\ny", 0), ElementsAre(strLong, strLong, "y"));
        EXPECT_EQ(Pieces(strLong + "\r\ny", 0, 4096), strLong + "\ny");
    }
}

TEST_F(StdioFile, ABufferGetsLinesInPiecesThatMakeThemUp) {
    for (const UINT nMax : {2U, 3U, 4U, 100U}) {
        EXPECT_EQ(Pieces("ab\r\n\r\ncde\rf\ng\r", 0, nMax), "ab\n\ncde\rf\ng\r") << nMax;
        EXPECT_EQ(Pieces("ab\r\n\r\ncde\n", CFile::typeBinary, nMax), "ab\r\n\r\ncde\n") << nMax;
    }
    CStdioFile file(m_folder.Write("a", "ab\ncd").c_str(), CFile::modeRead);
    char buffer[8] = "#######";
    EXPECT_EQ(file.ReadString(buffer, 0), nullptr);
    EXPECT_STREQ(file.ReadString(buffer, 1), "");
    EXPECT_STREQ(file.ReadString(buffer, 8), "ab\n") << "one line at a time";
    EXPECT_STREQ(file.ReadString(buffer, 8), "cd");
    EXPECT_EQ(file.ReadString(buffer, 8), nullptr);
    EXPECT_STREQ(buffer, "cd") << "left alone";
}

TEST_F(StdioFile, ReadingWritingAndSeekingMix) {
    CStdioFile file(m_folder.Write("a", "one\r\ntwo\nthree\n").c_str(), CFile::modeReadWrite);
    CString strLine;
    file.ReadString(strLine);
    EXPECT_EQ(file.GetPosition(), 5U);
    char bytes[3];
    EXPECT_EQ(file.Read(bytes, 3), 3U);
    EXPECT_EQ(std::string(bytes, 3), "two");
    EXPECT_EQ(file.Seek(1, CFile::current), 9);
    file.WriteString("THR");
    file.ReadString(strLine);
    EXPECT_EQ(strLine, "ee");
    EXPECT_EQ(file.GetRemaining(), 0U);
    file.WriteString("four\n");
    file.WriteString(nullptr);
    file.SeekToBegin();
    file.ReadString(strLine);
    file.SetLength(9);
    file.ReadString(strLine);
    EXPECT_EQ(strLine, "two");
    EXPECT_FALSE(file.ReadString(strLine)) << "nothing of what was read ahead is left";
    file.SetLength(0);
    file.SeekToBegin();
    file.WriteString("x\n");
    file.Close();
    EXPECT_EQ(m_folder.Read("a"), "x\n");
    EXPECT_THROW(file.ReadString(strLine), CFileException);
    m_folder.Write("b", "1\r\n");
    EXPECT_TRUE(file.Open(m_folder.Path("b").c_str(), CFile::modeRead | CFile::typeBinary));
    file.ReadString(strLine);
    EXPECT_EQ(strLine, "1\r") << "the mode is the last opening's";
}

TEST_F(StdioFile, ALineOfAPipeIsThereBeforeThePipeEnds) {
    mkfifo(m_folder.Path("pipe").c_str(), 0600);
    const int nWriter = open(m_folder.Path("pipe").c_str(), O_RDWR);
    CStdioFile file(m_folder.Path("pipe").c_str(), CFile::modeRead);
    ASSERT_EQ(write(nWriter, "one\n", 4), 4);
    CString strLine;
    EXPECT_TRUE(file.ReadString(strLine));
    EXPECT_EQ(strLine, "one");
    close(nWriter);
    EXPECT_FALSE(file.ReadString(strLine));
}

TEST_F(StdioFile, RandomBytesReadAsAPlainModelSays) {
    std::mt19937 random(7);
    for (int nRound = 0; nRound < 500; ++nRound) {
        std::string strBytes;
        for (auto n = random() % 40; n > 0; --n) {
            strBytes += "\r\n\rab\0\xEF"[random() % 7];
        }
        std::vector<std::string> expected;
        for (std::string_view rest = strBytes; !rest.empty();) {
            const std::size_t nEnd = rest.find('\n');
            std::string strLine(rest.substr(0, nEnd));
            rest.remove_prefix(std::min(nEnd, rest.size() - 1) + 1);
            if (nEnd != std::string_view::npos && strLine.ends_with('\r')) {
                strLine.pop_back();
            }
            expected.push_back(strLine);
        }
        ASSERT_EQ(Lines(strBytes, 0), expected) << testing::PrintToString(strBytes);
    }
}

} // namespace
