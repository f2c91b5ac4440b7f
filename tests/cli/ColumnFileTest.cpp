#include <cmath>
#include <ostream>

#include <gmock/gmock.h>

#include "cli/ColumnFile.h"
#include "tests/cli/Outcome.h"

using tessara::CColumnChoice;
using tessara::CColumnFile;
using tessara::CDelimiter;
using tessara::COLUMN;
using tessara::COLUMNFORMAT;

namespace {

COLUMNFORMAT Choosing(const char* pszColumns) {
    return {std::nullopt, CColumnChoice("--columns", pszColumns)};
}

/// All numbers of a file in one text, row by row: "24 0.5 | 34 -".
std::string Show(const CColumnFile& file) {
    std::ostringstream text;
    for (int i = 0; i < file.GetNumRows(); i++) {
        text << (i ? " | " : "") << file.GetAbscissa().m_Values[i];
        for (const COLUMN& column : file.GetFunctions()) {
            std::isnan(column.m_Values[i]) ? text << " -" : text << " " << column.m_Values[i];
        }
    }
    return text.str();
}

std::string ShowNames(const CColumnFile& file) {
    std::string strNames = file.GetAbscissa().strName;
    for (const COLUMN& column : file.GetFunctions()) {
        strNames += "," + column.strName;
    }
    return strNames;
}

/// The rows of a text, or the message that refuses it.
std::string Outcome(const std::string& strText, const COLUMNFORMAT& format = {}) {
    std::string strRows;
    const std::string strMessage =
        Refusal([&] { strRows = Show(CColumnFile::Parse(strText, "d.txt", format)); });
    return strRows.empty() ? strMessage : strRows;
}

TEST(ColumnFile, ReadsWhatPeopleWriteAndRefusesWithLineAndColumn) {
    const struct {
        const char* pszWhat;
        std::string strText;
        const char* pszOutcome;
    } cases[] = {
        {"no newline at the end", "1\t2\n3\t4", "1 2 | 3 4"},
        {"CR LF, one CR for each line and a lone CR", "1 2\r\n3 4\r5 6\r\n", "1 2 | 3 4 | 5 6"},
        {"runs of blanks around fields", "  1   2\n 10 \t 20  \n", "1 2 | 10 20"},
        {"commas with blanks", "1, 2\n3 ,4\n", "1 2 | 3 4"},
        {"semicolons", "1;2;3\n", "1 2 3"},
        {"comments and blank lines", "# T chi\n\n1 2\n   \n  # more\n3 4\n", "1 2 | 3 4"},
        {"a header with blanks between semicolons", "T, K;chi, -\n1;2\n", "1 2"},
        {"a header whose first name is empty", ",chi\n1,2\n", "1 2"},
        {"a quoted header with the delimiter", "\"T, K\",\"the \"\"chi\"\"\"\n\"1\",2\n", "1 2"},
        {"gaps", "1,NA,nan\n2,,-Inf\n3,na,5\n", "1 - - | 2 - - | 3 - 5"},
        {"a field after the last delimiter is empty", "1,2,\n3,4,5\n", "1 2 - | 3 4 5"},
        {"signs and exponents", "-1e-3 +2.5E2\n", "-0.001 250"},
        {"numbers beside texts in blanks with a comma", "1 2 3\n2 3 4\n3 4 5,5\n",
         "d.txt:3:3: \"5,5\" has a decimal comma; write numbers with a point"},
        {"text among numbers", "1 2 3\n4 5 abc\n", "d.txt:2:3: \"abc\" is not a number"},
        {"first row half a header", "T 2\n3 4\n", "d.txt:1:1: \"T\" is not a number"},
        {"not-a-number abscissa", "1,2\nnan,3\n", "d.txt:2:1: \"nan\" cannot be an abscissa"},
        {"missing abscissa", "1,2\n,3\n", "d.txt:2:1: the abscissa is missing"},
        {"thousands separators", "1;2\n2;1,234.5\n", "d.txt:2:2: \"1,234.5\" is not a number"},
        {"decimal comma, semicolons", "1,5;2,5\n",
         "d.txt:1:1: \"1,5\" has a decimal comma; write numbers with a point"},
        {"decimal comma, tabs", "T\tchi\n1\t-2,5e3\n",
         "d.txt:2:2: \"-2,5e3\" has a decimal comma; write numbers with a point"},
        {"overflow", "1 2\n2 1e999\n", "d.txt:2:2: \"1e999\" is too large a number"},
        {"short row", "# c\n1,2,3\n4,5\n", "d.txt:3: has 2 fields where line 2 has 3"},
        {"long row", "1 2\n3 4 5\n", "d.txt:2: has 3 fields where line 1 has 2"},
        {"one column", "1\n2\n", "d.txt:1: has one column; an abscissa and at least one function are needed"},
        {"comments only", "# 1 2\n\n", "d.txt: holds no rows of numbers"},
        {"header only", "T,chi\n", "d.txt: holds a header but no rows of numbers"},
        {"open quote", "1,2\n\"3,4\n", "d.txt:2:1: a quoted field must end with its closing quote"},
        {"text after a quote", "1,2\n3,\"4\"5\n",
         "d.txt:2:2: a quoted field must end with its closing quote"},
    };
    for (const auto& item : cases) {
        EXPECT_EQ(Outcome(item.strText), item.pszOutcome) << item.pszWhat;
    }
}

TEST(ColumnFile, CutsLongFieldsInMessagesBetweenCharacters) {
    const std::string strField = "x" + std::string(40, 'y') + "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4";
    const std::string strMessage = Outcome("1," + strField + "\n");
    EXPECT_EQ(strMessage, "d.txt:1:2: \"" + strField.substr(0, 47) + "...\" is not a number");
}

TEST(ColumnFile, TakesChosenColumnsInTheirOrder) {
    const std::string strTable = "T_C\tphi2\tchi\tref\n24\t0\t0.508\tKG59\n24\t0.2\t0.58\tKG59\n";
    EXPECT_EQ(Outcome(strTable, Choosing("phi2,chi")), "0 0.508 | 0.2 0.58");
    EXPECT_EQ(Outcome(strTable, Choosing("3,1,1")), "0.508 24 24 | 0.58 24 24");
    EXPECT_EQ(Outcome(strTable, Choosing("2,chi")), "0 0.508 | 0.2 0.58");
    EXPECT_EQ(Outcome(strTable, Choosing("0,1")), "d.txt:1: there is no column 0, this line has 4");
    EXPECT_EQ(Outcome(strTable, Choosing("1,99999999999")),
              "d.txt:1: there is no column 99999999999, this line has 4");
    EXPECT_EQ(Outcome(strTable, Choosing("1,Chi")), "d.txt:1: no column is named \"Chi\"");
    EXPECT_EQ(Outcome(strTable, Choosing("1,ref")), "d.txt:2:4: \"KG59\" is not a number");
    EXPECT_EQ(ShowNames(CColumnFile::Parse(strTable, "d.txt", Choosing("3,1"))), "chi,T_C");
}

TEST(ColumnFile, HasAHeaderWhenColumnsAreChosenByNameEvenAmongNumbers) {
    EXPECT_EQ(Outcome("T,300,310\n1,2,3\n", Choosing("T,3")), "1 3");
    EXPECT_EQ(Outcome("1,2\n3,4\n", Choosing("T,2")), "d.txt:1: no column is named \"T\"");
}

TEST(ColumnFile, ChoosesTheDelimiterThatMakesNumbers) {
    EXPECT_EQ(Outcome("24 0.5 Krigbaum,1959\n25 0.6 Geymer,1960\n", Choosing("1,2")), "24 0.5 | 25 0.6");
    EXPECT_EQ(Outcome("24\t0.5\tone, two; three\n", Choosing("1,2")), "24 0.5");
    COLUMNFORMAT format = Choosing("1,2");
    format.delimiter = CDelimiter(',');
    EXPECT_EQ(Outcome("24 0.5 Krigbaum,1959\n", format), "d.txt:1:1: \"24 0.5 Krigbaum\" is not a number");
}

TEST(ColumnFile, NamesTheFirstRowThatDescendsAndSortsStably) {
    const CColumnFile file = CColumnFile::Parse("phi chi\n1 2\n# note\n1 3\n0.5 4\n0 5\n", "d.txt", {});
    EXPECT_EQ(Refusal([&] { file.CheckAscending(); }),
              "d.txt:5:1: the abscissa 0.5 is below the 1 before it; --sort sorts the rows");
    std::string strText, strSorted;
    for (int i = 0; i < 100; i++) {
        strText += std::to_string(1 - i % 2) + " " + std::to_string(i) + "\n";
        strSorted += (i ? " | " : "") + std::to_string(i / 50) + " " +
                     std::to_string(i / 50 ? 2 * i - 100 : 2 * i + 1);
    }
    CColumnFile many = CColumnFile::Parse(strText, "d.txt", {});
    many.Sort();
    EXPECT_EQ(Show(many), strSorted);
    EXPECT_NO_THROW(many.CheckAscending());
}

} // namespace
