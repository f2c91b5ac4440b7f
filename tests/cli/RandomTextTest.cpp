#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "cli/ColumnFile.h"
#include "cli/InputError.h"

using tessara::CColumnFile;
using tessara::CInputError;
using tessara::COLUMN;

namespace {

constexpr int TEXTS = 100000;

const char* const PIECES[] = {
    "1",    "2.5", "-3e2", "nan", "NA",       "inf",  "x",     "T_C",   "1,5",          "\"",
    "\"\"", "#",   ",",    ";",   "\t",       " ",    "\n",    "\r\n",  "\r",           "~",
    ".",    "-",   "",     "\"a", "\xC3\xA4", "\x80", "1e999", "0x1p3", "\xEF\xBB\xBF", "\"1\""};

/// Tables with some damage, and texts of the pieces that tables are made of and of any bytes.
class CTextSource {
public:
    std::string Next() {
        if (m_random() % 2) {
            return AnyPieces(m_random() % 24);
        }
        std::string strText = Table();
        for (unsigned i = m_random() % 4; i > 0; i--) {
            strText.replace(m_random() % (strText.size() + 1), m_random() % 3, AnyPieces(1));
        }
        return strText;
    }

    tessara::COLUMNFORMAT NextFormat() {
        tessara::COLUMNFORMAT format;
        if (m_random() % 4 == 0) {
            format.delimiter = tessara::CDelimiter("\t,; "[m_random() % 4]);
        }
        if (m_random() % 4 == 0) {
            format.choice = tessara::CColumnChoice("--columns", m_random() % 2 ? "2,1" : "T_C,2");
        }
        return format;
    }

private:
    std::string AnyPieces(unsigned nPieces) {
        std::string strText;
        for (unsigned i = 0; i < nPieces; i++) {
            const bool bByte = m_random() % 16 == 0;
            strText += bByte ? std::string(1, static_cast<char>(m_random()))
                             : PIECES[m_random() % std::size(PIECES)];
        }
        return strText;
    }

    std::string Table() {
        const char chDelimiter = "\t,; "[m_random() % 4];
        const unsigned nColumns = 2 + m_random() % 3;
        std::string strText = m_random() % 2 ? "" : nColumns == 2 ? "T_C,chi\n" : "# note\n";
        for (unsigned i = nColumns * (1 + m_random() % 5); i > 0; i--) {
            strText += PIECES[m_random() % 3];
            strText += i % nColumns == 1 ? '\n' : chDelimiter;
        }
        return strText;
    }

    std::mt19937 m_random{20240601};
};

/// A file that was accepted has finite abscissae and a value in every row of every column.
void ExpectConsistent(const CColumnFile& file, const std::string& strText) {
    const auto nRows = static_cast<std::size_t>(file.GetNumRows());
    ASSERT_GT(nRows, 0U) << strText;
    ASSERT_EQ(file.GetAbscissa().m_Values.size(), nRows) << strText;
    for (const double x : file.GetAbscissa().m_Values) {
        ASSERT_TRUE(std::isfinite(x)) << strText;
    }
    ASSERT_FALSE(file.GetFunctions().empty()) << strText;
    for (const COLUMN& column : file.GetFunctions()) {
        ASSERT_EQ(column.m_Values.size(), nRows) << strText;
        for (const double y : column.m_Values) {
            ASSERT_FALSE(std::isinf(y)) << strText;
        }
    }
}

TEST(ColumnFile, AcceptsOrRefusesAnyTextWithOneLine) {
    CTextSource source;
    int nAccepted = 0;
    for (int i = 0; i < TEXTS; i++) {
        const std::string strText = source.Next();
        try {
            CColumnFile file = CColumnFile::Parse(strText, "d.txt", source.NextFormat());
            ExpectConsistent(file, strText);
            file.Sort();
            file.CheckAscending();
            nAccepted++;
        } catch (const CInputError& error) {
            ASSERT_EQ(std::string(error.what()).rfind("d.txt", 0), 0U);
            ASSERT_EQ(tessara::OneLine(error.what()).find('\n'), std::string::npos);
        }
    }
    // Otherwise the texts are too odd to get far.
    EXPECT_GT(nAccepted, TEXTS / 10);
}

} // namespace
