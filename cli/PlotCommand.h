#pragma once

#include "cli/PlotOptions.h"

namespace tessara {

/// Does what `tessara plot` is asked for: reads the files, sets up the plot and writes the picture.
/// Throws CException, whose what() is one line for the user, and leaves no file behind then.
void RunPlot(const PLOTOPTIONS& options);

} // namespace tessara
