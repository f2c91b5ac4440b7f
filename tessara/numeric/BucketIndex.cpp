#include "tessara/numeric/BucketIndex.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "tessara/numeric/Lookup.h"

namespace tessara {

namespace {

constexpr int MAX_BLOCK = 256;
constexpr int MAX_BUCKETS = 1 << 28; ///< a gigabyte of index at most
constexpr int MAX_WALK = 8;          ///< abscissae of a bucket looked at one by one

} // namespace

void CBucketIndex::Build(const double* pX, int nEnd) {
    const int nBuckets = std::min(nEnd, MAX_BUCKETS);
    m_pX = pX;
    m_dFirst = pX[0];
    m_dScale = nBuckets / (pX[nEnd - 1] - m_dFirst);
    m_dHighest = nBuckets - 1;
    if (!(m_dScale > 0) || !std::isfinite(m_dScale) || !std::isfinite(pX[nEnd - 1])) {
        return;
    }
    std::unique_ptr<int[]> pEnds(new (std::nothrow) int[static_cast<std::size_t>(nBuckets) + 1]());
    if (!pEnds) {
        return;
    }
    // The last abscissa of a bucket leaves its mark; a bucket without any takes its neighbour's.
    bool bAscending = true;
    for (int i = 0; i < nEnd; ++i) {
        bAscending &= pX[std::max(i - 1, 0)] <= pX[i];
        pEnds[Bucket(pX[i]) + 1] = i + 1;
    }
    for (int k = 1; k <= nBuckets; ++k) {
        pEnds[k] = std::max(pEnds[k], pEnds[k - 1]);
    }
    if (bAscending) {
        m_pEnds = std::move(pEnds);
    }
}

void CBucketIndex::Find(const double* pAt, int nCount, int* pIntervals) const {
    // In turns, so that what one turn asks memory for arrives before the next one needs it.
    int buckets[MAX_BLOCK];
    for (int k = 0; k < nCount; ++k) {
        buckets[k] = Bucket(pAt[k]);
        __builtin_prefetch(&m_pEnds[buckets[k]]);
    }
    for (int k = 0; k < nCount; ++k) {
        __builtin_prefetch(m_pX + m_pEnds[buckets[k]]);
    }
    for (int k = 0; k < nCount; ++k) {
        pIntervals[k] = FindInBucket(buckets[k], pAt[k]);
    }
}

/// The bucket of x, of the nearest one outside the range; the lowest one for NaN.
int CBucketIndex::Bucket(double x) const {
    const double dBucket = (x - m_dFirst) * m_dScale;
    const double dPositive = dBucket > 0 ? dBucket : 0;
    return static_cast<int>(dPositive < m_dHighest ? dPositive : m_dHighest);
}

int CBucketIndex::FindInBucket(int nBucket, double x) const {
    // All abscissae below the bucket are less than x, all above it greater.
    const int nFirst = std::max(m_pEnds[nBucket] - 1, 0);
    const int nEnd = m_pEnds[nBucket + 1];
    if (nEnd - nFirst > MAX_WALK) {
        return FindInterval(m_pX, nFirst, nEnd, x);
    }
    int i = nEnd - 1;
    while (i > nFirst && !(m_pX[i] <= x)) {
        --i;
    }
    return i;
}

} // namespace tessara
