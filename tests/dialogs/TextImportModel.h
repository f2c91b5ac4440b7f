#pragma once

#include <locale.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace tessara::models {

/// What importing a text file means, written down a second time and as plainly as can be.
///
/// What a user of the dialog could see either way, and how it is read here:
/// - A line ends with LF or CR LF, in a file without any LF with CR; a CR elsewhere is a character like any
///   other. The last line may lack its end or the LF of it; nothing after an end is no line. A UTF-8 byte
///   order mark in front of the first line belongs to no line.
/// - Besides trailing spaces and then trailing tabs, any mixture of the two and nothing else is an empty
/// line.
/// - A number is what IsDouble takes, in any column that is imported; but in front of a delimiter blanks may
///   follow it. A zero byte belongs to no number.
/// - An empty field is a number only where a line ends, as one of a line that is too short: then it is 0.
/// - Fields beyond the columns are never looked at.
struct CTextImportModel {
    char cDelimiter = '\t';
    int nColumns = 2;

    enum class EVerdict { Accepted, NonNumeric, Refused };

    /// The columns, abscissae first; of equal length, the number of points.
    using CColumns = std::vector<std::vector<double>>;

    struct CResult {
        EVerdict eVerdict = EVerdict::Refused;
        CColumns columns;
    };

    static std::vector<std::string> Lines(std::string strBytes) {
        if (strBytes.find('\n') == std::string::npos) {
            std::replace(strBytes.begin(), strBytes.end(), '\r', '\n');
        }
        std::vector<std::string> lines;
        std::string strLine;
        const auto add = [&] {
            if (strLine.ends_with('\r')) {
                strLine.pop_back();
            }
            lines.push_back(strLine);
            strLine.clear();
        };
        for (std::size_t i = strBytes.starts_with("\xEF\xBB\xBF") ? 3 : 0; i < strBytes.size(); ++i) {
            if (strBytes[i] == '\n') {
                add();
            } else {
                strLine += strBytes[i];
            }
        }
        if (!strLine.empty()) {
            add();
        }
        return lines;
    }

    static std::vector<std::string> Fields(const std::string& strLine, char cDelimiter) {
        std::vector<std::string> fields(1);
        for (const char c : strLine) {
            if (c == cDelimiter) {
                fields.emplace_back();
            } else {
                fields.back() += c;
            }
        }
        return fields;
    }

    static bool ToNumber(const std::string& strField, double& dValue) {
        static const locale_t s_locale = newlocale(LC_ALL_MASK, "C", nullptr);
        char* pEnd = nullptr;
        dValue = strtod_l(strField.c_str(), &pEnd, s_locale);
        return !strField.empty() && pEnd == strField.c_str() + strField.size();
    }

    /// The rows of the preview, "Line #" first; cells that are not set are empty.
    std::vector<std::vector<std::string>> Preview(const std::string& strBytes) const {
        std::vector<std::vector<std::string>> rows;
        for (const std::string& strLine : Lines(strBytes)) {
            char szNumber[16];
            std::snprintf(szNumber, sizeof szNumber, "%03d", static_cast<int>(rows.size()));
            std::vector<std::string> cells = Fields(strLine, cDelimiter);
            cells.resize(static_cast<std::size_t>(nColumns));
            cells.insert(cells.begin(), szNumber);
            rows.push_back(cells);
        }
        return rows;
    }

    int MaxLineEntries(const std::string& strBytes) const {
        std::size_t nMax = 1;
        for (const std::string& strLine : Lines(strBytes)) {
            nMax = std::max(nMax, Fields(strLine, cDelimiter).size());
        }
        return static_cast<int>(nMax);
    }

    CResult Import(const std::string& strBytes) const {
        CResult result;
        result.columns.resize(static_cast<std::size_t>(nColumns));
        bool bNumeric = true;
        for (std::string strLine : Lines(strBytes)) {
            Strip(strLine, ' ');
            Strip(strLine, '\t');
            if (strLine.find_first_not_of(" \t") == std::string::npos) {
                continue;
            }
            const std::vector<std::string> fields = Fields(strLine, cDelimiter);
            for (std::size_t k = 0; k < result.columns.size(); ++k) {
                double dValue = 0;
                if (k + 1 < fields.size()) {
                    bNumeric &= ToNumber(WithoutBlanks(fields[k]), dValue);
                } else if (k + 1 == fields.size() && !fields[k].empty()) {
                    bNumeric &= ToNumber(fields[k], dValue);
                }
                result.columns[k].push_back(dValue);
            }
        }
        result.eVerdict = !bNumeric                    ? EVerdict::NonNumeric
                          : IsAccepted(result.columns) ? EVerdict::Accepted
                                                       : EVerdict::Refused;
        return result;
    }

    static bool IsAccepted(const CColumns& columns) {
        if (columns[0].size() < 100) {
            return false;
        }
        for (std::size_t k = 1; k < columns.size(); ++k) {
            const std::vector<double>& y = columns[k];
            double dMin = y[0];
            double dMax = y[0];
            for (const double v : y) {
                if (!(0 < v && v <= 5.0)) {
                    return false;
                }
                dMin = v < dMin ? v : dMin;
                dMax = v > dMax ? v : dMax;
            }
            for (std::size_t i = 0; i + 1 < y.size(); ++i) {
                if (std::fabs(y[i + 1] - y[i]) > 0.01 * std::fabs(dMax - dMin)) {
                    return false;
                }
            }
        }
        return true;
    }

private:
    static std::string WithoutBlanks(std::string strField) {
        strField.erase(strField.find_last_not_of(" \t") + 1);
        return strField;
    }
    static void Strip(std::string& strLine, char c) {
        while (!strLine.empty() && strLine.back() == c) {
            strLine.pop_back();
        }
    }
};

} // namespace tessara::models
