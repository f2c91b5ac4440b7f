#include "tessara/platform/files/settings/Registry.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/settings/KeyTable.h"
#include "tessara/platform/files/settings/SettingsStore.h"

using namespace tessara;

namespace {

LONG StatusOf(const CFileException& error) {
    switch (error.m_cause) {
    case CFileException::fileNotFound:
        return ERROR_FILE_NOT_FOUND;
    case CFileException::badPath:
        return ERROR_BAD_PATHNAME;
    case CFileException::accessDenied:
        return ERROR_ACCESS_DENIED;
    case CFileException::lockViolation:
        return ERROR_SHARING_VIOLATION;
    case CFileException::diskFull:
        return ERROR_DISK_FULL;
    case CFileException::invalidFile:
        return ERROR_BADDB;
    default:
        return ERROR_WRITE_FAULT;
    }
}

/// What an action returns, or the status of what it throws.
template <class ACTION>
LONG WithStatus(ACTION action) {
    try {
        return WithMemoryException(action);
    } catch (const CFileException& error) {
        return StatusOf(error);
    } catch (const CMemoryException&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    } catch (const std::exception&) {
        return ERROR_WRITE_FAULT; // whatever it was, a status is promised
    }
}

/// Lets an action work with the path of an open key that has all of some rights.
template <class ACTION>
LONG WithKey(HKEY hKey, DWORD nRights, ACTION action) {
    return WithStatus([&]() -> LONG {
        const auto key = CKeyTable::Get().Find(hKey);
        if (!key) {
            return ERROR_INVALID_HANDLE;
        }
        return (key->nRights & nRights) == nRights ? action(*key) : static_cast<LONG>(ERROR_ACCESS_DENIED);
    });
}

/// The path of a key below another; a backslash at its end means nothing.
std::string Join(const std::string& strPath, const char* pszSubKey) {
    std::string_view strSubKey = pszSubKey ? pszSubKey : "";
    if (strSubKey.ends_with('\\')) {
        strSubKey.remove_suffix(1);
    }
    if (strSubKey.starts_with('\\') || !CSettingsText::IsPath(strSubKey)) {
        AfxThrowFileException(CFileException::badPath, -1, pszSubKey);
    }
    const bool bBoth = !strPath.empty() && !strSubKey.empty();
    return strPath + (bBoth ? "\\" : "") + std::string(strSubKey);
}

bool Exists(const std::string& strPath) {
    bool bExists = strPath.empty();
    if (!bExists) {
        ReadSettings(strPath, [&](const CSettingsText& text, std::string_view strKey) {
            bExists = text.HasKey(strKey);
        });
    }
    return bExists;
}

/// Lets an action read or change an open key that may have been deleted. The root has no values.
template <class ACTION>
LONG ReadKey(const std::string& strPath, ACTION action) {
    LONG nStatus = ERROR_FILE_NOT_FOUND;
    if (!strPath.empty()) {
        ReadSettings(strPath, [&](const CSettingsText& text, std::string_view strKey) {
            nStatus = text.HasKey(strKey) ? action(text, strKey) : static_cast<LONG>(ERROR_KEY_DELETED);
        });
    }
    return nStatus;
}

template <class ACTION>
LONG ChangeKey(const std::string& strPath, ACTION action) {
    LONG nStatus = ERROR_ACCESS_DENIED;
    if (!strPath.empty()) {
        UpdateSettings(strPath, [&](CSettingsText& text, std::string_view strKey) {
            nStatus = text.HasKey(strKey) ? action(text, strKey) : static_cast<LONG>(ERROR_KEY_DELETED);
        });
    }
    return nStatus;
}

/// Gives bytes to a buffer as far as the caller asks for them.
LONG GiveData(const void* pBytes, std::size_t nBytes, BYTE* pData, DWORD* pcbData) {
    if (!pcbData) {
        return pData ? ERROR_INVALID_PARAMETER : ERROR_SUCCESS;
    }
    const DWORD nRoom = *pcbData;
    *pcbData = static_cast<DWORD>(nBytes);
    if (!pData) {
        return ERROR_SUCCESS;
    }
    if (nBytes > nRoom) {
        return ERROR_MORE_DATA;
    }
    std::memcpy(pData, pBytes, nBytes);
    return ERROR_SUCCESS;
}

LONG GiveValue(const SETTING& value, DWORD* pdwType, BYTE* pData, DWORD* pcbData) {
    const auto* const pText = std::get_if<std::string>(&value);
    if (pdwType) {
        *pdwType = pText ? REG_SZ : REG_DWORD;
    }
    return pText ? GiveData(pText->c_str(), pText->size() + 1, pData, pcbData)
                 : GiveData(std::get_if<std::uint32_t>(&value), sizeof(DWORD), pData, pcbData);
}

LONG GiveName(const std::string& strName, char* pszName, DWORD* pcchName) {
    if (!pszName || !pcchName) {
        return ERROR_INVALID_PARAMETER;
    }
    if (strName.size() >= *pcchName) {
        return ERROR_MORE_DATA;
    }
    std::memcpy(pszName, strName.c_str(), strName.size() + 1);
    *pcchName = static_cast<DWORD>(strName.size());
    return ERROR_SUCCESS;
}

/// The value that a caller's bytes are.
std::optional<SETTING> ToSetting(DWORD dwType, const BYTE* pData, DWORD cbData) {
    if (dwType == REG_DWORD && pData && cbData == sizeof(DWORD)) {
        DWORD nValue;
        std::memcpy(&nValue, pData, sizeof nValue);
        return nValue;
    }
    if (dwType != REG_SZ || (!pData && cbData > 0)) {
        return std::nullopt;
    }
    std::string_view strText(reinterpret_cast<const char*>(pData), cbData);
    if (strText.ends_with('\0')) {
        strText.remove_suffix(1);
    }
    return std::string(strText);
}

std::vector<std::string> Subkeys(const std::string& strPath) {
    if (strPath.empty()) {
        return TopKeys();
    }
    std::vector<std::string> names;
    ReadSettings(strPath,
                 [&](const CSettingsText& text, std::string_view strKey) { names = text.Subkeys(strKey); });
    return names;
}

} // namespace

