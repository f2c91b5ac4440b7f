#pragma once

#include "examples/flory/program/Arguments.h"

namespace flory {

/// What the user asks `flory critical-end` for, as written.
struct CCriticalEndOptions {
    CSolutionArguments solution;
    std::string strOutput; ///< empty for standard output
    std::string strW3 = "0.001:0.5";
    int nRows = 20;
};

/// What the user asks `flory tricritical` for, as written.
struct CTricriticalOptions {
    CSolutionArguments solution;
    std::string strOutput;
};

void DeclareCriticalEndOptions(CLI::App& command, CCriticalEndOptions& options);
void DeclareTricriticalOptions(CLI::App& command, CTricriticalOptions& options);

// Both throw CException or std::invalid_argument, whose what() is one line for the user, and CAborted when
// they are; no file is left behind then.

void RunCriticalEnd(const CCriticalEndOptions& options);
void RunTricritical(const CTricriticalOptions& options);

} // namespace flory
