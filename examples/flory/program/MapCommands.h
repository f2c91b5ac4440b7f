#pragma once

#include <optional>
#include <string>

#include "examples/flory/program/Arguments.h"

namespace flory {

/// What the user asks `flory stability` for, as written.
struct CStabilityOptions {
    CSolutionArguments solution;
    std::string strOutput;
    double dChi = 0;
    int nSize = 400;
    std::string strPhi = "0:1";
    std::string strW = "0:1";
};

/// What the user asks `flory three-phases` for, as written.
struct CThreePhasesOptions {
    CSolutionArguments solution;
    std::string strOutput;
    std::string strW = "0.001:0.5";
    int nRows = 200;
};

void DeclareStabilityOptions(CLI::App& command, CStabilityOptions& options);
void DeclareThreePhasesOptions(CLI::App& command, CThreePhasesOptions& options);

// Both throw CException or std::invalid_argument, whose what() is one line for the user, and CAborted when
// they are; no file is left behind then.

void RunStability(const CStabilityOptions& options);
void RunThreePhases(const CThreePhasesOptions& options);

} // namespace flory
