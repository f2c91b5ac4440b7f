#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

/// What running a program gave.
struct PROCESSRESULT {
    int nExitCode; ///< -1 when a signal ended it
    std::string strOutput;
    std::string strErrors;
};

/// A program to run, and what is different around it from the test itself.
struct PROCESSSTART {
    std::vector<std::string> command; ///< the path, then the arguments
    /// Values of variables; without one the variable is not there.
    std::map<std::string, std::optional<std::string>> environment;
    unsigned nMaxFileBytes = 0; ///< the size of a file that it can write, where above 0
    bool bPlainUser = false;    ///< permissions bite, also where root runs the test
};

/// Runs it to its end; one that does not come to it is ended by a signal.
PROCESSRESULT RunProcess(const PROCESSSTART& start);
