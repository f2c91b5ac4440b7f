#pragma once

#include <cstddef>
#include <string_view>

namespace tessara {

/// Where something stands in a text, as editors count.
struct TEXTPLACE {
    int nLine;   ///< from 1
    int nColumn; ///< characters of the line, from 1
};

/// The place of the byte at nOffset, or of the end of the text. Lines end with LF, CR LF or CR; a UTF-8
/// sequence is one character.
TEXTPLACE PlaceIn(std::string_view strText, std::size_t nOffset);

} // namespace tessara
