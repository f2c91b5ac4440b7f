#include "tessara/platform/files/settings/IniText.h"

#include <algorithm>
#include <unordered_map>

namespace tessara {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr std::string_view BLANKS = " \t\r";

char LowerCase(char ch) {
    return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch + ('a' - 'A')) : ch;
}

std::string LowerCase(std::string_view str) {
    std::string strLower(str);
    std::transform(strLower.begin(), strLower.end(), strLower.begin(), [](char ch) { return LowerCase(ch); });
    return strLower;
}

/// Goes through the lines of a text and knows the section of each.
class CIniWalk {
public:
    CIniWalk(const CIniSyntax& syntax, std::string_view strText)
        : m_syntax(syntax), m_strText(strText),
          m_nNext(strText.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0) {}

    /// Goes to the next line, if there is one.
    bool Next() {
        if (m_nNext >= m_strText.size()) {
            return false;
        }
        m_nBegin = m_nNext;
        const std::size_t nEnd = std::min(m_strText.find('\n', m_nBegin), m_strText.size());
        m_nNext = std::min(nEnd + 1, m_strText.size());
        m_strLine = Trimmed(m_strText.substr(m_nBegin, nEnd - m_nBegin));
        m_bHeader = m_strLine.starts_with('[');
        if (m_bHeader) {
            m_section = m_syntax.ReadHeader(m_strLine);
        }
        return true;
    }

    std::size_t GetBegin() const { return m_nBegin; }
    std::size_t GetNext() const { return m_nNext; }
    /// A readable one.
    bool IsHeader() const { return m_bHeader && m_section; }
    const std::optional<std::string>& GetSection() const { return m_section; }
    bool IsIn(std::string_view strSection) const { return m_section && IsSameName(*m_section, strSection); }

    std::optional<INIENTRY> Entry() const {
        return m_bHeader || m_strLine.empty() ? std::nullopt : m_syntax.ReadEntry(m_strLine);
    }
    std::size_t PositionOf(std::string_view strPart) const {
        return static_cast<std::size_t>(strPart.data() - m_strText.data());
    }

private:
    const CIniSyntax& m_syntax;
    std::string_view m_strText;
    std::string_view m_strLine;
    std::size_t m_nBegin = 0;
    std::size_t m_nNext;
    std::optional<std::string> m_section = "";
    bool m_bHeader = false;
};

} // namespace

bool CNameList::Add(std::string_view strName) {
    const bool bNew = m_known.insert(LowerCase(strName)).second;
    if (bNew) {
        m_names.emplace_back(strName);
    }
    return bNew;
}

bool IsSameName(std::string_view strA, std::string_view strB) {
    return strA.size() == strB.size() &&
           std::equal(strA.begin(), strA.end(), strB.begin(),
                      [](char a, char b) { return LowerCase(a) == LowerCase(b); });
}

std::string_view Trimmed(std::string_view str) {
    const std::size_t nFirst = str.find_first_not_of(BLANKS);
    return nFirst == std::string_view::npos ? str.substr(0, 0)
                                            : str.substr(nFirst, str.find_last_not_of(BLANKS) - nFirst + 1);
}

CIniText::FOUND CIniText::Look(std::string_view strSection, const CIniValues& wanted) const {
    FOUND found{std::vector<std::optional<PLACE>>(wanted.size()), {}};
    std::unordered_map<std::string, std::size_t> missing;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        missing.emplace(LowerCase(wanted[i].first), i);
    }
    for (CIniWalk walk(m_syntax, m_strBytes); !missing.empty() && walk.Next();) {
        if (!walk.IsIn(strSection)) {
            continue;
        }
        const auto entry = walk.Entry();
        if (entry || walk.IsHeader()) {
            found.end = walk.GetNext();
        }
        if (const auto it = entry ? missing.find(LowerCase(entry->strName)) : missing.end();
            it != missing.end()) {
            found.values[it->second] = PLACE{walk.PositionOf(entry->strValue), entry->strValue.size()};
            missing.erase(it);
        }
    }
    return found;
}

std::optional<std::string> CIniText::Find(std::string_view strSection, std::string_view strName) const {
    const auto place = Look(strSection, {{std::string(strName), {}}}).values.front();
    return place ? std::optional(m_strBytes.substr(place->nPosition, place->nLength)) : std::nullopt;
}

void CIniText::Set(std::string_view strSection, std::string_view strName, std::string_view strValue) {
    SetAll(strSection, {{std::string(strName), std::string(strValue)}});
}

