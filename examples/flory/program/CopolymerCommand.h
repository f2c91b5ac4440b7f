#pragma once

#include "cli/DiagramOptions.h"

namespace flory {

/// What the user asks `flory copolymer` for, as written.
struct CCopolymerOptions : tessara::DIAGRAMOPTIONS {
    std::string strHomopolymers;
    std::string strDiblock;
    double dShare = 0.5;
    std::optional<double> at;
    int nPoints = 401;
};

void DeclareCopolymerOptions(CLI::App& command, CCopolymerOptions& options);

/// Throws CException or std::invalid_argument, whose what() is one line for the user, and leaves no file
/// behind then.
void RunCopolymer(const CCopolymerOptions& options);

} // namespace flory
