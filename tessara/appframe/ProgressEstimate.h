#pragma once

#include <chrono>
#include <string>

namespace tessara {

/// How far a calculation has come and how long it will still take, in words for its user:
/// "12 % done, about 3 min left".
///
/// The time left is what the mean pace since the beginning makes of the rest. It is told once a few seconds
/// and a hundredth of the work give it a meaning, in steps that a person counts in, and does not jump about:
/// what is told grows only when it has become much too short.
class CProgressEstimate {
public:
    using CTime = std::chrono::steady_clock::time_point;

    void Begin(CTime now);
    /// The text for a fraction from 0 to 1; empty for less than a hundredth or what is not a number.
    std::string Describe(double dFraction, CTime now);

private:
    CTime m_begin;
    long m_nToldSeconds = 0; ///< what was told last, or 0
};

} // namespace tessara
