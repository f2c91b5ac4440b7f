#pragma once

#include <string>

namespace tessara {

/// A scale of one axis given by hand.
struct AXISSCALE {
    double dFrom;
    double dTo;
    double dStep;
    int nExponent; ///< labels are multiplied by ten to this power
};

/// What the parts of a scale are called where the user writes them.
struct SCALENAMES {
    const char* pszFrom;
    const char* pszTo;
    const char* pszStep;
    const char* pszExponent;
};

/// Throws CException for dFrom not below dTo, dStep not above 0, more than 200 steps, and an exponent that is
/// no whole number from -8 to 8. The end is the last tick's place where the two differ by rounding alone.
AXISSCALE MakeAxisScale(double dFrom, double dTo, double dStep, double dExponent, const SCALENAMES& names);

/// Reads "FROM:TO:STEP" or "FROM:TO:STEP:EXP". Throws CException that starts with strOption, for what is no
/// such text and no scale.
AXISSCALE ParseAxisScale(const std::string& strOption, const std::string& strText);

} // namespace tessara
