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

/// The box of two corners, neither NaN.
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

/// Whether two boxes share a point; touching is enough.
inline bool Overlap(const CBox& a, const CBox& b) {
    return LaneBits((a.low <= b.high) & (b.low <= a.high)) == 3;
}

/// Eight boxes, coordinate by coordinate, so that all are compared with another in a few steps. A place that
/// is not set overlaps nothing.
class CEightBoxes {
public:
    static constexpr int COUNT = 8;

    CEightBoxes() {
        const CLanes none = BothLanes(std::numeric_limits<double>::quiet_NaN());
        for (int k = 0; k < VECTORS; ++k) {
            m_lowX[k] = m_highX[k] = m_lowY[k] = m_highY[k] = none;
        }
    }

    /// The boxes of eight segments of a polyline of nine points.
    CEightBoxes(const double* pX, const double* pY) {
        for (int k = 0; k < VECTORS; ++k) {
            const CLanes x1 = LoadLanes(pX + LANES * k), x2 = LoadLanes(pX + LANES * k + 1);
            const CLanes y1 = LoadLanes(pY + LANES * k), y2 = LoadLanes(pY + LANES * k + 1);
            m_lowX[k] = Smaller(x2, x1);
            m_highX[k] = Larger(x2, x1);
            m_lowY[k] = Smaller(y2, y1);
            m_highY[k] = Larger(y2, y1);
        }
    }

    void Set(int i, const CBox& box) {
        const int k = i / LANES, n = i % LANES;
        m_lowX[k][n] = box.low[0], m_lowY[k][n] = box.low[1];
        m_highX[k][n] = box.high[0], m_highY[k][n] = box.high[1];
    }

    CBox Box(int i) const {
        const int k = i / LANES, n = i % LANES;
        return {CLanes{m_lowX[k][n], m_lowY[k][n]}, CLanes{m_highX[k][n], m_highY[k][n]}};
    }

    /// The boxes that overlap another, as bits.
    unsigned Overlapping(const CBox& box) const {
        const CLanes lowX = BothLanes(box.low[0]), highX = BothLanes(box.high[0]);
        const CLanes lowY = BothLanes(box.low[1]), highY = BothLanes(box.high[1]);
        unsigned nBits = 0;
        for (int k = 0; k < VECTORS; ++k) {
            const CLaneMask overlap =
                (m_lowX[k] <= highX) & (lowX <= m_highX[k]) & (m_lowY[k] <= highY) & (lowY <= m_highY[k]);
            nBits |= LaneBits(overlap) << (LANES * k);
        }
        return nBits;
    }

private:
    static constexpr int LANES = 2;
    static constexpr int VECTORS = COUNT / LANES;

    CLanes m_lowX[VECTORS], m_highX[VECTORS], m_lowY[VECTORS], m_highY[VECTORS];
};

} // namespace tessara
