#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

/// Comparing numbers to the last bit, where all NaN are the same.
namespace bits {

inline bool Same(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

/// The first difference of two arrays as a failure.
inline testing::AssertionResult Same(const double* pA, const double* pB, int nCount) {
    for (int i = 0; i < nCount; ++i) {
        if (!Same(pA[i], pB[i])) {
            return testing::AssertionFailure()
                   << std::hexfloat << "[" << i << "]: " << pA[i] << ", " << pB[i];
        }
    }
    return testing::AssertionSuccess();
}

} // namespace bits
