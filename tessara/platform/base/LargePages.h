#pragma once

#include <cstddef>

namespace tessara {

/// Asks the system to back an array that is about to be filled by large pages, when it is large: the time to
/// provide its many small ones would exceed that of filling it. A hint; nothing shows whether it was taken.
void PreferLargePages(void* pArray, std::size_t nBytes);

} // namespace tessara
