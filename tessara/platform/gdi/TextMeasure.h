#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tessara/platform/gdi/GdiObject.h"

namespace tessara {

/// The face that draws Greek: its bytes are in the Symbol encoding.
inline constexpr const char* SYMBOL_FACE = "Symbol";

TESSARA_API bool IsSymbolFont(const LOGFONT& font);

/// The characters that the bytes of a text stand for when it is drawn in a font: by the Symbol encoding for
/// the Symbol face, else as Text.h says. Control characters, which have no shape and which an XML file cannot
/// hold, become spaces.
TESSARA_API std::u32string DecodeFor(const LOGFONT& font, std::string_view strBytes);

/// Width and line height of a text in a font, in the font's logical units, rounded to the nearest integer.
///
/// Taken from the unhinted outlines, so the layout of a page does not depend on the device or its resolution.
/// From any thread. This and the functions below throw CGraphicsException as CDC says.
TESSARA_API SIZE MeasureText(const LOGFONT& font, std::string_view strBytes);

/// The proportions of a font in its logical units, each rounded to the nearest integer and measured as texts
/// are: a line is as high as MeasureText says.
struct CFontMeasures {
    LONG nLine;         ///< the height of a line
    LONG nAscent;       ///< of it above the base line
    LONG nEm;           ///< the height of the characters
    LONG nMeanWidth;    ///< of a character
    LONG nLargestWidth; ///< of a character
};
TESSARA_API CFontMeasures MeasureFont(const LOGFONT& font);

/// The height of a font's em in its logical units, rounded to the nearest integer.
TESSARA_API LONG MeasureEm(const LOGFONT& font);

/// The advance of each byte of a text in a one-byte encoding (Windows-1252, or Symbol in a Symbol font), in
/// the font's logical units. Their sum is the text's width to within one unit.
TESSARA_API std::vector<LONG> MeasureAdvances(const LOGFONT& font, std::string_view strBytes);

} // namespace tessara
