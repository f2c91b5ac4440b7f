#pragma once

#include <cfenv>
#include <string>

namespace tessara {

/// What a program that has switched its traps on would die of in an action: the names of the floating-point
/// exceptions raised, empty for none.
template <class ACTION>
std::string RaisedIn(ACTION action) {
    std::feclearexcept(FE_ALL_EXCEPT);
    action();
    std::string strRaised;
    strRaised += std::fetestexcept(FE_DIVBYZERO) ? "division by zero " : "";
    strRaised += std::fetestexcept(FE_INVALID) ? "invalid " : "";
    strRaised += std::fetestexcept(FE_OVERFLOW) ? "overflow " : "";
    return strRaised;
}

} // namespace tessara
