#pragma once

#include <cfenv>

namespace tessara {

/// While it lives, no floating-point operation of the calling thread traps, whatever traps the program has
/// switched on; then everything is as before, the flags included.
///
/// For code that computes what it may not need, side by side with what it does, and for what compares numbers
/// that may be NaN in machine vectors. Costs about as much as ten divisions: not for single values.
class CNoTraps {
public:
    CNoTraps() { std::feholdexcept(&m_environment); }
    ~CNoTraps() { std::fesetenv(&m_environment); }
    CNoTraps(const CNoTraps&) = delete;
    CNoTraps& operator=(const CNoTraps&) = delete;

private:
    std::fenv_t m_environment;
};

} // namespace tessara
