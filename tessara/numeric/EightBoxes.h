#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>

#include "tessara/numeric/SegmentBox.h"

namespace tessara {

/// Eight boxes, coordinate by coordinate, so that all are compared with others in a few steps. A place that
/// is not set overlaps nothing.
struct alignas(64) CEightBoxes {
    static constexpr int COUNT = 8;

    CEightBoxes() {
        for (double* pBounds : {lowX, highX, lowY, highY}) {
            std::fill_n(pBounds, COUNT, std::numeric_limits<double>::quiet_NaN());
        }
    }

    /// One box, in the first place.
    explicit CEightBoxes(const CBox& box) : CEightBoxes() { Set(0, box); }

    /// The boxes of eight segments of a polyline of nine points.
    CEightBoxes(const double* pX, const double* pY) {
        SetBounds(lowX, highX, pX);
        SetBounds(lowY, highY, pY);
    }

    void Set(int i, const CBox& box) {
        lowX[i] = box.low[0], lowY[i] = box.low[1];
        highX[i] = box.high[0], highY[i] = box.high[1];
    }

    void Unset(int i) { lowX[i] = std::numeric_limits<double>::quiet_NaN(); }

    double lowX[COUNT], highX[COUNT], lowY[COUNT], highY[COUNT];

private:
    static void SetBounds(double* pLow, double* pHigh, const double* pEnds) {
        for (int i = 0; i < COUNT; i += 2) {
            const CLanes first = LoadLanes(pEnds + i), second = LoadLanes(pEnds + i + 1);
            StoreLanes(pLow + i, Smaller(second, first));
            StoreLanes(pHigh + i, Larger(second, first));
        }
    }
};

/// Pairs (i, j) of two times eight boxes as bits 8 i + j.
using CPairBits = std::uint64_t;

/// Those with i < j.
constexpr CPairBits LATER_PAIRS = 0x0080C0E0F0F8FCFE;

/// Those of box i of a and box j of b that overlap.
CPairBits OverlappingPairs(const CEightBoxes& a, const CEightBoxes& b);

/// The same, comparing 2 or 4 coordinates at a time.
/// REQUIRES: nLanes <= ComparableLanes()
CPairBits OverlappingPairs(const CEightBoxes& a, const CEightBoxes& b, int nLanes);

/// How many coordinates this processor can compare at a time.
int ComparableLanes();

/// Calls action(i, j) for every pair.
template <class ACTION>
void ForEachPair(CPairBits nPairs, ACTION action) {
    for (; nPairs != 0; nPairs &= nPairs - 1) {
        const int n = std::countr_zero(nPairs);
        action(n / CEightBoxes::COUNT, n % CEightBoxes::COUNT);
    }
}

} // namespace tessara
