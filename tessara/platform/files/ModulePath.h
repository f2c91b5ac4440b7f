#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

struct HINSTANCE_TAG;
using HINSTANCE = HINSTANCE_TAG*;
using HMODULE = HINSTANCE; ///< null is the running program; there are no others

/// Writes the full path of the program's executable, zero-terminated, into a buffer of nSize bytes. Returns
/// the path's length; nSize when the path was cut to fit, 0 when it is not known.
TESSARA_API DWORD GetModuleFileName(HMODULE hModule, char* pszFileName, DWORD nSize);
