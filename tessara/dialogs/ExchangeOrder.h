#pragma once

#include <string_view>
#include <vector>

namespace tessara {

/// The order into which an exchange sort brings keys: which of them comes first, second and so on.
///
/// That sort goes through all pairs of places, i before j, in the order of i and then j, and exchanges what
/// they hold when the key at i is greater, byte by byte. The result is ascending; the order of equal keys is
/// that sort's own. It is found here without the exchanges, in n log n steps where keys differ.
std::vector<std::size_t> ExchangeOrder(const std::vector<std::string_view>& keys);

} // namespace tessara
