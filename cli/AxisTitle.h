#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/ColumnFile.h"

namespace tessara {

/// A plain text as indexed text: drawn in the normal style, its tildes as tildes.
std::string PlainIndexedText(std::string_view strPlain);

/// What the horizontal axis shows: the abscissa's name in the first file that has one, or nothing. Plain
/// text.
std::string ArgumentName(std::span<const CColumnFile> files);

/// What the vertical axis shows: the different names of the functions, joined by commas, or nothing. Plain
/// text.
std::string FunctionNames(std::span<const CColumnFile> files);

} // namespace tessara
