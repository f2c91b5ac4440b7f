#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/ColumnFile.h"
#include "cli/Field.h"
#include "cli/TextFile.h"

namespace tessara {

/// Reads one text into a CColumnFile. Used once; the text and the format must outlive it.
class CColumnParser {
public:
    CColumnParser(std::string_view strText, const std::string& strName, const COLUMNFORMAT& format);

    /// Throws CInputError.
    CColumnFile Parse();

private:
    [[noreturn]] void Fail(int nField, const std::string& strProblem) const;
    bool NextRow();
    void ReadFirstRow();
    bool IsHeader() const;
    void TakeHeader();
    void TakeRow();
    FIELDVALUE FieldAt(const COLUMN& column) const;
    double AbscissaAt(const COLUMN& column) const;
    double ValueAt(const COLUMN& column) const;
    void FailAt(const COLUMN& column, FieldKind kind) const;

    CLineReader m_Reader;
    const COLUMNFORMAT& m_Format;
    CDelimiter m_Delimiter;
    CColumnFile m_File;
    std::vector<std::string> m_Fields; ///< of the current line
    std::size_t m_nFields = 0;         ///< of every line; 0 before the first
    int m_nFirstLine = 0;
};

} // namespace tessara
