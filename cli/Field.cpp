#include "cli/Field.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

FIELDVALUE Without(FieldKind kind) {
    return {kind, std::numeric_limits<double>::quiet_NaN()};
}

bool IsNotAvailable(const std::string& strField) {
    return strField.size() == 2 && (strField[0] | 0x20) == 'n' && (strField[1] | 0x20) == 'a';
}

/// An infinite number written with digits has overflowed; "inf" has none.
bool IsOverflow(const std::string& strField, double dValue) {
    return std::isinf(dValue) && strField.find_first_of("0123456789") != std::string::npos;
}

bool HasDecimalComma(const std::string& strField) {
    if (std::count(strField.begin(), strField.end(), ',') != 1) {
        return false;
    }
    std::string strPoint = strField;
    strPoint[strField.find(',')] = '.';
    return strField.back() != ',' && ParseNumber(strPoint.c_str()).has_value();
}

} // namespace

FIELDVALUE ReadField(const std::string& strField) {
    if (strField.empty()) {
        return Without(FieldKind::Empty);
    }
    if (IsNotAvailable(strField)) {
        return Without(FieldKind::Gap);
    }
    const std::optional<double> value = ParseNumber(strField.c_str());
    if (!value) {
        return Without(HasDecimalComma(strField) ? FieldKind::DecimalComma : FieldKind::Text);
    }
    if (IsOverflow(strField, *value)) {
        return Without(FieldKind::TooLarge);
    }
    return std::isfinite(*value) ? FIELDVALUE{FieldKind::Number, *value} : Without(FieldKind::Gap);
}

} // namespace tessara
