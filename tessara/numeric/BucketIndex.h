#pragma once

#include <memory>

namespace tessara {

/// Ascending abscissae sorted into about as many buckets of equal width: on abscissae without wild gaps an
/// interval is found in a few steps, on any others in as many as a search takes.
///
/// Which bucket a number falls into never decreases with the number, whatever the rounding, and the abscissae
/// go through the same arithmetic as the x looked up. So the bucket of x bounds its interval on both sides.
class CBucketIndex {
public:
    /// Indexes the abscissae [0, nEnd). Does nothing when they are not in order, when they or their range are
    /// not finite, or when there is no memory: IsBuilt tells.
    void Build(const double* pX, int nEnd);
    bool IsBuilt() const { return m_pEnds != nullptr; }

    /// FindInterval over [0, nEnd) for each of nCount x, at most 256.
    /// REQUIRES: IsBuilt()
    void Find(const double* pAt, int nCount, int* pIntervals) const;

private:
    int Bucket(double x) const;
    int FindInBucket(int nBucket, double x) const;

    const double* m_pX = nullptr;
    double m_dFirst = 0;
    double m_dScale = 0;            ///< buckets for each unit
    double m_dHighest = 0;          ///< the number of the highest bucket
    std::unique_ptr<int[]> m_pEnds; ///< m_pEnds[k]: how many abscissae lie in buckets below k
};

} // namespace tessara
