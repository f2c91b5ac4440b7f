#include "tessara/platform/files/settings/RegKey.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr DWORD NAME_BYTES = 256; ///< the longest name of a key and its zero

} // namespace

CRegKey::~CRegKey() {
    Close();
}

CRegKey& CRegKey::operator=(const CRegKey& src) = default;

void CRegKey::Attach(HKEY hKey) {
    m_hKey = hKey;
}

HKEY CRegKey::Detach() {
    return std::exchange(m_hKey, nullptr);
}

long CRegKey::Open(HKEY hKeyParent, const char* lpszKeyName, unsigned long samDesired) {
    HKEY hKey = nullptr;
    const LONG nStatus = RegOpenKeyEx(hKeyParent, lpszKeyName, 0, static_cast<DWORD>(samDesired), &hKey);
    if (nStatus == ERROR_SUCCESS) {
        Close();
        m_hKey = hKey;
    }
    return nStatus;
}

long CRegKey::Create(HKEY hKeyParent, const char* lpszKeyName, char* lpszClass, unsigned long dwOptions,
                     unsigned long samDesired, SECURITY_ATTRIBUTES* lpSecAttr,
                     unsigned long* lpdwDisposition) {
    HKEY hKey = nullptr;
    DWORD dwDisposition = 0;
    const LONG nStatus = RegCreateKeyEx(hKeyParent, lpszKeyName, 0, lpszClass, static_cast<DWORD>(dwOptions),
                                        static_cast<DWORD>(samDesired), lpSecAttr, &hKey, &dwDisposition);
    if (nStatus == ERROR_SUCCESS) {
        if (lpdwDisposition) {
            *lpdwDisposition = dwDisposition;
        }
        Close();
        m_hKey = hKey;
    }
    return nStatus;
}

long CRegKey::Close() {
    const HKEY hKey = Detach();
    return hKey ? RegCloseKey(hKey) : ERROR_SUCCESS;
}

long CRegKey::QueryValue(DWORD& dwValue, const char* lpszValueName) {
    DWORD nValue = 0;
    DWORD dwType = REG_NONE;
    DWORD nCount = sizeof nValue;
    const LONG nStatus =
        RegQueryValueEx(m_hKey, lpszValueName, nullptr, &dwType, reinterpret_cast<BYTE*>(&nValue), &nCount);
    if ((nStatus == ERROR_SUCCESS || nStatus == ERROR_MORE_DATA) && dwType != REG_DWORD) {
        return ERROR_UNSUPPORTED_TYPE;
    }
    if (nStatus == ERROR_SUCCESS) {
        dwValue = nValue;
    }
    return nStatus;
}

long CRegKey::QueryValue(unsigned long& dwValue, const char* lpszValueName) {
    DWORD nValue = 0;
    const long nStatus = QueryValue(nValue, lpszValueName);
    if (nStatus == ERROR_SUCCESS) {
        dwValue = nValue;
    }
    return nStatus;
}

/// A number would leave bytes without an end in the caller's buffer, so the value comes into one of our own
/// first.
long CRegKey::QueryValue(char* szValue, const char* lpszValueName, DWORD* pdwCount) {
    if (!pdwCount) {
        return ERROR_INVALID_PARAMETER;
    }
    DWORD dwType = REG_NONE;
    DWORD nCount = 0;
    LONG nStatus = RegQueryValueEx(m_hKey, lpszValueName, nullptr, &dwType, nullptr, &nCount);
    std::vector<BYTE> value(nStatus == ERROR_SUCCESS ? nCount : 0);
    if (!value.empty()) {
        nStatus = RegQueryValueEx(m_hKey, lpszValueName, nullptr, &dwType, value.data(), &nCount);
    }
    if (nStatus != ERROR_SUCCESS || dwType != REG_SZ) {
        return nStatus != ERROR_SUCCESS ? nStatus : static_cast<LONG>(ERROR_UNSUPPORTED_TYPE);
    }
    const DWORD nRoom = std::exchange(*pdwCount, nCount);
    if (szValue && nCount > nRoom) {
        return ERROR_MORE_DATA;
    }
    if (szValue) {
        std::memcpy(szValue, value.data(), nCount);
    }
    return ERROR_SUCCESS;
}

long CRegKey::QueryValue(char* szValue, const char* lpszValueName, unsigned long* pdwCount) {
    if (!pdwCount) {
        return ERROR_INVALID_PARAMETER;
    }
    auto nCount = static_cast<DWORD>(std::min<unsigned long>(*pdwCount, UINT32_MAX));
    const long nStatus = QueryValue(szValue, lpszValueName, &nCount);
    *pdwCount = nCount;
    return nStatus;
}

long CRegKey::SetValue(unsigned long dwValue, const char* lpszValueName) {
    const auto nValue = static_cast<DWORD>(dwValue);
    return RegSetValueEx(m_hKey, lpszValueName, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&nValue),
                         sizeof nValue);
}

long CRegKey::SetValue(const char* lpszValue, const char* lpszValueName) {
    const char* const pszValue = lpszValue ? lpszValue : "";
    return RegSetValueEx(m_hKey, lpszValueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(pszValue),
                         static_cast<DWORD>(std::strlen(pszValue) + 1));
}

long CRegKey::SetValue(HKEY hKeyParent, const char* lpszKeyName, const char* lpszValue,
                       const char* lpszValueName) {
    CRegKey key;
    const long nStatus = key.Create(hKeyParent, lpszKeyName);
    return nStatus == ERROR_SUCCESS ? key.SetValue(lpszValue, lpszValueName) : nStatus;
}

long CRegKey::SetKeyValue(const char* lpszKeyName, const char* lpszValue, const char* lpszValueName) {
    return SetValue(m_hKey, lpszKeyName, lpszValue, lpszValueName);
}

long CRegKey::DeleteSubKey(const char* lpszSubKey) {
    return RegDeleteKey(m_hKey, lpszSubKey);
}

long CRegKey::DeleteValue(const char* lpszValue) {
    return RegDeleteValue(m_hKey, lpszValue);
}

long CRegKey::RecurseDeleteKey(const char* lpszKey) {
    if (!lpszKey || !*lpszKey) {
        return ERROR_INVALID_PARAMETER; // not this key itself
    }
    CRegKey key;
    if (const long nStatus = key.Open(m_hKey, lpszKey)) {
        return nStatus;
    }
    std::array<char, NAME_BYTES> name;
    for (;;) {
        DWORD nLength = NAME_BYTES;
        // The first: the others move up when it is deleted.
        const LONG nStatus = RegEnumKeyEx(key, 0, name.data(), &nLength, nullptr, nullptr, nullptr, nullptr);
        if (nStatus == ERROR_NO_MORE_ITEMS) {
            break;
        }
        const long nDeleted = nStatus == ERROR_SUCCESS ? key.RecurseDeleteKey(name.data()) : nStatus;
        if (nDeleted != ERROR_SUCCESS) {
            return nDeleted;
        }
    }
    key.Close();
    return DeleteSubKey(lpszKey);
}
