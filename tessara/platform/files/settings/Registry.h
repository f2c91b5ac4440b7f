#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

// The user's settings as a registry: keys with subkeys and values, under the framework's names.
//
// A path is names with backslashes between them; a name has 1 to 255 bytes, a path at most 512 names. The
// names of values may be empty and have any bytes but zero. Names compare without regard to the case of ASCII
// letters and keep the case that they were made with. Values are strings (REG_SZ) and numbers of 32 bits
// (REG_DWORD). Where they lie, and in which form a person can edit them, is said in docs/settings.md: each
// key directly below HKEY_CURRENT_USER is a file, so that one itself has no values.
//
// All functions return a status, 0 (ERROR_SUCCESS) for success, and never show anything. What is written is
// durable and changed as a whole; several programs and threads may write at once and lose nothing. A handle
// stays a name: it means whatever has that path when it is used, and ERROR_KEY_DELETED is what it gives where
// that is nothing. Handles are not used again, so a handle that is closed twice does no harm
// (ERROR_INVALID_HANDLE). Any thread.

struct HKEY_TAG;
using HKEY = HKEY_TAG*; ///< an open key

/// The root of the user's settings; always open.
inline const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(0x80000001);

/// What may be done with an open key, combined with '|'.
enum KeyRights : DWORD {
    KEY_QUERY_VALUE = 0x0001,
    KEY_SET_VALUE = 0x0002,
    KEY_CREATE_SUB_KEY = 0x0004,
    KEY_ENUMERATE_SUB_KEYS = 0x0008,
    KEY_NOTIFY = 0x0010,      ///< accepted; nothing tells of changes
    KEY_CREATE_LINK = 0x0020, ///< accepted; there are no links
    KEY_READ = 0x20019,
    KEY_EXECUTE = 0x20019,
    KEY_WRITE = 0x20006,
    KEY_ALL_ACCESS = 0xF003F
};

/// The kinds of values.
enum ValueTypes : DWORD {
    REG_NONE = 0,
    REG_SZ = 1,   ///< bytes; a zero byte at their end is not stored and always read
    REG_DWORD = 4 ///< a number of 32 bits
};

enum KeyOptions : DWORD {
    REG_OPTION_NON_VOLATILE = 0,
    REG_OPTION_VOLATILE = 1 ///< accepted; the key outlives the session as any other
};

/// What RegCreateKeyEx has done.
enum KeyDispositions : DWORD { REG_CREATED_NEW_KEY = 1, REG_OPENED_EXISTING_KEY = 2 };

enum RegistryStatus : LONG {
    ERROR_SUCCESS = 0,
    ERROR_FILE_NOT_FOUND = 2, ///< no such key or value
    ERROR_ACCESS_DENIED =
        5, ///< the handle has no right to it, the file cannot be written, or a key has subkeys
    ERROR_INVALID_HANDLE = 6,
    ERROR_NOT_ENOUGH_MEMORY = 8,
    ERROR_WRITE_FAULT = 29,
    ERROR_SHARING_VIOLATION = 32, ///< another program has kept the file locked for long
    ERROR_NOT_SUPPORTED = 50,     ///< no kind of value that can be written
    ERROR_INVALID_PARAMETER = 87,
    ERROR_DISK_FULL = 112,
    ERROR_BAD_PATHNAME = 161,
    ERROR_MORE_DATA = 234, ///< the buffer is too small; its size says what is needed
    ERROR_NO_MORE_ITEMS = 259,
    ERROR_BADDB = 1009, ///< the file is no text that can be read (UTF-16)
    ERROR_KEY_DELETED = 1018,
    ERROR_UNSUPPORTED_TYPE = 1630 ///< the value has another type than the caller asks for
};

struct SECURITY_ATTRIBUTES;

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

/// Opens a key below another; an empty or null path is that key itself. *phkResult is left alone on failure.
TESSARA_API LONG RegOpenKeyEx(HKEY hKey, const char* pszSubKey, DWORD dwOptions, DWORD samDesired,
                              HKEY* phkResult);

/// Opens a key below another and makes it, and those between, where there is none. Class and security are not
/// used.
TESSARA_API LONG RegCreateKeyEx(HKEY hKey, const char* pszSubKey, DWORD dwReserved, char* pszClass,
                                DWORD dwOptions, DWORD samDesired, const SECURITY_ATTRIBUTES* pSecurity,
                                HKEY* phkResult, DWORD* pdwDisposition);

TESSARA_API LONG RegCloseKey(HKEY hKey);

/// Reads a value: its type, its bytes and their count, each where the pointer is not null. *pcbData is the
/// buffer's size before and the value's after, also when the buffer is too small or null.
TESSARA_API LONG RegQueryValueEx(HKEY hKey, const char* pszValueName, DWORD* pdwReserved, DWORD* pdwType,
                                 BYTE* pData, DWORD* pcbData);

/// Writes a value of type REG_SZ or, with 4 bytes, REG_DWORD.
TESSARA_API LONG RegSetValueEx(HKEY hKey, const char* pszValueName, DWORD dwReserved, DWORD dwType,
                               const BYTE* pData, DWORD cbData);

TESSARA_API LONG RegDeleteValue(HKEY hKey, const char* pszValueName);

/// Deletes a key below another, with its values; one that has subkeys is refused (ERROR_ACCESS_DENIED). The
/// key above it stays.
TESSARA_API LONG RegDeleteKey(HKEY hKey, const char* pszSubKey);

/// The name of the subkey of that index, in the order of the file. *pcchName is the buffer's size before,
/// with the zero, and the name's length after. A class is empty, a time zero.
TESSARA_API LONG RegEnumKeyEx(HKEY hKey, DWORD nIndex, char* pszName, DWORD* pcchName, DWORD* pdwReserved,
                              char* pszClass, DWORD* pcchClass, FILETIME* pLastWriteTime);

/// The same for values, and what RegQueryValueEx gives.
TESSARA_API LONG RegEnumValue(HKEY hKey, DWORD nIndex, char* pszValueName, DWORD* pcchValueName,
                              DWORD* pdwReserved, DWORD* pdwType, BYTE* pData, DWORD* pcbData);
