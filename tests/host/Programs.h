#pragma once

#include <string>
#include <vector>

#include "tests/cli/Folder.h"
#include "tests/support/Process.h"

using VARIABLES = std::map<std::string, std::optional<std::string>>;

/// Runs programs in a folder for temporary files of their own, in an environment that speaks of no display
/// and quiets nothing, but for the variables given.
class CPrograms {
public:
    PROCESSRESULT Run(const std::vector<std::string>& command, const VARIABLES& environment) const;
    /// The host program with its actions between blanks: what it printed, then what stands on standard error.
    std::string Host(const std::string& strActions, const VARIABLES& environment) const;

    /// For what a program draws and reads.
    const CFolder m_files;
    /// What programs leave behind.
    const CFolder m_temporary;
};
