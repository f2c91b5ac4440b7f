#pragma once

#include <functional>
#include <string>

#include "cli/PictureSize.h"
#include "tessara/platform/gdi/DC.h"

namespace tessara {

enum class PictureFormat { Png, Svg, Pdf, Wmf };

/// The format that the ending of a file's name asks for, in any case of letters. Throws CInputError for any
/// other.
PictureFormat FormatOfFile(const std::string& strPath);

/// What a picture shows. Both return 0 on failure, as the renderers do.
struct DRAWING {
    std::function<int(CDC& dc, const RECT& rc)> paint;
    std::function<int(CDC& dc, const RECT& rc, const char* pszPath)> writeMetafile;
};

/// Draws a file, which is there as a whole or, after an exception, as it was before.
/// Throws CException that names the file.
void DrawPicture(const DRAWING& drawing, const CPictureSize& size, const std::string& strPath);

/// The same for one of the library's renderers.
template <class OUTPUT>
void DrawOutput(OUTPUT& output, const CPictureSize& size, const std::string& strPath) {
    DrawPicture(
        {[&](CDC& dc, const RECT& rc) { return output.Paint(&dc, rc, nullptr); },
         [&](CDC& dc, const RECT& rc, const char* pszPath) { return output.Export(&dc, rc, pszPath); }},
        size, strPath);
}

} // namespace tessara
