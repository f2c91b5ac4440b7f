#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// What each target defines. Driver.cpp calls it: with libFuzzer's mutations, or, built by another compiler,
// with a number of simple ones.

/// Whole inputs to begin with.
std::vector<std::string> Seeds();

/// Aborts where the library does not keep a promise about this input; returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize);

/// What holds for every input.
void Demand(bool bTrue, const char* pszWhat);
