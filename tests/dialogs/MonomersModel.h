#pragma once

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tessara::models {

struct CMonomer {
    std::string strFullName;
    std::string strShortName;
    bool operator==(const CMonomer&) const = default;
};

/// The table of monomers: its order, and what its file says before and after.
struct CMonomersModel {
    bool bSortByName = false;
    std::vector<CMonomer> table;

    /// The exchange sort as it is written down; it has an order of its own for equal keys.
    void Sort() {
        const auto greater = [this](const CMonomer& a, const CMonomer& b) {
            return bSortByName ? a.strFullName > b.strFullName : a.strShortName > b.strShortName;
        };
        for (std::size_t i = 0; i + 1 < table.size(); ++i) {
            for (std::size_t j = i + 1; j < table.size(); ++j) {
                if (greater(table[i], table[j])) {
                    std::swap(table[i], table[j]);
                }
            }
        }
    }

    /// The keys and values in the order in which they are written.
    std::vector<std::pair<std::string, std::string>> Written() const {
        std::vector<std::pair<std::string, std::string>> keys = {
            {"SortByName", bSortByName ? "1" : "0"}, {"NumberOfMonomers", std::to_string(table.size())}};
        for (std::size_t i = 0; i < table.size(); ++i) {
            keys.emplace_back("ShortName" + std::to_string(i), table[i].strShortName);
            keys.emplace_back("FullName" + std::to_string(i), table[i].strFullName);
        }
        return keys;
    }
};

/// A profile file as lines, for files without equal keys or sections and without quoted values.
///
/// What is read here where a profile file does not say: names of sections and keys are the same whatever
/// their case; blanks round a name or a value belong to neither. After writing, a key that was there has its
/// new value at its old place, a new key stands after its section's last (what is said below that is about
/// the next section), a new section at the end of the file, and every other line is there as it was and where
/// it was. Blank lines and ends of lines are nobody's concern.
struct CProfileModel {
    std::vector<std::string> lines; ///< trimmed, without empty ones

    explicit CProfileModel(const std::string& strBytes) {
        std::string strLine;
        for (const char c : strBytes + "\n") {
            if (c != '\n') {
                strLine += c;
            } else if (!Trimmed(strLine).empty()) {
                lines.push_back(Trimmed(strLine));
                strLine.clear();
            } else {
                strLine.clear();
            }
        }
    }

    std::string Read(const std::string& strSection, const std::string& strKey) const {
        const auto [nFirst, nEnd] = Section(strSection);
        const std::size_t n = Key(nFirst, nEnd, strKey);
        return n < nEnd ? Trimmed(lines[n].substr(lines[n].find('=') + 1)) : "";
    }

    void Write(const std::string& strSection, const std::string& strKey, const std::string& strValue) {
        if (Section(strSection).first > lines.size()) {
            lines.push_back("[" + strSection + "]");
        }
        const auto [nFirst, nEnd] = Section(strSection);
        const std::size_t n = Key(nFirst, nEnd, strKey);
        if (n < nEnd) {
            lines[n] = KeyOf(lines[n]) + "=" + strValue;
        } else {
            std::size_t nNew = nEnd;
            while (nNew > nFirst && KeyOf(lines[nNew - 1]).empty()) {
                --nNew;
            }
            lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(nNew), strKey + "=" + strValue);
        }
    }

    /// The lines with no blanks round '=', to compare files by.
    std::vector<std::string> Compared() const {
        std::vector<std::string> compared;
        for (const std::string& strLine : lines) {
            const bool bKey = !KeyOf(strLine).empty();
            compared.push_back(bKey ? KeyOf(strLine) + "=" + Trimmed(strLine.substr(strLine.find('=') + 1))
                                    : strLine);
        }
        return compared;
    }

    /// The table that the file holds, values cut to what a buffer of 260 characters takes.
    CMonomersModel Table() const {
        CMonomersModel model;
        model.bSortByName = std::atoi(Read("List", "SortByName").c_str()) != 0;
        const int nCount = std::atoi(Read("List", "NumberOfMonomers").c_str());
        for (int i = 0; i < nCount; ++i) {
            model.table.push_back({Read("List", "FullName" + std::to_string(i)).substr(0, 259),
                                   Read("List", "ShortName" + std::to_string(i)).substr(0, 259)});
        }
        return model;
    }

private:
    static std::string Trimmed(const std::string& str) {
        static constexpr char s_blanks[] = " \t\r";
        const std::size_t n = str.find_first_not_of(s_blanks);
        return n == std::string::npos ? "" : str.substr(n, str.find_last_not_of(s_blanks) + 1 - n);
    }
    static bool Same(const std::string& a, const std::string& b) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char c, unsigned char d) {
            return std::tolower(c) == std::tolower(d);
        });
    }
    static std::string KeyOf(const std::string& strLine) {
        const std::size_t n = strLine.find('=');
        return strLine[0] == ';' || strLine[0] == '[' || n == std::string::npos
                   ? ""
                   : Trimmed(strLine.substr(0, n));
    }
    /// The lines from after the section's name to the next section's; beyond all lines when there is none.
    std::pair<std::size_t, std::size_t> Section(const std::string& strSection) const {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (Same(lines[i], "[" + strSection + "]")) {
                std::size_t nEnd = i + 1;
                while (nEnd < lines.size() && lines[nEnd][0] != '[') {
                    ++nEnd;
                }
                return {i + 1, nEnd};
            }
        }
        return {lines.size() + 1, lines.size() + 1};
    }
    std::size_t Key(std::size_t nFirst, std::size_t nEnd, const std::string& strKey) const {
        while (nFirst < nEnd && !Same(KeyOf(lines[nFirst]), strKey)) {
            ++nFirst;
        }
        return nFirst;
    }
};

