#include "tessara/platform/files/settings/IniText.h"

#include <algorithm>

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

void CNameList::Add(std::string_view strName) {
    if (m_known.insert(LowerCase(strName)).second) {
        m_names.emplace_back(strName);
    }
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

CIniText::FOUND CIniText::Look(std::string_view strSection, std::string_view strName) const {
    FOUND found;
    for (CIniWalk walk(m_syntax, m_strBytes); walk.Next();) {
        if (!walk.IsIn(strSection)) {
            continue;
        }
        const auto entry = walk.Entry();
        if (entry && IsSameName(entry->strName, strName)) {
            found.value = PLACE{walk.PositionOf(entry->strValue), entry->strValue.size()};
            return found;
        }
        if (entry || walk.IsHeader()) {
            found.end = walk.GetNext();
        }
    }
    return found;
}

std::optional<std::string> CIniText::Find(std::string_view strSection, std::string_view strName) const {
    const auto place = Look(strSection, strName).value;
    return place ? std::optional(m_strBytes.substr(place->nPosition, place->nLength)) : std::nullopt;
}

void CIniText::Set(std::string_view strSection, std::string_view strName, std::string_view strValue) {
    const FOUND found = Look(strSection, strName);
    if (found.value) {
        m_strBytes.replace(found.value->nPosition, found.value->nLength, strValue);
        return;
    }
    if (!found.end) {
        AddSection(strSection);
    }
    InsertLine(found.end.value_or(m_strBytes.size()),
               m_syntax.WriteName(strName) + "=" + std::string(strValue));
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
    CNameList names;
    for (CIniWalk walk(m_syntax, m_strBytes); walk.Next();) {
        if (const auto entry = walk.IsIn(strSection) ? walk.Entry() : std::nullopt) {
            names.Add(entry->strName);
        }
    }
    return names.Take();
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
