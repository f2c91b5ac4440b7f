#pragma once

#include <cstdint>

// The framework's names for plain types, with the widths that file formats and records rely on.

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using UINT = unsigned int;
using BOOL = int; ///< zero is false, anything else is true
using LPCTSTR = const char*;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif
