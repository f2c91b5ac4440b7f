#include "tessara/platform/gdi/TextMeasure.h"

#include <algorithm>
#include <cstring>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/gdi/SymbolEncoding.h"

namespace tessara {

bool IsSymbolFont(const LOGFONT& font) {
    return std::strcmp(font.lfFaceName, SYMBOL_FACE) == 0;
}

std::u32string DecodeFor(const LOGFONT& font, std::string_view strBytes) {
    std::u32string strText = IsSymbolFont(font) ? DecodeSymbol(strBytes) : DecodeText(strBytes);
    std::replace_if(
        strText.begin(), strText.end(), [](char32_t ch) { return ch < 0x20 || ch == 0xFFFE || ch == 0xFFFF; },
        U' ');
    return strText;
}

} // namespace tessara
