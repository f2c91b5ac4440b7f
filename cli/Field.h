#pragma once

#include <string>

namespace tessara {

/// What one field of a data file says.
enum class FieldKind {
    Number,       ///< a finite number
    Gap,          ///< a value that is missing: NA, nan or inf, in any case of letters
    Empty,        ///< nothing; as a value it is a gap too
    DecimalComma, ///< a number but for its decimal comma
    TooLarge,     ///< a number that no double can hold
    Text          ///< anything else
};

struct FIELDVALUE {
    FieldKind kind;
    double dValue; ///< not-a-number unless the kind is Number
};

/// Reads a field from which blanks at both ends have been cut. Numbers are those of tessara::ParseNumber,
/// with '.'.
FIELDVALUE ReadField(const std::string& strField);

} // namespace tessara
