#pragma once

#include "cli/view/ShownPlot.h"

namespace tessara {

/// The size of exported and copied pictures, that of `tessara plot`.
CPictureSize ViewerPictureSize();

/// Puts a plot on the clipboard: as PNG, SVG and Windows metafile, and its values as text. Throws CException
/// when a picture cannot be made; the clipboard is as it was then.
void CopyPlot(CShownPlot& plot);

/// Puts the values alone on the clipboard.
void CopyValues(const CShownPlot& plot);

} // namespace tessara
