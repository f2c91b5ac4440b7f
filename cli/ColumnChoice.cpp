#include "cli/ColumnChoice.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <numeric>

#include "cli/InputError.h"

namespace tessara {

namespace {

bool IsNumber(const std::string& strEntry) {
    return strEntry.find_first_not_of("0123456789") == std::string::npos;
}

/// The entry as a number; one beyond all counts is the greatest int, which no file has as a column.
int NumberOf(const std::string& strEntry) {
    int nNumber = 0;
    const auto result = std::from_chars(strEntry.data(), strEntry.data() + strEntry.size(), nNumber);
    return result.ec == std::errc() ? nNumber : std::numeric_limits<int>::max();
}

int FindNumber(const std::string& strEntry, int nFields, const std::string& strFile, int nLine) {
    const int nNumber = NumberOf(strEntry);
    if (nNumber < 1 || nNumber > nFields) {
        throw CInputError(strFile, nLine, 0,
                          "there is no column " + strEntry + ", this line has " + std::to_string(nFields));
    }
    return nNumber - 1;
}

int FindName(const std::string& strEntry, const std::vector<std::string>& fields, const std::string& strFile,
             int nLine) {
    const auto found = std::find(fields.begin(), fields.end(), strEntry);
    if (found == fields.end()) {
        throw CInputError(strFile, nLine, 0, "no column is named " + Quoted(strEntry));
    }
    return static_cast<int>(found - fields.begin());
}

} // namespace

CColumnChoice::CColumnChoice(const std::string& strOption, const std::string& strList) {
    for (std::size_t nStart = 0; nStart <= strList.size();) {
        const std::size_t nComma = std::min(strList.find(',', nStart), strList.size());
        m_Entries.push_back(strList.substr(nStart, nComma - nStart));
        if (m_Entries.back().empty()) {
            throw CException(strOption + ": an entry of " + Quoted(strList) + " is empty");
        }
        nStart = nComma + 1;
    }
    if (m_Entries.size() < 2) {
        throw CException(strOption + ": an abscissa and at least one function are needed, as in 1,2");
    }
}

bool CColumnChoice::NeedsHeader() const {
    return !std::all_of(m_Entries.begin(), m_Entries.end(), IsNumber);
}

std::vector<int> CColumnChoice::Resolve(const std::vector<std::string>& fields, const std::string& strFile,
                                        int nLine) const {
    const int nFields = static_cast<int>(fields.size());
    if (IsEmpty()) {
        std::vector<int> all(fields.size());
        std::iota(all.begin(), all.end(), 0);
        return all;
    }
    std::vector<int> chosen;
    for (const std::string& strEntry : m_Entries) {
        chosen.push_back(IsNumber(strEntry) ? FindNumber(strEntry, nFields, strFile, nLine)
                                            : FindName(strEntry, fields, strFile, nLine));
    }
    return chosen;
}

} // namespace tessara