void CIniText::SetAll(std::string_view strSection, const CIniValues& values) {
    const FOUND found = Look(strSection, values);
    std::vector<std::pair<PLACE, std::string_view>> changes;
    std::string strLines;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (found.values[i]) {
            changes.emplace_back(*found.values[i], values[i].second);
            continue;
        }
        strLines += strLines.empty() ? std::string_view() : LineEnd();
        strLines += m_syntax.WriteName(values[i].first) + "=" + values[i].second;
    }
    if (!strLines.empty()) { // behind all values that were found, so that their places stay
        if (!found.end) {
            AddSection(strSection);
        }
        InsertLine(found.end.value_or(m_strBytes.size()), strLines);
    }
    Replace(std::move(changes));
}

void CIniText::Replace(std::vector<std::pair<PLACE, std::string_view>> changes) {
    std::sort(changes.begin(), changes.end(),
              [](const auto& a, const auto& b) { return a.first.nPosition < b.first.nPosition; });
    std::string strNew;
    std::size_t nCopied = 0;
    for (const auto& [place, strValue] : changes) {
        strNew.append(m_strBytes, nCopied, place.nPosition - nCopied).append(strValue);
        nCopied = place.nPosition + place.nLength;
    }
    m_strBytes = strNew.append(m_strBytes, nCopied);
}

bool CIniText::Remove(std::string_view strSection, std::string_view strName) {
    std::string strKept;
    std::size_t nKept = 0;
    for (CIniWalk walk(m_syntax, m_strBytes); walk.Next();) {
        const auto entry = walk.IsIn(strSection) ? walk.Entry() : std::nullopt;
        if (entry && IsSameName(entry->strName, strName)) {
            strKept.append(m_strBytes, nKept, walk.GetBegin() - nKept);
            nKept = walk.GetNext();
        }
    }
    if (nKept == 0) {
        return false;
    }
    m_strBytes = strKept.append(m_strBytes, nKept);
    return true;
}

void CIniText::AddSection(std::string_view strSection) {
    if (!IsLastLineBlank()) {
        InsertLine(m_strBytes.size(), {});
    }
    InsertLine(m_strBytes.size(), m_syntax.WriteHeader(strSection));
}

void CIniText::RemoveSection(std::string_view strSection) {
    std::string strKept;
    std::size_t nKept = 0;
    for (CIniWalk walk(m_syntax, m_strBytes); walk.Next();) {
        if (walk.IsIn(strSection) && (walk.IsHeader() || walk.Entry())) {
            strKept.append(m_strBytes, nKept, walk.GetBegin() - nKept);
            nKept = walk.GetNext();
        }
    }
    m_strBytes = strKept.append(m_strBytes, nKept);
}

std::vector<std::string> CIniText::Sections() const {
    CNameList names;
    for (CIniWalk walk(m_syntax, m_strBytes); walk.Next();) {
        // Only what stands before the first header is in a section without one.
        const bool bFirst = walk.GetSection() && walk.GetSection()->empty();
        if (walk.IsHeader() || (bFirst && walk.Entry())) {
            names.Add(*walk.GetSection());
        }
    }
    return names.Take();
}

std::vector<std::string> CIniText::Entries(std::string_view strSection) const {
    std::vector<std::string> names;
    for (auto& [strName, strValue] : Values(strSection)) {
        names.push_back(std::move(strName));
    }
    return names;
}

CIniValues CIniText::Values(std::string_view strSection) const {
    CIniValues values;
    CNameList names;
    for (CIniWalk walk(m_syntax, m_strBytes); walk.Next();) {
        const auto entry = walk.IsIn(strSection) ? walk.Entry() : std::nullopt;
        if (entry && names.Add(entry->strName)) {
            values.emplace_back(entry->strName, entry->strValue);
        }
    }
    return values;
}

void CIniText::InsertLine(std::size_t nPosition, const std::string& strLine) {
    const std::string strEnd(LineEnd());
    const bool bOpen = nPosition > 0 && m_strBytes[nPosition - 1] != '\n' &&
                       !(nPosition == BYTE_ORDER_MARK.size() && m_strBytes.starts_with(BYTE_ORDER_MARK));
    m_strBytes.insert(nPosition, (bOpen ? strEnd : std::string()) + strLine + strEnd);
}

bool CIniText::IsLastLineBlank() const {
    std::string_view strText = m_strBytes;
    if (strText.starts_with(BYTE_ORDER_MARK)) {
        strText.remove_prefix(BYTE_ORDER_MARK.size());
    }
    if (strText.ends_with('\n')) {
        strText.remove_suffix(1);
    }
    return Trimmed(strText.substr(strText.rfind('\n') + 1)).empty();
}

/// Those of the file: its first line tells.
std::string_view CIniText::LineEnd() const {
    const std::size_t nEnd = m_strBytes.find('\n');
    const bool bReturn = nEnd != std::string::npos && nEnd > 0 && m_strBytes[nEnd - 1] == '\r';
    return bReturn ? "\r\n" : "\n";
}

} // namespace tessara
