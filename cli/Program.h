#pragma once

#include <functional>

namespace tessara {

/// The exit code for input that cannot be used.
constexpr int EXIT_BAD_INPUT = 2;

/// Writes "program: message" as one line on standard error.
void Complain(const char* pszProgram, const char* pszMessage);

/// Runs a program that draws without a display and gives its exit code; an exception is one line and
/// EXIT_BAD_INPUT.
int RunProgram(const char* pszProgram, const std::function<int()>& fnRun);

} // namespace tessara
