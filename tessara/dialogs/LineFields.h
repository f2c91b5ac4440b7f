#pragma once

#include <string_view>

namespace tessara {

/// The fields of a line, one after the other: what stands before, between and after its delimiters. Two
/// delimiters in a row have an empty field between them, and an empty line is one empty field.
///
///     for (CLineFields fields("1.5;2;", ';'); fields.Next();) ... // "1.5", "2", ""
class CLineFields {
public:
    CLineFields(std::string_view strLine, char cDelimiter) : m_strRest(strLine), m_cDelimiter(cDelimiter) {}

    /// Goes to the next field. False when the line has no more, and the field is empty then.
    bool Next() {
        const bool bMore = !m_bLast;
        const std::size_t nEnd = m_strRest.find(m_cDelimiter);
        m_strField = m_strRest.substr(0, nEnd);
        m_bLast = nEnd == std::string_view::npos;
        m_strRest.remove_prefix(m_bLast ? m_strRest.size() : nEnd + 1);
        return bMore;
    }

    std::string_view Get() const { return m_strField; }
    /// Whether no delimiter follows the field.
    bool IsLast() const { return m_bLast; }

private:
    std::string_view m_strRest;
    std::string_view m_strField;
    char m_cDelimiter;
    bool m_bLast = false;
};

} // namespace tessara
