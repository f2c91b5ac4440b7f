#pragma once

#include <QIcon>
#include <QPixmap>
#include <string_view>

namespace tessara {

/// An SVG picture drawn into a square of that size in Qt's units, at that device pixel ratio. The colour
/// currentColor of the picture is the given one. Empty when the bytes are no SVG.
QPixmap DrawSvg(std::string_view strSvg, int nSize, double dRatio, QColor color);

/// An icon from an SVG picture, sharp at every size; currentColor is the text colour of the palette at hand.
QIcon SvgIcon(std::string_view strSvg);

} // namespace tessara
