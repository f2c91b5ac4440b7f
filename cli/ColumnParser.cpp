#include "cli/ColumnParser.h"

#include <algorithm>
#include <utility>

#include "cli/InputError.h"

namespace tessara {

CColumnParser::CColumnParser(std::string_view strText, const std::string& strName, const COLUMNFORMAT& format)
    : m_Reader(strText), m_Format(format),
      m_Delimiter(format.delimiter ? *format.delimiter : CDelimiter::Detect(strText)) {
    m_File.m_strName = strName;
}

CColumnFile CColumnParser::Parse() {
    if (!NextRow()) {
        throw CInputError(m_File.m_strName, 0, 0, "holds no rows of numbers");
    }
    ReadFirstRow();
    while (NextRow()) {
        TakeRow();
    }
    if (m_File.m_Lines.empty()) {
        throw CInputError(m_File.m_strName, 0, 0, "holds a header but no rows of numbers");
    }
    return std::move(m_File);
}

void CColumnParser::Fail(int nField, const std::string& strProblem) const {
    throw CInputError(m_File.m_strName, m_Reader.GetNumber(), nField, strProblem);
}

/// Cuts the next line into fields; all lines must have as many.
bool CColumnParser::NextRow() {
    if (!m_Reader.Next()) {
        return false;
    }
    if (const int nBad = m_Delimiter.Split(m_Reader.GetLine(), m_Fields)) {
        Fail(nBad, "a quoted field must end with its closing quote");
    }
    if (m_nFields == 0) {
        m_nFields = m_Fields.size();
        m_nFirstLine = m_Reader.GetNumber();
    }
    if (m_Fields.size() != m_nFields) {
        Fail(0, "has " + std::to_string(m_Fields.size()) + " fields where line " +
                    std::to_string(m_nFirstLine) + " has " + std::to_string(m_nFields));
    }
    return true;
}

void CColumnParser::ReadFirstRow() {
    const CColumnChoice& choice = m_Format.choice;
    const std::vector<int> chosen = choice.Resolve(m_Fields, m_File.m_strName, m_Reader.GetNumber());
    if (chosen.size() < 2) {
        Fail(0, "has one column; an abscissa and at least one function are needed");
    }
    for (const int nField : chosen) {
        m_File.m_Functions.push_back({nField + 1, "", {}});
    }
    m_File.m_Abscissa = m_File.m_Functions.front();
    m_File.m_Functions.erase(m_File.m_Functions.begin());
    if (choice.NeedsHeader() || IsHeader()) {
        TakeHeader();
    } else {
        TakeRow();
    }
}

bool CColumnParser::IsHeader() const {
    bool bText = false;
    bool bNumber = false;
    const auto look = [&](const COLUMN& column) {
        const FieldKind kind = FieldAt(column).kind;
        bText = bText || kind == FieldKind::Text;
        bNumber = bNumber || (kind != FieldKind::Text && kind != FieldKind::Empty);
    };
    look(m_File.m_Abscissa);
    std::for_each(m_File.m_Functions.begin(), m_File.m_Functions.end(), look);
    return bText && !bNumber;
}

void CColumnParser::TakeHeader() {
    const auto take = [&](COLUMN& column) { column.strName = m_Fields[column.nNumber - 1]; };
    take(m_File.m_Abscissa);
    std::for_each(m_File.m_Functions.begin(), m_File.m_Functions.end(), take);
}

void CColumnParser::TakeRow() {
    m_File.m_Abscissa.m_Values.push_back(AbscissaAt(m_File.m_Abscissa));
    for (COLUMN& column : m_File.m_Functions) {
        column.m_Values.push_back(ValueAt(column));
    }
    m_File.m_Lines.push_back(m_Reader.GetNumber());
}

FIELDVALUE CColumnParser::FieldAt(const COLUMN& column) const {
    return ReadField(m_Fields[column.nNumber - 1]);
}

double CColumnParser::AbscissaAt(const COLUMN& column) const {
    const FIELDVALUE field = FieldAt(column);
    if (field.kind == FieldKind::Empty) {
        Fail(column.nNumber, "the abscissa is missing");
    }
    if (field.kind == FieldKind::Gap) {
        Fail(column.nNumber, Quoted(m_Fields[column.nNumber - 1]) + " cannot be an abscissa");
    }
    FailAt(column, field.kind);
    return field.dValue;
}

double CColumnParser::ValueAt(const COLUMN& column) const {
    const FIELDVALUE field = FieldAt(column);
    FailAt(column, field.kind);
    return field.dValue;
}

/// Fails for what is neither a number nor a gap.
void CColumnParser::FailAt(const COLUMN& column, FieldKind kind) const {
    const std::string strField = Quoted(m_Fields[column.nNumber - 1]);
    if (kind == FieldKind::Text) {
        Fail(column.nNumber, strField + " is not a number");
    }
    if (kind == FieldKind::DecimalComma) {
        Fail(column.nNumber, strField + " has a decimal comma; write numbers with a point");
    }
    if (kind == FieldKind::TooLarge) {
        Fail(column.nNumber, strField + " is too large a number");
    }
}

} // namespace tessara
