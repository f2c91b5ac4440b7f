#pragma once

#include <string>

#include "tessara/platform/base/String.h"
#include "tessara/plot/Canvas.h"

namespace tessara {

/// An axis title: the symbol, in indexed text, followed by the power of ten that the labels are shown times,
/// when nExponent is not 0. The multiplication sign is UTF-8 in a symbol that is, else the byte 0xD7.
CString AxisTitle(const CString& strSymbol, int nExponent);

/// A line of a read-out, in indexed text: the symbol, " = ", the number in an application's format, and the
/// power of ten that it is to be taken times, when nExponent is not 0.
CString ValueLine(const CString& strSymbol, const CString& strFormat, double dValue, int nExponent = 0);

/// Draws a plot's caption, bold italic, with its top-left at (nX, nY) or, when bCentered, its top centre
/// there. On a surface in text mode it is 11 points high, else 150 units.
void DrawCaption(const CCanvas& canvas, int nX, int nY, bool bCentered, const CString& strCaption);

} // namespace tessara
