#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessara {

/// What bytes are known again by: that two different arrays have the same is a matter of chance, of one in
/// 2^128, whatever they differ in.
struct CFingerprint {
    std::uint64_t nLow = 0;
    std::uint64_t nHigh = 0;

    static CFingerprint Of(const void* pBytes, std::size_t nBytes);
    friend bool operator==(const CFingerprint&, const CFingerprint&) = default;
};

/// The fingerprints of arrays during one paint, in which no value changes: each array is looked at once,
/// however many curves share it.
class CArrayFingerprints {
public:
    CFingerprint Of(const double* pValues, int nCount);

private:
    struct CEntry {
        const double* pValues;
        int nCount;
        CFingerprint print;
    };
    std::vector<CEntry> m_entries;
};

} // namespace tessara
