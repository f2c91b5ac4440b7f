#pragma once

#include <string>

#include "cli/PictureSize.h"
#include "tessara/curveplot/OutputCurve.h"

namespace tessara {

enum class PictureFormat { Png, Svg, Pdf, Wmf };

/// The format that the ending of a file's name asks for, in any case of letters. Throws CInputError for any
/// other.
PictureFormat FormatOfFile(const std::string& strPath);

/// Draws the plot as a file, which is there as a whole or, after an exception, as it was before.
/// Throws CInputError that names the file.
void DrawPicture(COutputCurve& plot, const CPictureSize& size, const std::string& strPath);

} // namespace tessara
