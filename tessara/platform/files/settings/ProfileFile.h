#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

// Private profile files: INI files of a program's own, under the framework's names; docs/settings.md says
// what they look like.
//
// Names of sections and keys compare without regard to the case of ASCII letters. Values are bytes as they
// stand, without the blanks around them and one pair of quotes, single or double, around the rest. What is
// written changes its own line alone, is durable, and never lost to another program or thread that writes by
// these functions. A relative path is relative to the working directory. Any thread.

/// Gives the value of a key, or the default (null for none) without blanks at its end, in a buffer of nSize
/// bytes, and returns its length without the zero. What does not fit is cut, but not inside a UTF-8
/// character.
///
/// A null key gives the names of the section's keys, a null section those of the sections: each with its
/// zero, and one more zero after the last. Names that do not fit are left out.
TESSARA_API DWORD GetPrivateProfileString(const char* pszSection, const char* pszKey, const char* pszDefault,
                                          char* pszBuffer, DWORD nSize, const char* pszFileName);

/// The number that a value begins with, 0 where it begins with none; nDefault where there is no value.
/// Numbers beyond 32 bits wrap round.
TESSARA_API UINT GetPrivateProfileInt(const char* pszSection, const char* pszKey, int nDefault,
                                      const char* pszFileName);

/// Writes a value; a null value removes the key, a null key the section with all its keys. A value that would
/// read back otherwise, because of blanks or quotes at its ends, gets quotes. Returns 0 for names and values
/// that such a file cannot hold (line ends; '=' in a key, ']' in a section; nothing, blanks around, or ';' or
/// '[' in front of a key) and for a file that cannot be written.
TESSARA_API BOOL WritePrivateProfileString(const char* pszSection, const char* pszKey, const char* pszValue,
                                           const char* pszFileName);
