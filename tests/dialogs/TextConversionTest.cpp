#include "tessara/dialogs/TextConversion.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

#include "tessara/dialogs/CurveAcceptance.h"
#include "tessara/dialogs/TextLines.h"
#include "tessara/platform/files/StdioFile.h"
#include "tests/cli/Folder.h"
#include "tests/files/SettingsFolder.h"

namespace tessara {

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using namespace std::string_literals;

std::vector<std::string> ToVector(const CStringArray& array) {
    std::vector<std::string> texts;
    for (int i = 0; i < array.GetSize(); ++i) {
        texts.emplace_back(array[i].View());
    }
    return texts;
}

class TextLines : public ::testing::Test {
protected:
    std::vector<std::string> Read(const std::string& strBytes) {
        CStringArray lines;
        unlink(m_folder.Path("file").c_str()); // some systems wait for the disk where a file is emptied
        EXPECT_EQ(ReadLines(m_folder.Write("file", strBytes).c_str(), lines), ELinesRead::read);
        return ToVector(lines);
    }

    const CFolder m_folder;
};

TEST_F(TextLines, EndInManyWays) {
    const struct {
        std::string strBytes;
        std::vector<std::string> lines;
    } cases[] = {
        {"", {}},
        {"\n", {""}},
        {"1\n2", {"1", "2"}},
        {"1\r\n\r\n2\r\n", {"1", "", "2"}},
        {"1\r2\r", {"1", "2"}},
        {"1\r2\n", {"1\r2"}},
        {"1\n2\r", {"1", "2"}},
        {"\xEF\xBB\xBF"
         "1\n",
         {"1"}},
        {"\xEF\xBB\xBF", {}},
        {"1\0x\n\0"s, {"1\0x"s, "\0"s}},
        {"\xFF\xFE"
         "1\0\t\0\xE4\0\r\0\n\0"s,
         {"1\t\xC3\xA4"}},
        {"\xFE\xFF\0"
         "1\0\n\xD8\x3D\xDE\x00\xD8\x3D"s,
         {"1", "\xF0\x9F\x98\x80\xEF\xBF\xBD"}},
        {std::string(3000000, 'x') + "\n1", {std::string(3000000, 'x'), "1"}},
    };
    for (const auto& [strBytes, lines] : cases) {
        EXPECT_EQ(Read(strBytes), lines) << strBytes.substr(0, 20);
    }
}

/// The reader of the platform gives the same lines where both know the line ends.
TEST_F(TextLines, AreThoseOfTheStreamOfLines) {
    const unsigned nFiles = RoundsFrom("TESSARA_IMPORT_FILES", 500);
    std::mt19937 random(6);
    const std::string strLetters = "\n\n\r1\t\xEF\xBB\xBF\xFF\xFE\0"s;
    for (unsigned nFile = 0; nFile < nFiles; ++nFile) {
        std::string strBytes(random() % 12, ' ');
        std::generate(strBytes.begin(), strBytes.end(),
                      [&] { return strLetters[random() % strLetters.size()]; });
        const std::vector<std::string> lines = Read(strBytes);
        const bool bUtf16 = strBytes.starts_with("\xFF\xFE") || strBytes.starts_with("\xFE\xFF");
        if (bUtf16 || strBytes.find('\n') == std::string::npos || strBytes.ends_with('\r')) {
            continue;
        }
        CStdioFile file(m_folder.Path("file").c_str(), CFile::modeRead);
        std::vector<std::string> wanted;
        for (CString strLine; file.ReadString(strLine);) {
            wanted.emplace_back(strLine.View());
        }
        ASSERT_EQ(lines, wanted) << ::testing::PrintToString(strBytes);
    }
}

TEST_F(TextLines, OfWhatIsNoPlainFileAreNotRead) {
    mkfifo(m_folder.Path("pipe").c_str(), 0600);
    std::filesystem::create_directory(m_folder.Path("folder"));
    m_folder.Write("huge", "");
    std::filesystem::resize_file(m_folder.Path("huge"), std::uintmax_t{8} << 30);
    const struct {
        std::string strPath;
        ELinesRead eRead;
    } cases[] = {{m_folder.Path("pipe"), ELinesRead::unreadable},
                 {m_folder.Path("folder"), ELinesRead::unreadable},
                 {m_folder.Path("none"), ELinesRead::unreadable},
                 {"/dev/zero", ELinesRead::unreadable},
                 {"", ELinesRead::unreadable},
                 {m_folder.Path("huge"), ELinesRead::tooLarge},
                 {"/proc/self/status", ELinesRead::read}};
    for (const auto& [strPath, eRead] : cases) {
        CStringArray lines;
        lines.Add("old");
        EXPECT_EQ(ReadLines(strPath.c_str(), lines), eRead) << strPath;
        EXPECT_EQ(lines.GetSize() > 0, eRead == ELinesRead::read) << strPath;
    }
}

struct CONVERTED {
    std::optional<int> fault;
    std::vector<double> x;
    std::vector<std::vector<double>> columns;
    bool operator==(const CONVERTED&) const = default;
};

CONVERTED Convert(std::vector<std::string> texts, char cDelimiter, int nColumns) {
    CStringArray lines;
    for (const std::string& strText : texts) {
        lines.Add(CString(strText));
    }
    CMultiCurve curve(3);
    curve.Allocate(5); // of an attempt before
    CONVERTED converted{ConvertLines(lines, cDelimiter, nColumns, curve), {}, {}};
    converted.x.assign(curve.m_pX, curve.m_pX + curve.m_nPoints);
    for (int i = 0; i < curve.m_nDimensions; ++i) {
        converted.columns.emplace_back(curve.m_ppY[i], curve.m_ppY[i] + curve.m_nPoints);
    }
    return converted;
}

TEST(TextConversion, MakesPointsOfLines) {
    const struct {
        std::vector<std::string> lines;
        char cDelimiter;
        int nColumns;
        CONVERTED wanted;
    } cases[] = {
        {{"1,2,3,4"}, ',', 3, {{}, {1}, {{2}, {3}}}},
        {{"1\t2", "", " \t ", "3\t4\t \t"}, '\t', 2, {{}, {1, 3}, {{2, 4}}}},
        {{"1;2", "3", "4;"}, ';', 3, {{}, {1, 3, 4}, {{2, 0, 0}, {0, 0, 0}}}},
        {{"+1e2; 0x1p-1"}, ';', 2, {{}, {100}, {{0.5}}}},
        {{"1 ;2", " 3\t;4  "}, ';', 2, {{}, {1, 3}, {{2, 4}}}},
        {{"1 2 x"}, ' ', 2, {{}, {1}, {{2}}}},
        {{"1;2;x"}, ';', 1, {{}, {1}, {}}},
        {{"1;2"}, ';', 0, {{}, {1}, {}}},
        {{"1e999;-1e-999"}, ';', 2, {{}, {HUGE_VAL}, {{-0.0}}}},
        {{}, ';', 2, {{}, {}, {{}}}},
        // What is no number, in any field
        {{"T\tchi", "1\t2"}, '\t', 2, {0, {0, 1}, {{0, 2}}}},
        {{"1\t2", "", "2\t1.5abc"}, '\t', 2, {2, {1, 2}, {{2, 0}}}},
        {{"1,5;2"}, ';', 2, {0, {0}, {{2}}}},
        {{"1;;3"}, ';', 3, {0, {1}, {{0}, {3}}}},
        {{" 1 2"}, ' ', 2, {0, {0}, {{1}}}},
        {{"1\0;2"s}, ';', 2, {0, {0}, {{2}}}},
        {{"1;2\0"s}, ';', 2, {0, {1}, {{0}}}},
        {{"1 2"}, ';', 2, {0, {0}, {{0}}}},
    };
    for (const char* const pszLocale : {"C", "de_DE.UTF-8"}) {
        ASSERT_NE(std::setlocale(LC_ALL, pszLocale), nullptr);
        for (const auto& [lines, cDelimiter, nColumns, wanted] : cases) {
            EXPECT_EQ(Convert(lines, cDelimiter, nColumns), wanted)
                << (lines.empty() ? "" : lines.front()) << ", " << nColumns << ", " << pszLocale;
        }
    }
    std::setlocale(LC_ALL, "C");
    EXPECT_TRUE(std::isnan(Convert({"nan;1"}, ';', 2).x[0]));
}

/// A line's fields as a user would cut them, and what is to become of each.
struct PLAINLINE {
    std::vector<double> values;
    bool bNumeric = true;
};

std::optional<PLAINLINE> PlainLine(std::string strLine, char cDelimiter, std::size_t nColumns) {
    if (std::all_of(strLine.begin(), strLine.end(), [](char ch) { return ch == ' ' || ch == '\t'; })) {
        return std::nullopt;
    }
    for (const char ch : {' ', '\t'}) {
        while (strLine.ends_with(ch)) {
            strLine.pop_back();
        }
    }
    std::vector<std::string> fields(1);
    for (const char ch : strLine) {
        if (ch == cDelimiter) {
            fields.emplace_back();
        } else {
            fields.back() += ch;
        }
    }
    if (fields.back().empty()) {
        fields.pop_back();
    }
    const bool bOpen = !strLine.ends_with(cDelimiter);
    PLAINLINE line{std::vector<double>(nColumns), true};
    for (std::size_t i = 0; i < std::min(fields.size(), nColumns); ++i) {
        std::string& strField = fields[i];
        while (!(bOpen && i + 1 == fields.size()) && (strField.ends_with(' ') || strField.ends_with('\t'))) {
            strField.pop_back();
        }
        char* pszEnd = nullptr;
        const double dValue = std::strtod(strField.c_str(), &pszEnd);
        const bool bNumber = !strField.empty() && pszEnd == strField.c_str() + strField.size();
        line.values[i] = bNumber ? dValue : 0;
        line.bNumeric = line.bNumeric && bNumber;
    }
    return line;
}

std::string RandomLine(std::mt19937& random, char cDelimiter) {
    static const std::string s_fields[] = {"1",
                                           "-2.5",
                                           "+7",
                                           ".5",
                                           "1e5",
                                           "1e-999",
                                           "0x1F",
                                           "inf",
                                           "  3",
                                           "4 ",
                                           "5\t",
                                           "",
                                           " ",
                                           "x",
                                           "1.5abc",
                                           "1,5",
                                           "\t",
                                           "1e",
                                           "2\0"s,
                                           "--1",
                                           "-0",
                                           "1e999",
                                           "3.1415926535897931"};
    std::string strLine;
    const bool bClean = random() % 2;
    for (auto n = random() % 6; n > 0; --n) {
        strLine += s_fields[random() % (bClean ? 9 : std::size(s_fields))];
        strLine += std::string(n > 1 || random() % 3 == 0 ? 1 : 0, random() % 8 ? cDelimiter : ' ');
    }
    return strLine;
}

/// TESSARA_IMPORT_FILES makes it long.
TEST(TextConversion, IsWhatAPlainReaderMakesOfRandomFiles) {
    const unsigned nFiles = RoundsFrom("TESSARA_IMPORT_FILES", 20000);
    std::mt19937 random(5);
    for (unsigned nFile = 0; nFile < nFiles; ++nFile) {
        const char cDelimiter = "\t;, "[random() % 4];
        const std::size_t nColumns = 1 + random() % 4;
        std::vector<std::string> lines;
        CONVERTED wanted{{}, {}, std::vector<std::vector<double>>(nColumns - 1)};
        for (auto n = random() % 4; n > 0; --n) {
            lines.push_back(RandomLine(random, cDelimiter));
            const auto line = PlainLine(lines.back(), cDelimiter, nColumns);
            if (!line) {
                continue;
            }
            wanted.x.push_back(line->values[0]);
            for (std::size_t i = 1; i < nColumns; ++i) {
                wanted.columns[i - 1].push_back(line->values[i]);
            }
            if (!line->bNumeric && !wanted.fault) {
                wanted.fault = static_cast<int>(lines.size()) - 1;
            }
        }
        ASSERT_EQ(Convert(lines, cDelimiter, static_cast<int>(nColumns)), wanted)
            << ::testing::PrintToString(lines) << " at '" << cDelimiter << "', " << nColumns;
    }
}

TEST(CurveAcceptance, LooksAtNumberRangeAndSteps) {
    const auto fnEven = [](int nPoints, double dFirst, double dLast) {
        std::vector<double> y;
        for (int i = 0; i < nPoints; ++i) {
            y.push_back(dFirst + (dLast - dFirst) * i / (nPoints - 1));
        }
        return y;
    };
    const auto fnWith = [](std::vector<double> y, std::size_t nAt, double dValue) {
        y[nAt] = dValue;
        return y;
    };
    const struct {
        const char* pszWhat;
        std::vector<double> y;
        bool bAccepted;
    } cases[] = {
        {"even", fnEven(150, 0.01, 1.5), true},
        {"a zero", fnWith(fnEven(150, 0.01, 1.5), 70, 0), false},
        {"below zero", fnWith(fnEven(150, 0.01, 1.5), 0, -0.001), false},
        {"no number", fnWith(fnEven(150, 0.01, 1.5), 70, NAN), false},
        {"infinite", fnWith(fnEven(150, 0.01, 1.5), 149, HUGE_VAL), false},
        {"100 points that do not change", std::vector<double>(100, 1), true},
        {"99 points", std::vector<double>(99, 1), false},
        {"one off a constant", fnWith(std::vector<double>(100, 1), 50, std::nextafter(1, 2)), false},
        {"5", std::vector<double>(100, 5), true},
        {"beyond 5", std::vector<double>(100, std::nextafter(5, 6)), false},
        {"a step too long", fnWith(fnEven(150, 0.01, 1.5), 70, 1.0), false},
    };
    for (const auto& [pszWhat, y, bAccepted] : cases) {
        CMultiCurve curve(2);
        curve.Allocate(static_cast<int>(y.size()));
        std::fill_n(curve.m_pX, y.size(), NAN); // nobody looks at it
        std::fill_n(curve.m_ppY[0], y.size(), 1);
        std::copy(y.begin(), y.end(), curve.m_ppY[1]);
        EXPECT_EQ(IsAcceptable(curve), bAccepted) << pszWhat;
    }
}

TEST(CurveAcceptance, AcceptsTheLongestStepItself) {
    const double dLongest = 0.01 * 4.0;
    const double dLast = 4.0 + dLongest;
    ASSERT_EQ(dLast - dLongest, 4.0);
    CMultiCurve curve(1);
    curve.Allocate(301);
    double* const pY = curve.m_ppY[0];
    pY[0] = dLongest;
    for (int i = 0; i < 300; ++i) {
        pY[i + 1] = i == 299 ? dLast : 2 * dLongest + (dLast - 2 * dLongest) * i / 299;
    }
    ASSERT_EQ(pY[1] - pY[0], dLongest);
    EXPECT_TRUE(IsAcceptable(curve));
    pY[1] = std::nextafter(pY[1], 1);
    EXPECT_FALSE(IsAcceptable(curve));
}

} // namespace

} // namespace tessara
