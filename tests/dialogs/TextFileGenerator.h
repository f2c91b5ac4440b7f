#pragma once

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace tessara::models {

/// Text files as instruments, spreadsheets and bad luck write them: half of them clean columns, near what is
/// just accepted and just refused, the others with some harm done to a clean one. The same seed, the same
/// files.
class CTextFileGenerator {
public:
    struct CFile {
        char cDelimiter;
        int nColumns;
        std::string strBytes;
    };

    explicit CTextFileGenerator(unsigned nSeed) : m_random(nSeed) {}

    CFile Next() {
        static constexpr char s_delimiters[] = {'\t', ';', ',', ' '};
        static constexpr int s_columns[] = {2, 2, 2, 3, 4, 1};
        CFile file{Pick(s_delimiters), Pick(s_columns), {}};
        CGrid grid = CleanGrid(file.nColumns);
        for (int i = OneIn(2) ? Below(4) : 0; i > 0; --i) {
            HarmGrid(grid);
        }
        file.strBytes = Join(grid, OneIn(25) ? Pick(s_delimiters) : file.cDelimiter);
        for (int i = OneIn(4) ? 1 + Below(2) : 0; i > 0; --i) {
            HarmBytes(file.strBytes);
        }
        return file;
    }

private:
    using CGrid = std::vector<std::vector<std::string>>;

    int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }
    bool OneIn(int n) { return Below(n) == 0; }
    template <typename T, std::size_t nSize>
    T Pick(const T (&list)[nSize]) {
        return list[Below(static_cast<int>(nSize))];
    }

    /// Most often near the fewest points that are accepted.
    int RowCount() {
        static constexpr int s_counts[] = {0, 1, 40, 99, 99, 100, 100, 101, 101, 101, 101, 102, 130, 200};
        return Pick(s_counts);
    }

    CGrid CleanGrid(int nColumns) {
        const int nRows = RowCount();
        CGrid grid(static_cast<std::size_t>(nRows));
        for (int k = 0; k < nColumns; ++k) {
            const std::vector<double> values = k == 0 ? Abscissae(nRows) : Ordinates(nRows);
            for (std::size_t i = 0; i < grid.size(); ++i) {
                grid[i].push_back(Spelled(values[i]));
            }
        }
        return grid;
    }

    std::vector<double> Abscissae(int nRows) {
        std::vector<double> x;
        const double dStep = OneIn(2) ? 1 : 0.1;
        for (int i = 0; i < nRows; ++i) {
            x.push_back((i - (OneIn(50) ? 1000 : 0)) * dStep);
        }
        return x;
    }

    /// Equal steps of a power of two, to and fro or one way: with 101 points each is one hundredth of the
    /// range, and not a bit more or less. Or no steps at all. The greatest value is 5, or the least 0,
    /// where that is to be. Then, often, one value is moved by as little as there is, or onto a bound.
    std::vector<double> Ordinates(int nRows) {
        const double dStep = OneIn(3) ? 0 : std::ldexp(1, -6 - Below(3));
        const double dGreatest = OneIn(2) ? 5.0 : (OneIn(2) ? 0.25 : 0) + 100 * dStep;
        const bool bFalling = OneIn(3);
        std::vector<double> y;
        for (int i = 0; i < nRows; ++i) {
            const int n = std::abs(bFalling ? i : 100 - i);
            y.push_back(dGreatest - (n > 100 ? std::max(0, 200 - n) : n) * dStep);
        }
        if (!y.empty() && OneIn(2)) {
            Disturb(y[static_cast<std::size_t>(Below(nRows))]);
        }
        return y;
    }

    void Disturb(double& dValue) {
        const double disturbed[] = {
            std::nextafter(dValue, 9), std::nextafter(dValue, -9), 0,      -0.0, 5.0,
            std::nextafter(5.0, 6),    std::nextafter(5.0, 4),     5e-324,
        };
        dValue = Pick(disturbed);
    }

    /// A value in one of the forms in which it is exactly this value.
    std::string Spelled(double dValue) {
        char szText[64];
        char* const pEnd = szText + sizeof szText;
        using enum std::chars_format;
        switch (Below(12)) {
        case 0:
            return {szText, std::to_chars(szText, pEnd, dValue, scientific, 17).ptr};
        case 1:
            return {szText, std::to_chars(szText, pEnd, dValue, general, 17).ptr};
        case 2:
            std::snprintf(szText, sizeof szText, "%+.17E", dValue);
            return szText;
        case 3:
            std::snprintf(szText, sizeof szText, "%a", dValue);
            return szText;
        default:
            std::string str(szText, std::to_chars(szText, pEnd, dValue).ptr);
            return str.starts_with("0.") && OneIn(9) ? str.substr(1) : str;
        }
    }

    static std::string Join(const CGrid& grid, char cDelimiter) {
        std::string strBytes;
        for (const auto& fields : grid) {
            for (std::size_t k = 0; k < fields.size(); ++k) {
                strBytes += (k > 0 ? std::string(1, cDelimiter) : "") + fields[k];
            }
            strBytes += '\n';
        }
        return strBytes;
    }

    std::string Word() {
        using namespace std::string_literals;
        static const std::string s_words =
            "||abc|1.5abc|1,5|1.5 | 1.5|\t1.5|1.5\t|--1|+-1|nan|inf|-inf|infinity|1e999|1e-999|0x1p3|0x|"
            "1e|1e+|.|-|+|5.|.5|-0|5|05|1 2|1\r|\r|\v1.5|\"1.5\"|1.5\0|\0|1\0002|\xB1|1\xC2\xA0|x/y|#|"
            "1.5\x1A|1e2147483648|0.00000000000000000000000000000001e32|NaN(1)|"
            "INFINITY|1d3|1_000|1'000|\xC3\xA9|0b1|1f"s;
        static const int s_nWords = static_cast<int>(std::count(s_words.begin(), s_words.end(), '|')) + 1;
        std::size_t nFirst = 0;
        for (int i = Below(s_nWords); i > 0; --i) {
            nFirst = s_words.find('|', nFirst) + 1;
        }
        return s_words.substr(nFirst, s_words.find('|', nFirst) - nFirst);
    }

    /// Something that is not a plain number in a field, a field too few or too many, an empty line.
    void HarmGrid(CGrid& grid) {
        if (grid.empty()) {
            grid.emplace_back();
        }
        const auto row = grid.begin() + Below(static_cast<int>(grid.size()));
        const int nField = Below(static_cast<int>(row->size()) + 1);
        switch (Below(6)) {
        case 0:
            row->resize(static_cast<std::size_t>(nField));
            break;
        case 1:
            row->insert(row->begin() + nField, Word());
            break;
        case 2:
            grid.insert(row, {OneIn(2) ? "" : Blanks()});
            break;
        case 3:
            grid.insert(grid.end(), 1 + static_cast<std::size_t>(Below(3)), {OneIn(2) ? "" : Blanks()});
            break;
        case 4:
            if (row->empty() || OneIn(2)) {
                row->emplace_back();
            }
            row->back() += Blanks();
            break;
        default:
            row->resize(std::max(row->size(), static_cast<std::size_t>(nField) + 1));
            (*row)[static_cast<std::size_t>(nField)] = Word();
        }
    }

    std::string Blanks() {
        std::string str;
        for (int i = Below(4); i >= 0; --i) {
            str += OneIn(2) ? ' ' : '\t';
        }
        return str;
    }

    void HarmBytes(std::string& strBytes) {
        switch (Below(9)) {
        case 0:
        case 1:
            MakeCrLf(strBytes);
            break;
        case 2:
            strBytes.insert(0, "\xEF\xBB\xBF");
            break;
        case 3:
            if (!strBytes.empty()) {
                strBytes.pop_back();
            }
            break;
        case 4:
            strBytes.insert(Place(strBytes), 1, '\0');
            break;
        case 5:
            strBytes.insert(Place(strBytes), 1, static_cast<char>(Below(256)));
            break;
        case 6:
            strBytes.resize(Place(strBytes));
            break;
        case 7:
            strBytes.insert(0, OneIn(2) ? "x\ty\n" : "# made by hand\r\n");
            break;
        default:
            strBytes += OneIn(2) ? "\r" : "\n \n\t\n \t\n\t \n";
        }
    }

    std::size_t Place(const std::string& strBytes) {
        return static_cast<std::size_t>(Below(static_cast<int>(strBytes.size()) + 1));
    }

    /// In all lines, or here and there.
    void MakeCrLf(std::string& strBytes) {
        const bool bAll = OneIn(2);
        std::string strEnds;
        for (const char c : strBytes) {
            if (c == '\n' && (bAll || OneIn(2))) {
                strEnds += '\r';
            }
            strEnds += c;
        }
        strBytes = strEnds;
    }

    std::mt19937 m_random;
};

} // namespace tessara::models
