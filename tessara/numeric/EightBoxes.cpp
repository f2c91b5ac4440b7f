#include "tessara/numeric/EightBoxes.h"

#ifdef __x86_64__
#include <immintrin.h>
#endif

// Every processor can compare two coordinates at a time. Most can compare four, which takes a quarter of the
// time. Both ways make the same comparisons. Eight at a time would gain about six per cent of a search and is
// left out.

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

#endif

const int LANES_HERE = ComparableLanes();

} // namespace

int ComparableLanes() {
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx2")) {
        return 4;
    }
#endif
    return 2;
}

CPairBits OverlappingPairs(const CEightBoxes& a, const CEightBoxes& b, [[maybe_unused]] int nLanes) {
#ifdef __x86_64__
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
