#pragma once

#include "cli/DiagramOptions.h"

namespace tessara {

/// Does what `tessara diagram` is asked for: reads the file, sets up the diagram and writes the picture.
/// Throws CException, whose what() is one line for the user, and leaves no file behind then.
void RunDiagram(const DIAGRAMOPTIONS& options);

} // namespace tessara
