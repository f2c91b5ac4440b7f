#pragma once

#include <cstdint>
#include <optional>

namespace tessara {

/// Which file lies under a name and when it was last written. Two that differ mean that somebody has put
/// another file there or written into it between them. What is written in place within one tick of the
/// file system's clock is not seen; this library replaces files.
struct CFileStamp {
    std::uint64_t nDevice;
    std::uint64_t nFile; ///< its number on the device
    std::int64_t nLength;
    std::int64_t nSeconds; ///< of the last change
    std::int64_t nNanoseconds;

    bool operator==(const CFileStamp&) const = default;

    /// Nothing when there is no such file, or it cannot be looked at.
    static std::optional<CFileStamp> Of(int nDescriptor);
    static std::optional<CFileStamp> At(const char* pszPath); ///< links are followed
};

} // namespace tessara
