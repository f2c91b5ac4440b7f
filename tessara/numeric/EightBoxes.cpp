#include "tessara/numeric/EightBoxes.h"

#ifdef __x86_64__
#include <immintrin.h>
#endif

// Every processor can compare two coordinates at a time. Most can compare four or eight, which takes a
// quarter or a sixth of the time. All ways make the same comparisons.

namespace tessara {
namespace {

constexpr int COUNT = CEightBoxes::COUNT;

CPairBits PairsTwoByTwo(const CEightBoxes& a, const CEightBoxes& b) {
    CPairBits nPairs = 0;
    for (int i = 0; i < COUNT; ++i) {
        const CLanes lowX = BothLanes(a.lowX[i]), highX = BothLanes(a.highX[i]);
        const CLanes lowY = BothLanes(a.lowY[i]), highY = BothLanes(a.highY[i]);
        for (int j = 0; j < COUNT; j += 2) {
            const CLaneMask overlap = (LoadLanes(b.lowX + j) <= highX) & (lowX <= LoadLanes(b.highX + j)) &
                                      (LoadLanes(b.lowY + j) <= highY) & (lowY <= LoadLanes(b.highY + j));
            nPairs |= CPairBits{LaneBits(overlap)} << (COUNT * i + j);
        }
    }
    return nPairs;
}

#ifdef __x86_64__

__attribute__((target("avx2"))) CPairBits PairsFourByFour(const CEightBoxes& a, const CEightBoxes& b) {
    CPairBits nPairs = 0;
    for (int i = 0; i < COUNT; ++i) {
        const __m256d lowX = _mm256_set1_pd(a.lowX[i]), highX = _mm256_set1_pd(a.highX[i]);
        const __m256d lowY = _mm256_set1_pd(a.lowY[i]), highY = _mm256_set1_pd(a.highY[i]);
        for (int j = 0; j < COUNT; j += 4) {
            const __m256d overlapX =
                _mm256_and_pd(_mm256_cmp_pd(_mm256_load_pd(b.lowX + j), highX, _CMP_LE_OQ),
                              _mm256_cmp_pd(lowX, _mm256_load_pd(b.highX + j), _CMP_LE_OQ));
            const __m256d overlapY =
                _mm256_and_pd(_mm256_cmp_pd(_mm256_load_pd(b.lowY + j), highY, _CMP_LE_OQ),
                              _mm256_cmp_pd(lowY, _mm256_load_pd(b.highY + j), _CMP_LE_OQ));
            const int nBits = _mm256_movemask_pd(_mm256_and_pd(overlapX, overlapY));
            nPairs |= static_cast<CPairBits>(nBits) << (COUNT * i + j);
        }
    }
    return nPairs;
}

__attribute__((target("avx512f"))) CPairBits PairsEightByEight(const CEightBoxes& a, const CEightBoxes& b) {
    const __m512d lowX = _mm512_load_pd(b.lowX), highX = _mm512_load_pd(b.highX);
    const __m512d lowY = _mm512_load_pd(b.lowY), highY = _mm512_load_pd(b.highY);
    CPairBits nPairs = 0;
    for (int i = 0; i < COUNT; ++i) {
        __mmask8 nBits = _mm512_cmp_pd_mask(lowX, _mm512_set1_pd(a.highX[i]), _CMP_LE_OQ);
        nBits = _mm512_mask_cmp_pd_mask(nBits, highX, _mm512_set1_pd(a.lowX[i]), _CMP_GE_OQ);
        nBits = _mm512_mask_cmp_pd_mask(nBits, lowY, _mm512_set1_pd(a.highY[i]), _CMP_LE_OQ);
        nBits = _mm512_mask_cmp_pd_mask(nBits, highY, _mm512_set1_pd(a.lowY[i]), _CMP_GE_OQ);
        nPairs |= CPairBits{nBits} << (COUNT * i);
    }
    return nPairs;
}

#endif

const int LANES_HERE = ComparableLanes();

} // namespace

int ComparableLanes() {
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx512f")) {
        return 8;
    }
    if (__builtin_cpu_supports("avx2")) {
        return 4;
    }
#endif
    return 2;
}

CPairBits OverlappingPairs(const CEightBoxes& a, const CEightBoxes& b, [[maybe_unused]] int nLanes) {
#ifdef __x86_64__
    if (nLanes == 8) {
        return PairsEightByEight(a, b);
    }
    if (nLanes == 4) {
        return PairsFourByFour(a, b);
    }
#endif
    return PairsTwoByTwo(a, b);
}

CPairBits OverlappingPairs(const CEightBoxes& a, const CEightBoxes& b) {
    return OverlappingPairs(a, b, LANES_HERE);
}

} // namespace tessara
