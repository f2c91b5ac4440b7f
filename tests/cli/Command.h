#pragma once

#include "tests/support/Process.h"

using COMMANDRESULT = PROCESSRESULT;

/// Runs the built command with these arguments, with an environment that has no display, as a user to whom
/// permissions apply. A limit above 0 is the number of bytes that the command can write to a file.
COMMANDRESULT RunCommand(const std::vector<std::string>& arguments, unsigned nMaxFileBytes = 0);
