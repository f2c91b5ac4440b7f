#pragma once

#include <string>
#include <vector>

#include "cli/DiagramFile.h"

namespace tessara {

/// A diagram as the text of a diagram file, from which ParseDiagram makes the same diagram again: numbers
/// have all their digits, what is not finite is null, and texts that are not UTF-8 become it. The note's
/// lines go into the file too.
std::string DiagramText(const DIAGRAM& diagram, const std::vector<std::string>& note);

} // namespace tessara
