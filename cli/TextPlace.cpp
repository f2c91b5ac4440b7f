#include "cli/TextPlace.h"

#include <algorithm>

namespace tessara {

namespace {

/// The second byte of CR LF ends no line of its own.
bool EndsLine(std::string_view strText, std::size_t i) {
    return strText[i] == '\n' || (strText[i] == '\r' && strText.substr(i + 1, 1) != "\n");
}

bool StartsCharacter(char ch) {
    return (static_cast<unsigned char>(ch) & 0xC0U) != 0x80U;
}

} // namespace

TEXTPLACE PlaceIn(std::string_view strText, std::size_t nOffset) {
    TEXTPLACE place = {1, 1};
    for (std::size_t i = 0; i < std::min(nOffset, strText.size()); i++) {
        if (EndsLine(strText, i)) {
            place.nLine++;
            place.nColumn = 1;
        } else {
            place.nColumn += StartsCharacter(strText[i]);
        }
    }
    return place;
}

} // namespace tessara
