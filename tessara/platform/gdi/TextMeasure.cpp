#include "tessara/platform/gdi/TextMeasure.h"

#include <cstring>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/gdi/SymbolEncoding.h"

namespace tessara {

bool IsSymbolFont(const LOGFONT& font) {
    return std::strcmp(font.lfFaceName, SYMBOL_FACE) == 0;
}

std::u32string DecodeFor(const LOGFONT& font, std::string_view strBytes) {
    return IsSymbolFont(font) ? DecodeSymbol(strBytes) : DecodeText(strBytes);
}

} // namespace tessara
