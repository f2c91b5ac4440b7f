#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessara {

/// What stands between the fields of a line: a tab, a comma, a semicolon, or blanks (any run of spaces and
/// tabs).
///
/// Between commas or semicolons a field may be quoted as in CSV: it starts and ends with '"', may hold the
/// delimiter, and '""' in it means one quote. Blanks around a field that is not quoted do not belong to it.
class CDelimiter {
public:
    /// REQUIRES: ch is '\t', ',', ';' or ' '.
    explicit CDelimiter(char ch) : m_ch(ch) {}

    /// The delimiter named tab, comma, semicolon or space, or written as that character. Throws CException.
    static CDelimiter FromName(const std::string& strName);

    /// The delimiter that makes most of the first lines' fields numbers; among equals tab, semicolon, comma,
    /// space.
    static CDelimiter Detect(std::string_view strText);

    char Get() const { return m_ch; }

    /// Cuts a line into fields. Returns 0, or the number, from 1, of the field whose quote does not end with
    /// it.
    int Split(std::string_view strLine, std::vector<std::string>& fields) const;

private:
    bool HasQuotes() const { return m_ch == ',' || m_ch == ';'; }
    double ShareOfNumbers(const std::vector<std::string_view>& lines) const;

    char m_ch;
};

} // namespace tessara
