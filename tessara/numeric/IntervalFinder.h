#pragma once

#include "tessara/numeric/BucketIndex.h"

namespace tessara {

/// Finds the intervals of many x over the same abscissae, block by block: the very indices of FindInterval
/// over [0, nEnd), in less time.
///
/// A block that ascends is merged with the abscissae from where the last one ended. In any other block many
/// searches are in flight at once, over a bucket index when so many x are expected that building it pays.
/// When there is no memory for the index, the searches do without. Over abscissae that are not in order, an
/// ascending block gives some indices of the range.
class CIntervalFinder {
public:
    static constexpr int BLOCK = 256; ///< the most x in one call

    /// REQUIRES: nEnd >= 1. nExpected is the number of x to come, in all calls together.
    CIntervalFinder(const double* pX, int nEnd, int nExpected);

    /// Finds the interval of each of nCount x. True when they ascend, and so do the intervals.
    bool Find(const double* pAt, int nCount, int* pIntervals);

private:
    void FindAscending(const double* pAt, int nCount, int* pIntervals);
    int Advance(int i, double x) const;

    const double* m_pX;
    int m_nEnd;
    int m_nCurrent = 0; ///< the last interval of the last ascending block
    bool m_bBuildIndex; ///< the first block that does not ascend builds the index
    CBucketIndex m_index;
};

} // namespace tessara
