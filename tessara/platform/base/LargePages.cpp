#include "tessara/platform/base/LargePages.h"

#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace tessara {

void PreferLargePages([[maybe_unused]] void* pArray, [[maybe_unused]] std::size_t nBytes) {
#ifdef __linux__
    constexpr std::size_t nWorthwhile = 1 << 19;
    constexpr std::uintptr_t nPage = 4096;
    if (nBytes >= nWorthwhile) {
        // The request covers whole pages; what else lies on the first and the last one keeps its contents.
        const auto nOffset = reinterpret_cast<std::uintptr_t>(pArray) % nPage;
        madvise(static_cast<char*>(pArray) - nOffset, nBytes + nOffset, MADV_HUGEPAGE);
    }
#endif
}

} // namespace tessara
