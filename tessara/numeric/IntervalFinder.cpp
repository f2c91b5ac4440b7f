#include "tessara/numeric/IntervalFinder.h"

#include <algorithm>

#include "tessara/numeric/Lookup.h"

namespace tessara {

namespace {

constexpr int LANES = 16;              ///< searches in flight
constexpr int MIN_INDEXED = 512;       ///< fewer abscissae are searched as quickly without an index
constexpr int ABSCISSAE_PER_QUERY = 4; ///< the most abscissae for one x that an index pays for
constexpr int WALK = 8;                ///< steps of a merge before it starts to leap

bool Ascends(const double* pAt, int nCount) {
    int nBreaks = 0; // counted, not branched on
    for (int k = 1; k < nCount; ++k) {
        nBreaks += !(pAt[k - 1] <= pAt[k]);
    }
    return nBreaks == 0 && pAt[0] == pAt[0];
}

/// FindInterval for LANES x, step by step side by side.
void FindSideBySide(const double* pX, int nEnd, const double* pAt, int* pIntervals) {
    int bases[LANES] = {};
    for (int nCount = nEnd; nCount > 1;) {
        const int nHalf = nCount / 2;
        for (int k = 0; k < LANES; ++k) {
            bases[k] += pX[bases[k] + nHalf] <= pAt[k] ? nHalf : 0;
        }
        nCount -= nHalf;
    }
    std::copy_n(bases, LANES, pIntervals);
}

void FindScattered(const double* pX, int nEnd, const double* pAt, int nCount, int* pIntervals) {
    int k = 0;
    for (; k + LANES <= nCount; k += LANES) {
        FindSideBySide(pX, nEnd, pAt + k, pIntervals + k);
    }
    for (; k < nCount; ++k) {
        pIntervals[k] = FindInterval(pX, 0, nEnd, pAt[k]);
    }
}

} // namespace

CIntervalFinder::CIntervalFinder(const double* pX, int nEnd, int nExpected)
    : m_pX(pX), m_nEnd(nEnd), m_bBuildIndex(nEnd >= MIN_INDEXED && nExpected >= nEnd / ABSCISSAE_PER_QUERY) {}

bool CIntervalFinder::Find(const double* pAt, int nCount, int* pIntervals) {
    if (Ascends(pAt, nCount)) {
        FindAscending(pAt, nCount, pIntervals);
        return true;
    }
    if (m_bBuildIndex) {
        m_index.Build(m_pX, m_nEnd);
        m_bBuildIndex = false;
    }
    if (m_index.IsBuilt()) {
        m_index.Find(pAt, nCount, pIntervals);
    } else {
        FindScattered(m_pX, m_nEnd, pAt, nCount, pIntervals);
    }
    return false;
}

void CIntervalFinder::FindAscending(const double* pAt, int nCount, int* pIntervals) {
    int i = m_pX[m_nCurrent] <= pAt[0] ? m_nCurrent : 0;
    for (int k = 0; k < nCount; ++k) {
        i = Advance(i, pAt[k]);
        pIntervals[k] = i;
    }
    m_nCurrent = i;
}

/// The interval of x, which is i or a later one.
int CIntervalFinder::Advance(int i, double x) const {
    for (const int nStop = m_nEnd - i > WALK ? i + WALK : m_nEnd - 1; i < nStop; ++i) {
        if (!(m_pX[i + 1] <= x)) {
            return i;
        }
    }
    // Far away, or at the end: leaps of twice the length each, then a search within the last one.
    for (int nLeap = WALK; i < m_nEnd - 1; nLeap = std::min(nLeap, m_nEnd / 2) * 2) {
        const int nStop = m_nEnd - i > nLeap ? i + nLeap : m_nEnd;
        if (nStop == m_nEnd || !(m_pX[nStop] <= x)) {
            return FindInterval(m_pX, i, nStop, x);
        }
        i = nStop;
    }
    return i;
}

} // namespace tessara
