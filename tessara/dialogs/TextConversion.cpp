#include "tessara/dialogs/TextConversion.h"

#include <algorithm>

#include "tessara/dialogs/LineFields.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

constexpr std::string_view BLANKS = " \t";

std::string_view WithoutEnd(std::string_view str, std::string_view strAny) {
    return str.substr(0, str.find_last_not_of(strAny) + 1);
}

/// The number of a field, 0 for a missing one.
std::optional<double> ReadField(const CLineFields& fields) {
    if (!fields.IsLast()) {
        return ParseNumber(WithoutEnd(fields.Get(), BLANKS));
    }
    return fields.Get().empty() ? 0 : ParseNumber(fields.Get());
}

/// Whether all its fields are numbers.
bool ConvertLine(std::string_view strLine, char cDelimiter, CMultiCurve& curve, int nRow) {
    bool bNumeric = true;
    CLineFields fields(strLine, cDelimiter);
    for (int nField = 0; nField <= curve.m_nDimensions; ++nField) {
        fields.Next();
        const std::optional<double> value = ReadField(fields);
        (nField == 0 ? curve.m_pX : curve.m_ppY[nField - 1])[nRow] = value.value_or(0);
        bNumeric = bNumeric && value;
    }
    return bNumeric;
}

} // namespace

std::optional<int> ConvertLines(const CStringArray& lines, char cDelimiter, int nColumns,
                                CMultiCurve& curve) {
    std::optional<int> fault;
    curve.Free(); // Allocate releases nothing
    curve.SetDimensions(std::max(nColumns, 1) - 1);
    curve.Allocate(lines.GetSize());
    int nRow = 0;
    for (int i = 0; i < lines.GetSize(); ++i) {
        const std::string_view strLine = lines[i].View();
        if (strLine.find_first_not_of(BLANKS) == std::string_view::npos) {
            continue;
        }
        if (!ConvertLine(WithoutEnd(WithoutEnd(strLine, " "), "\t"), cDelimiter, curve, nRow++) && !fault) {
            fault = i;
        }
    }
    curve.ReAllocate(nRow);
    return fault;
}

} // namespace tessara
