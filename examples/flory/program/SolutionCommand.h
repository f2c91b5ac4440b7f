#pragma once

#include "cli/DiagramOptions.h"
#include "examples/flory/program/Arguments.h"

namespace flory {

/// What the user asks `flory solution` for, as written.
struct CSolutionOptions : tessara::DIAGRAMOPTIONS {
    CSolutionArguments solution;
    std::string strOrdinate;
    int nPoints = 2000;
    std::optional<std::string> sections;
    bool bNoSpinodal = false;
    bool bNoShadow = false;
    bool bPhysical = false;
};

void DeclareSolutionOptions(CLI::App& command, CSolutionOptions& options);

/// Throws CException or std::invalid_argument, whose what() is one line for the user, and leaves no file
/// behind then.
void RunSolution(const CSolutionOptions& options);

} // namespace flory
