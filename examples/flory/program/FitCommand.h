#pragma once

#include "cli/PlotOptions.h"
#include "examples/flory/program/MeasuredFile.h"

namespace flory {

/// What the user asks `flory fit` for, as written.
struct CFitOptions {
    CMeasuredOptions measured;
    tessara::PLOTOPTIONS plot; ///< its output is empty when nothing is to be drawn
};

void DeclareFitOptions(CLI::App& command, CFitOptions& options);

/// Prints the fit on standard output. Throws CException or std::invalid_argument, whose what() is one line
/// for the user, and leaves no file behind then.
void RunFit(CFitOptions options);

} // namespace flory
