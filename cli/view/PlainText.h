#pragma once

#include <string>
#include <string_view>

namespace tessara {

/// The characters of an indexed text as UTF-8, without their places and styles: "T~NC~L" is "TC", "F~G" a
/// capital phi. Control characters become blanks.
std::string PlainText(std::string_view strIndexed);

/// An axis title that names a unit after ", " or " / ", taken apart.
struct QUANTITY {
    std::string strName; ///< "T" of "T, K"
    std::string strUnit; ///< "K"; empty when the title names none

    explicit QUANTITY(const std::string& strTitle);
    /// "T = 305.2 K"
    std::string Show(const std::string& strValue) const;
};

/// A number with enough digits to tell two that differ by dStep; with six when dStep is no such difference.
std::string TextOfNumber(double dValue, double dStep);

/// A number with the fewest digits that give it back.
std::string TextOfNumber(double dValue);

} // namespace tessara
