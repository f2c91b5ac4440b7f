#pragma once

#include "tessara/platform/base/Api.h"

// The program's settings that are numbers: values of the key "registry key string\section" of the user's
// registry (Registry.h), where the registry key string is that of the program's CWinApp. Failures are silent,
// and so is a program without such a string. Any thread.

/// The number stored in a section under a name; dwDefault where there is none. Makes nothing.
TESSARA_API unsigned long ReadRegistryDword(const char* lpszSection, const char* lpszValueName,
                                            unsigned long dwDefault);

/// Stores a number; only its lower 32 bits count.
TESSARA_API void WriteRegistryDword(const char* lpszSection, const char* lpszValueName,
                                    unsigned long dwValue);
