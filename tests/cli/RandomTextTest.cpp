// Texts that programs and people damaged: every one is accepted whole or refused with one line.

#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "cli/ColumnFile.h"
#include "cli/DiagramOutput.h"
#include "cli/InputError.h"
#include "tessara/platform/gdi/DC.h"
#include "tests/cli/Diagrams.h"

namespace {

/// Makes texts of pieces, and damages them.
class CDamage {
public:
    explicit CDamage(std::vector<const char*> pieces) : m_Pieces(std::move(pieces)) {}

    unsigned Draw(std::size_t nCount) { return static_cast<unsigned>(m_random() % nCount); }

    std::string Piece() {
        return Draw(16) ? m_Pieces[Draw(m_Pieces.size())] : std::string(1, static_cast<char>(m_random()));
    }

    /// Puts a piece in or over, or repeats a stretch of up to 200 characters.
    void Strike(std::string& strText) {
        const std::size_t nAt = Draw(strText.size() + 1);
        const std::size_t nLength = Draw(4) ? Draw(4) : Draw(200);
        strText.replace(nAt, nLength, Draw(8) ? Piece() : strText.substr(Draw(strText.size() + 1), nLength));
    }

private:
    std::vector<const char*> m_Pieces;
    std::mt19937 m_random{20240601};
};

void ExpectOneLine(const CException& error, const std::string& strText) {
    ASSERT_EQ(std::string(error.what()).rfind("d.txt", 0), 0U) << strText;
    ASSERT_EQ(tessara::OneLine(error.what()).find('\n'), std::string::npos) << strText;
}

/// A table with some damage, or any pieces.
std::string NextTable(CDamage& damage) {
    const bool bTable = damage.Draw(3) > 0;
    const char chDelimiter = "\t,; "[damage.Draw(4)];
    const unsigned nColumns = 2 + damage.Draw(3);
    std::string strText = !bTable || damage.Draw(2) ? "" : nColumns == 2 ? "T_C,chi\n" : "# note\n";
    for (unsigned i = bTable ? nColumns * (1 + damage.Draw(5)) : 0; i > 0; i--) {
        strText += std::string(damage.Draw(2) ? "2.5" : "-3e2") + (i % nColumns == 1 ? '\n' : chDelimiter);
    }
    for (unsigned i = damage.Draw(bTable ? 4 : 24); i > 0; i--) {
        damage.Strike(strText);
    }
    return strText;
}

/// A file that was accepted has finite abscissae and a value in every row of every column.
void ExpectConsistent(const tessara::CColumnFile& file, const std::string& strText) {
    const std::vector<double>& x = file.GetAbscissa().m_Values;
    ASSERT_EQ(x.size(), static_cast<std::size_t>(file.GetNumRows())) << strText;
    ASSERT_TRUE(!x.empty() && std::all_of(x.begin(), x.end(), [](double d) { return std::isfinite(d); }))
        << strText;
    ASSERT_FALSE(file.GetFunctions().empty()) << strText;
    for (const tessara::COLUMN& column : file.GetFunctions()) {
        const std::vector<double>& y = column.m_Values;
        ASSERT_EQ(y.size(), x.size()) << strText;
        ASSERT_TRUE(std::none_of(y.begin(), y.end(), [](double d) { return std::isinf(d); })) << strText;
    }
}

TEST(RandomText, ColumnFilesAreAcceptedOrRefusedWithOneLine) {
    using tessara::CColumnChoice;
    using tessara::CDelimiter;
    const tessara::COLUMNFORMAT formats[] = {{},
                                             {CDelimiter(','), {}},
                                             {{}, CColumnChoice("--columns", "2,1")},
                                             {CDelimiter(' '), CColumnChoice("--columns", "T_C,2")}};
    CDamage damage(
        {"1",    "2.5", "-3e2", "nan", "NA",       "inf",  "x",     "T_C",   "1,5",          "\"",
         "\"\"", "#",   ",",    ";",   "\t",       " ",    "\n",    "\r\n",  "\r",           "~",
         ".",    "-",   "",     "\"a", "\xC3\xA4", "\x80", "1e999", "0x1p3", "\xEF\xBB\xBF", "\"1\""});
    int nAccepted = 0;
    for (int i = 0; i < 100000; i++) {
        const std::string strText = NextTable(damage);
        try {
            tessara::CColumnFile file =
                tessara::CColumnFile::Parse(strText, "d.txt", formats[damage.Draw(std::size(formats))]);
            ExpectConsistent(file, strText);
            file.Sort();
            file.CheckAscending();
            nAccepted++;
        } catch (const tessara::CInputError& error) {
            ExpectOneLine(error, strText);
        }
    }
    EXPECT_GT(nAccepted, 10000) << "otherwise the texts are too odd to get far";
}

/// The full diagram with some damage, most of it to its numbers.
std::string NextDiagram(CDamage& damage) {
    const char* const numbers[] = {"1", "0.07", "283", "-12.5", "-0", "1e308", "-1e308", "5e-324", "null"};
    std::string strText = FULL_DIAGRAM;
    for (unsigned i = 1 + damage.Draw(3); i > 0; i--) {
        if (damage.Draw(2)) {
            damage.Strike(strText);
            continue;
        }
        const std::size_t nStart =
            std::min(strText.find_first_of("0123456789", damage.Draw(strText.size())), strText.size());
        const std::size_t nEnd = std::min(strText.find_first_not_of("0123456789.e", nStart), strText.size());
        strText.replace(nStart, nEnd - nStart, numbers[damage.Draw(std::size(numbers))]);
    }
    return strText;
}

void ExpectConsistent(const tessara::DIAGRAM& diagram, const std::string& strText) {
    for (const tessara::DIAGRAMCURVE* pCurve : {&diagram.binodal, &diagram.spinodal}) {
        for (const tessara::DIAGRAMPART& part : pCurve->parts) {
            ASSERT_EQ(part.x.size(), part.y.size()) << strText;
            ASSERT_TRUE(part.shadow.empty() || part.shadow.size() == part.x.size()) << strText;
            ASSERT_EQ(part.bHasColor, pCurve->HasBranches()) << strText;
            ASSERT_TRUE(part.nColor >= 0 && part.nColor <= 5) << strText;
        }
    }
    ASSERT_EQ(diagram.lifshitz.x.size(), diagram.lifshitz.y.size()) << strText;
}

TEST(RandomText, DiagramsAreDrawnOrRefusedWithOneLine) {
    CDamage damage(
        {"1e999", "NaN",       "true",        "\"x\"",          "\"y\":",     "[",     "]",  "{",  "}",  ",",
         ":",     "\"",        "\\u0000",     "\xFF",           "\xC3\xA4",   "[1,2]", "{}", "[]", "\n", "//",
         "-",     "\\uD800\"", "\"zoom\":1,", "\"color\": 2, ", "\"name\":1", "",      ""});
    int nAccepted = 0;
    for (int i = 0; i < 30000; i++) {
        const std::string strText = NextDiagram(damage);
        try {
            const tessara::DIAGRAM diagram = tessara::ParseDiagram(strText, "d.txt");
            ExpectConsistent(diagram, strText);
            nAccepted++;
            CDC nowhere;
            ASSERT_TRUE(tessara::CDiagramOutput(diagram).Paint(&nowhere, {0, 0, 512, 368}, nullptr));
        } catch (const tessara::CInputError& error) {
            ExpectOneLine(error, strText);
            ASSERT_TRUE(error.m_nLine > 0 && error.m_nColumn > 0) << strText;
        } catch (const CException& error) {
            ASSERT_STREQ(error.what(), "nothing of the diagram lies within what is to be shown");
        }
    }
    EXPECT_GT(nAccepted, 1500) << "otherwise the texts are too odd to get far";
}

} // namespace