LONG RegOpenKeyEx(HKEY hKey, const char* pszSubKey, DWORD, DWORD samDesired, HKEY* phkResult) {
    return WithKey(hKey, 0, [&](const OPENKEY& key) -> LONG {
        if (!phkResult) {
            return ERROR_INVALID_PARAMETER;
        }
        const std::string strPath = Join(key.strPath, pszSubKey);
        if (!Exists(strPath)) {
            return ERROR_FILE_NOT_FOUND;
        }
        *phkResult = CKeyTable::Get().Add({strPath, samDesired});
        return ERROR_SUCCESS;
    });
}

LONG RegCreateKeyEx(HKEY hKey, const char* pszSubKey, DWORD, char*, DWORD, DWORD samDesired,
                    const SECURITY_ATTRIBUTES*, HKEY* phkResult, DWORD* pdwDisposition) {
    return WithKey(hKey, 0, [&](const OPENKEY& key) -> LONG {
        if (!phkResult) {
            return ERROR_INVALID_PARAMETER;
        }
        const std::string strPath = Join(key.strPath, pszSubKey);
        bool bNew = !Exists(strPath);
        if (bNew && !(key.nRights & KEY_CREATE_SUB_KEY)) {
            return ERROR_ACCESS_DENIED;
        }
        if (bNew) {
            UpdateSettings(strPath, [&](CSettingsText& text, std::string_view strKey) {
                bNew = !text.HasKey(strKey); // another program may have been faster
                text.AddKey(strKey);
            });
        }
        if (pdwDisposition) {
            *pdwDisposition = bNew ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
        }
        *phkResult = CKeyTable::Get().Add({strPath, samDesired});
        return ERROR_SUCCESS;
    });
}

