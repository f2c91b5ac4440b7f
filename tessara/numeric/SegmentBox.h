#pragma once

#include <cstring>
#include <limits>

// Boxes of points and segments in the plane, two coordinates to a machine vector.

namespace tessara {

/// Two doubles that are compared side by side, and what a comparison gives: all bits of a lane, or none.
using CLanes = double __attribute__((vector_size(16)));
using CLaneMask = long long __attribute__((vector_size(16)));

inline CLanes BothLanes(double dValue) {
    return CLanes{dValue, dValue};
}

/// Two values that follow one another.
inline CLanes LoadLanes(const double* pValues) {
    CLanes lanes;
    std::memcpy(&lanes, pValues, sizeof lanes);
    return lanes;
}

inline void StoreLanes(double* pValues, CLanes lanes) {
    std::memcpy(pValues, &lanes, sizeof lanes);
}

/// The lanes of a mask as bits 0 and 1.
inline unsigned LaneBits(CLaneMask mask) {
#ifdef __SSE2__
    return static_cast<unsigned>(__builtin_ia32_movmskpd(reinterpret_cast<CLanes>(mask)));
#else
    return static_cast<unsigned>((mask[0] & 1) | (mask[1] & 2));
#endif
}

/// The smaller and the larger of two values; the second one where a value is NaN.
inline CLanes Smaller(CLanes a, CLanes b) {
    return a < b ? a : b;
}
inline CLanes Larger(CLanes a, CLanes b) {
    return a > b ? a : b;
}

/// An upright rectangle, bounds included. One without any point has bounds that no box reaches.
struct CBox {
    CLanes low;  ///< smallest x and y
    CLanes high; ///< largest x and y
};

inline CBox EmptyBox() {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    return {BothLanes(INFINITE), BothLanes(-INFINITE)};
}

/// The box of two corners; NaN where the first is, and the first where only the second is.
inline CBox CornerBox(double x1, double y1, double x2, double y2) {
    const CLanes first = {x1, y1};
    const CLanes second = {x2, y2};
    return {Smaller(second, first), Larger(second, first)};
}

/// Takes a point in; a coordinate that is NaN changes nothing.
inline void Extend(CBox& box, double x, double y) {
    const CLanes point = {x, y};
    box.low = Smaller(point, box.low);
    box.high = Larger(point, box.high);
}

inline void Extend(CBox& box, const CBox& other) {
    box.low = Smaller(other.low, box.low);
    box.high = Larger(other.high, box.high);
}

} // namespace tessara
