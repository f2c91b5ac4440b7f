#pragma once

#include <optional>

#include "tessara/numeric/MultiCurve.h"
#include "tessara/platform/base/StringArray.h"

namespace tessara {

/// Makes a curve of lines of text: field 0 of each line is an abscissa, field k the ordinate of column k - 1.
/// Fields from nColumns on are not looked at, and lines of blanks (spaces and tabs) alone are no points.
///
/// Returns the first line with a field that is no number, if there is one. A number is what strtod reads as a
/// whole; blanks may follow it where a delimiter does. An empty field before a delimiter is no number, for
/// nobody can tell what was meant. What a short line lacks, or has empty at its end, is 0, and so are the
/// fields that are no numbers.
///
/// nColumns below 1 are 1. Running out of memory throws CMemoryException; the curve is then undefined.
std::optional<int> ConvertLines(const CStringArray& lines, char cDelimiter, int nColumns, CMultiCurve& curve);

} // namespace tessara
