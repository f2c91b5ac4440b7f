#pragma once

#include <string>

#include "cli/DiagramFile.h"

namespace tessara {

/// The points of a diagram that a window shows, as text: two columns for each kind of curve and of point, as
/// the legend names them, with an empty line where a curve is interrupted. Found multiphase points may be
/// null.
std::string DiagramValues(const DIAGRAM& diagram, const PLOTWINDOW& window, const CMultipartTable* pFound);

} // namespace tessara
