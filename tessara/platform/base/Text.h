#pragma once

#include <string>
#include <string_view>

#include "tessara/platform/base/Api.h"

// How strings of bytes become characters. Running out of memory throws CMemoryException. Valid UTF-8 is read
// as UTF-8, anything else as Windows-1252, so both modern text and the byte 0xD7 (a multiplication sign) are
// shown as meant.

namespace tessara {

TESSARA_API bool IsValidUtf8(std::string_view strBytes);

/// The characters of a byte string, by the rule above. Total: the five bytes that Windows-1252 leaves
/// undefined become U+FFFD.
TESSARA_API std::u32string DecodeText(std::string_view strBytes);

/// Characters as UTF-8; surrogates and values past U+10FFFF become U+FFFD.
TESSARA_API std::string EncodeUtf8(std::u32string_view strCharacters);

/// Characters as Windows-1252, with '?' for what it lacks.
TESSARA_API std::string EncodeWindows1252(std::u32string_view strCharacters);

/// The number of bytes of the character that starts at the front of strBytes: 1 to 4 for a well-formed UTF-8
/// sequence, 1 for any other byte, 0 for an empty string.
TESSARA_API std::size_t CharacterLength(std::string_view strBytes);

/// The longest prefix of at most nMaxBytes bytes that does not end inside a UTF-8 character.
TESSARA_API std::string_view CutText(std::string_view strBytes, std::size_t nMaxBytes);

} // namespace tessara
