#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/ColumnFile.h"

namespace tessara {

/// A plain text as indexed text: drawn in the normal style, its tildes as tildes.
std::string PlainIndexedText(std::string_view strPlain);

/// The title of the horizontal axis: the abscissa's name in the first file that has one, as indexed text, or
/// nothing.
std::string ArgumentTitle(std::span<const CColumnFile> files);

/// The title of the vertical axis: the different names of the functions, joined by commas and cut to the room
/// that the title has, as indexed text, or nothing.
std::string FunctionTitle(std::span<const CColumnFile> files);

} // namespace tessara