LONG RegCloseKey(HKEY hKey) {
    return hKey == HKEY_CURRENT_USER || CKeyTable::Get().Remove(hKey) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

LONG RegQueryValueEx(HKEY hKey, const char* pszValueName, DWORD*, DWORD* pdwType, BYTE* pData,
                     DWORD* pcbData) {
    return WithKey(hKey, KEY_QUERY_VALUE, [&](const OPENKEY& key) {
        return ReadKey(key.strPath, [&](const CSettingsText& text, std::string_view strKey) -> LONG {
            const auto value = text.Read(strKey, pszValueName ? pszValueName : "");
            return value ? GiveValue(*value, pdwType, pData, pcbData)
                         : static_cast<LONG>(ERROR_FILE_NOT_FOUND);
        });
    });
}

LONG RegSetValueEx(HKEY hKey, const char* pszValueName, DWORD, DWORD dwType, const BYTE* pData,
                   DWORD cbData) {
    return WithKey(hKey, KEY_SET_VALUE, [&](const OPENKEY& key) -> LONG {
        if (dwType != REG_SZ && dwType != REG_DWORD) {
            return ERROR_NOT_SUPPORTED;
        }
        const auto value = ToSetting(dwType, pData, cbData);
        if (!value) {
            return ERROR_INVALID_PARAMETER;
        }
        return ChangeKey(key.strPath, [&](CSettingsText& text, std::string_view strKey) -> LONG {
            text.Write(strKey, pszValueName ? pszValueName : "", *value);
            return ERROR_SUCCESS;
        });
    });
}

LONG RegDeleteValue(HKEY hKey, const char* pszValueName) {
    return WithKey(hKey, KEY_SET_VALUE, [&](const OPENKEY& key) {
        return ChangeKey(key.strPath, [&](CSettingsText& text, std::string_view strKey) -> LONG {
            return text.Remove(strKey, pszValueName ? pszValueName : "") ? ERROR_SUCCESS
                                                                         : ERROR_FILE_NOT_FOUND;
        });
    });
}

LONG RegDeleteKey(HKEY hKey, const char* pszSubKey) {
    return WithKey(hKey, 0, [&](const OPENKEY& key) -> LONG {
        if (!pszSubKey) {
            return ERROR_INVALID_PARAMETER;
        }
        const std::string strPath = Join(key.strPath, pszSubKey);
        const LONG nStatus = ChangeKey(strPath, [](CSettingsText& text, std::string_view strKey) -> LONG {
            if (!text.Subkeys(strKey).empty()) {
                return ERROR_ACCESS_DENIED;
            }
            text.RemoveKey(strKey);
            return ERROR_SUCCESS;
        });
        return nStatus == ERROR_KEY_DELETED ? static_cast<LONG>(ERROR_FILE_NOT_FOUND) : nStatus;
    });
}

LONG RegEnumKeyEx(HKEY hKey, DWORD nIndex, char* pszName, DWORD* pcchName, DWORD*, char* pszClass,
                  DWORD* pcchClass, FILETIME* pLastWriteTime) {
    return WithKey(hKey, KEY_ENUMERATE_SUB_KEYS, [&](const OPENKEY& key) -> LONG {
        const auto names = Subkeys(key.strPath);
        if (nIndex >= names.size()) {
            return Exists(key.strPath) ? ERROR_NO_MORE_ITEMS : ERROR_KEY_DELETED;
        }
        if (pLastWriteTime) {
            *pLastWriteTime = {};
        }
        const LONG nStatus = GiveName(names[nIndex], pszName, pcchName);
        return nStatus == ERROR_SUCCESS && pszClass ? GiveName({}, pszClass, pcchClass) : nStatus;
    });
}

LONG RegEnumValue(HKEY hKey, DWORD nIndex, char* pszValueName, DWORD* pcchValueName, DWORD*, DWORD* pdwType,
                  BYTE* pData, DWORD* pcbData) {
    return WithKey(hKey, KEY_QUERY_VALUE, [&](const OPENKEY& key) -> LONG {
        if (key.strPath.empty()) {
            return ERROR_NO_MORE_ITEMS;
        }
        return ReadKey(key.strPath, [&](const CSettingsText& text, std::string_view strKey) -> LONG {
            const auto names = text.ValueNames(strKey);
            if (nIndex >= names.size()) {
                return ERROR_NO_MORE_ITEMS;
            }
            const LONG nStatus = GiveName(names[nIndex], pszValueName, pcchValueName);
            const auto value = text.Read(strKey, names[nIndex]);
            return nStatus == ERROR_SUCCESS && value ? GiveValue(*value, pdwType, pData, pcbData) : nStatus;
        });
    });
}
