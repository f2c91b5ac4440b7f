#include "tessara/plot/Fingerprint.h"

#include <algorithm>

// Inline, so that nothing of the library is needed when a program runs.
#define XXH_INLINE_ALL
#include <xxhash.h>

namespace tessara {

CFingerprint CFingerprint::Of(const void* pBytes, std::size_t nBytes) {
    const XXH128_hash_t hash = XXH3_128bits(pBytes, nBytes);
    return {hash.low64, hash.high64};
}

CFingerprint CArrayFingerprints::Of(const double* pValues, int nCount) {
    const auto known = std::find_if(m_entries.begin(), m_entries.end(), [&](const CEntry& entry) {
        return entry.pValues == pValues && entry.nCount == nCount;
    });
    if (known != m_entries.end()) {
        return known->print;
    }
    const std::size_t nBytes = static_cast<std::size_t>(std::max(nCount, 0)) * sizeof(double);
    m_entries.push_back({pValues, nCount, CFingerprint::Of(pValues, nBytes)});
    return m_entries.back().print;
}

} // namespace tessara
