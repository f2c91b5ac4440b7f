#pragma once

#include <string>
#include <string_view>

#include "tessara/platform/base/Api.h"

namespace tessara {

/// Bytes of the Symbol encoding as the characters they stand for; bytes that it leaves undefined become
/// U+FFFD.
TESSARA_API std::u32string DecodeSymbol(std::string_view strBytes);

} // namespace tessara
