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

/// Reads "FROM:TO:STEP" or "FROM:TO:STEP:EXP". Throws CException that starts with strOption, for what is no
/// such text, for FROM not below TO, STEP not above 0, more than 200 steps, and EXP outside -8 to 8.
AXISSCALE ParseAxisScale(const std::string& strOption, const std::string& strText);

} // namespace tessara