/// Tables with few names, so that keys are equal, and files as people and other systems leave them.
class CMonomersGenerator {
public:
    explicit CMonomersGenerator(unsigned nSeed) : m_random(nSeed) {}

    CMonomersModel Table() {
        CMonomersModel model{Below(2) == 0, {}};
        for (int i = Below(12); i > 0; --i) {
            model.table.push_back({Name(), Name()});
        }
        return model;
    }

    /// A file with such a table among lines of others.
    std::string File(const CMonomersModel& model) {
        m_strEnd = Below(2) ? "\r\n" : "\n";
        std::string strBytes = Others("Other") + Line(Below(3) ? "[List]" : "[LIST]");
        for (const auto& [strKey, strValue] : model.Written()) {
            strBytes += Foreign() + Line(Cased(strKey) + (Below(4) ? "=" : " = ") + strValue);
        }
        for (int i = Below(3); i > 0; --i) { // left over from a longer table
            strBytes += Line("ShortName" + std::to_string(model.table.size() + 2 * i) + "=Old");
        }
        strBytes += Foreign() + Others("Later");
        if (Below(5) == 0) {
            strBytes.resize(strBytes.size() - m_strEnd.size());
        }
        return strBytes;
    }

private:
    int Below(std::size_t n) { return static_cast<int>(m_random() % n); }
    std::string Line(const std::string& str) const { return str + m_strEnd; }
    std::string Cased(std::string strKey) {
        if (Below(6) == 0) {
            std::transform(strKey.begin(), strKey.end(), strKey.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        }
        return strKey;
    }

    std::string Name() {
        static const std::string s_names[] = {"St",   "ST",       "st",     "AN",   "styrene", "Styrene",
                                              "a=b",  "a;b",      "a#b",    "[a]",  "1",       "~N",
                                              "\xE9", "\xC3\xA9", "M\xFCl", "a  b", "%d",      "x]y",
                                              "&A",   "\\n",      "=",      "a\"b", "it's",    "poly(1,4)"};
        return Below(40) ? s_names[Below(std::size(s_names))]
                         : std::string(static_cast<std::size_t>(250 + Below(20)), 'n');
    }

    std::string Foreign() {
        static const std::string s_lines[] = {"; my own words",
                                              "Colour=blue",
                                              "",
                                              "  ",
                                              ";ShortName0=no",
                                              "Path = c:\\x y",
                                              "\xFC"
                                              "berhaupt=1",
                                              "Empty="};
        if (Below(5) != 0) {
            return {};
        }
        std::string strLine = s_lines[Below(std::size(s_lines))];
        if (const std::size_t n = strLine.find('='); n != std::string::npos && strLine[0] != ';') {
            strLine.insert(0, "k" + std::to_string(++m_nForeign)); // no key twice
        }
        return Line(strLine);
    }

    std::string Others(const std::string& strSection) {
        return Below(2) ? std::string()
                        : Line("[" + strSection + "]") + Line("ShortName0=not mine") + Foreign() + Line("");
    }

    std::mt19937 m_random;
    std::string m_strEnd = "\n";
    int m_nForeign = 0;
};

} // namespace tessara::models
