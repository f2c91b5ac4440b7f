#pragma once

#include "tessara/platform/files/settings/Registry.h"

/// A key of the user's settings (see Registry.h), open or not. Operations return a status, 0 for success; on
/// a closed one they give ERROR_INVALID_HANDLE. An open key is closed with the object. A copy means the same
/// open key, which the first of the two to end closes for both.
///
///     CRegKey key;
///     char path[260];
///     unsigned long nCount = sizeof path;
///     if (key.Open(HKEY_CURRENT_USER, "My Institute\\Archive", KEY_READ) == ERROR_SUCCESS &&
///         key.QueryValue(path, "LastBaseVariant", &nCount) == ERROR_SUCCESS) {
///         OpenFile(path);
///     }
class TESSARA_API CRegKey {
public:
    CRegKey() = default;
    CRegKey(const CRegKey&) = default;
    ~CRegKey();
    /// Copies the handle; the key held so far is not closed.
    CRegKey& operator=(const CRegKey& src);

    operator HKEY() const { return m_hKey; }
    /// Holds an open key; the one held so far is not closed.
    void Attach(HKEY hKey);
    /// Gives the open key to the caller, who closes it.
    HKEY Detach();

    /// Opens a key below another and closes the one held so far. On failure that one stays.
    long Open(HKEY hKeyParent, const char* lpszKeyName, unsigned long samDesired = KEY_ALL_ACCESS);
    /// The same, and makes the key where there is none.
    long Create(HKEY hKeyParent, const char* lpszKeyName, char* lpszClass = nullptr,
                unsigned long dwOptions = REG_OPTION_NON_VOLATILE, unsigned long samDesired = KEY_ALL_ACCESS,
                SECURITY_ATTRIBUTES* lpSecAttr = nullptr, unsigned long* lpdwDisposition = nullptr);
    /// Closing a closed key is a success.
    long Close();

    /// ERROR_UNSUPPORTED_TYPE where the value is no number.
    long QueryValue(unsigned long& dwValue, const char* lpszValueName);
    long QueryValue(DWORD& dwValue, const char* lpszValueName);
    /// Reads a string into a buffer of *pdwCount bytes, which then is the size of the string with its zero,
    /// also where the buffer is too small for it (ERROR_MORE_DATA). ERROR_UNSUPPORTED_TYPE where the value is
    /// a number. On failure the buffer is left alone.
    long QueryValue(char* szValue, const char* lpszValueName, unsigned long* pdwCount);
    long QueryValue(char* szValue, const char* lpszValueName, DWORD* pdwCount);

    /// Only the lower 32 bits count.
    long SetValue(unsigned long dwValue, const char* lpszValueName);
    /// A null string is written as an empty one, here and below.
    long SetValue(const char* lpszValue, const char* lpszValueName = nullptr);
    /// Makes the key below hKeyParent where there is none.
    static long SetValue(HKEY hKeyParent, const char* lpszKeyName, const char* lpszValue,
                         const char* lpszValueName = nullptr);
    long SetKeyValue(const char* lpszKeyName, const char* lpszValue, const char* lpszValueName = nullptr);

    /// A key that has subkeys is refused.
    long DeleteSubKey(const char* lpszSubKey);
    long DeleteValue(const char* lpszValue);
    /// Deletes a key below this one with all that is below it; stops at the first failure. No name is
    /// refused.
    long RecurseDeleteKey(const char* lpszKey);

    HKEY m_hKey = nullptr; ///< null while closed
};
