#include "tessara/platform/files/settings/ProfileFile.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/Text.h"
#include "tessara/platform/files/SharedFile.h"
#include "tessara/platform/files/settings/ProfileText.h"

using namespace tessara;

namespace {

bool CanBeSection(std::string_view str) {
    return str.find_first_of("]\n") == std::string_view::npos && Trimmed(str) == str;
}

bool CanBeKey(std::string_view str) {
    return !str.empty() && str.find_first_of("=\n") == std::string_view::npos && Trimmed(str) == str &&
           str[0] != ';' && str[0] != '[';
}

std::string ReadFile(const char* pszFileName) {
    try {
        return CSharedFile(pszFileName ? pszFileName : "").Read();
    } catch (const CFileException&) {
        return {};
    }
}

std::optional<std::string> ReadValue(const char* pszSection, const char* pszKey, const char* pszFileName) {
    std::string strBytes = ReadFile(pszFileName);
    return CProfileText(strBytes).Find(Trimmed(pszSection), Trimmed(pszKey));
}

/// A text without what cannot be in a buffer of C strings.
DWORD GiveText(std::string_view str, char* pszBuffer, DWORD nSize) {
    const std::string_view strCut = CutText(str.substr(0, str.find('\0')), nSize - 1);
    pszBuffer[strCut.copy(pszBuffer, strCut.size())] = '\0';
    return static_cast<DWORD>(strCut.size());
}

DWORD GiveNames(const std::vector<std::string>& names, char* pszBuffer, DWORD nSize) {
    DWORD nLength = 0;
    for (const std::string& strName : names) {
        if (nSize - nLength < strName.size() + 2) { // its zero and the last one
            break;
        }
        std::memcpy(pszBuffer + nLength, strName.c_str(), strName.size() + 1);
        nLength += static_cast<DWORD>(strName.size()) + 1;
    }
    std::memset(pszBuffer + nLength, 0, std::min<DWORD>(nSize - nLength, 2));
    return nLength > 0 ? nLength - 1 : 0;
}

DWORD GiveNamesOf(const char* pszSection, char* pszBuffer, DWORD nSize, const char* pszFileName) {
    std::string strBytes = ReadFile(pszFileName);
    const CProfileText text(strBytes);
    return GiveNames(pszSection ? text.Entries(Trimmed(pszSection)) : text.Sections(), pszBuffer, nSize);
}

void Change(CProfileText& text, const char* pszSection, const char* pszKey, const char* pszValue) {
    if (!pszKey) {
        text.RemoveSection(pszSection);
    } else if (!pszValue) {
        text.Remove(pszSection, pszKey);
    } else {
        text.SetAll(pszSection, {{pszKey, pszValue}});
    }
}

} // namespace

DWORD GetPrivateProfileString(const char* pszSection, const char* pszKey, const char* pszDefault,
                              char* pszBuffer, DWORD nSize, const char* pszFileName) {
    if (!pszBuffer || nSize == 0) {
        return 0;
    }
    return WithMemoryException([&] {
        if (!pszSection || !pszKey) {
            return GiveNamesOf(pszSection, pszBuffer, nSize, pszFileName);
        }
        const auto value = ReadValue(pszSection, pszKey, pszFileName);
        const std::string_view strDefault = pszDefault ? pszDefault : "";
        const std::size_t nDefault = strDefault.find_last_not_of(' ') + 1;
        return GiveText(value ? *value : strDefault.substr(0, nDefault), pszBuffer, nSize);
    });
}

UINT GetPrivateProfileInt(const char* pszSection, const char* pszKey, int nDefault, const char* pszFileName) {
    const auto value = WithMemoryException(
        [&] { return pszSection && pszKey ? ReadValue(pszSection, pszKey, pszFileName) : std::nullopt; });
    if (!value) {
        return static_cast<UINT>(nDefault);
    }
    return ProfileNumber(*value);
}

BOOL WritePrivateProfileString(const char* pszSection, const char* pszKey, const char* pszValue,
                               const char* pszFileName) {
    if (!pszFileName || !pszSection || !CanBeSection(pszSection) || (pszKey && !CanBeKey(pszKey)) ||
        (pszKey && pszValue && std::strchr(pszValue, '\n'))) {
        return FALSE;
    }
    try {
        WithMemoryException([&] {
            CSharedFile(pszFileName).Update([&](std::string& strBytes) {
                CProfileText text(strBytes);
                Change(text, pszSection, pszKey, pszValue);
            });
        });
        return TRUE;
    } catch (const CFileException&) {
        return FALSE;
    }
}
