#pragma once

#include <string>

#include "tessara/curveplot/OutputCurve.h"

namespace tessara {

/// Room for the horizontal axis' title where the plot takes all the width of the page, in its units.
constexpr int NARROW_TITLE_ROOM = 310;

/// The width of an axis title, in units of the page.
int TitleWidth(const char* pszIndexedText);

/// A plain text as the title of the plot's vertical axis, cut with dots where it would run into the caption
/// or beyond the plot. The caption and the legend's room must be set already.
std::string FitFunctionTitle(const COutputCurve& plot, const std::string& strPlain);

/// The same for the horizontal axis, whose title ends with the page.
std::string FitArgumentTitle(const COutputCurve& plot, const std::string& strPlain);

} // namespace tessara
