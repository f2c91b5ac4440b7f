#include "tessara/platform/files/settings/ProfileFile.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/Text.h"
#include "tessara/platform/files/SharedFile.h"
#include "tessara/platform/files/settings/IniText.h"

using namespace tessara;

namespace {

/// Such files as other programs write them too, without escapes.
class CProfileSyntax : public CIniSyntax {
public:
    std::optional<std::string> ReadHeader(std::string_view strLine) const override {
        const std::size_t nEnd = strLine.find(']');
        return nEnd == std::string_view::npos
                   ? std::nullopt
                   : std::optional(std::string(Trimmed(strLine.substr(1, nEnd - 1))));
    }
    std::optional<INIENTRY> ReadEntry(std::string_view strLine) const override {
        const std::size_t nEqual = strLine.find('=');
        if (nEqual == std::string_view::npos || strLine.starts_with(';') || strLine.starts_with('=')) {
            return std::nullopt;
        }
        return INIENTRY{std::string(Trimmed(strLine.substr(0, nEqual))), Trimmed(strLine.substr(nEqual + 1))};
    }
    std::string WriteHeader(std::string_view strSection) const override {
        return "[" + std::string(strSection) + "]";
    }
    std::string WriteName(std::string_view strName) const override { return std::string(strName); }
};

const CProfileSyntax SYNTAX;

bool IsQuoted(std::string_view str) {
    return str.size() >= 2 && (str.front() == '"' || str.front() == '\'') && str.front() == str.back();
}

std::string_view WithoutQuotes(std::string_view str) {
    return IsQuoted(str) ? str.substr(1, str.size() - 2) : str;
}

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
    const auto value = CIniText(SYNTAX, strBytes).Find(Trimmed(pszSection), Trimmed(pszKey));
    return value ? std::optional(std::string(WithoutQuotes(*value))) : std::nullopt;
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
    const CIniText text(SYNTAX, strBytes);
    return GiveNames(pszSection ? text.Entries(Trimmed(pszSection)) : text.Sections(), pszBuffer, nSize);
}

void Change(CIniText& text, const char* pszSection, const char* pszKey, const char* pszValue) {
    if (!pszKey) {
        text.RemoveSection(pszSection);
    } else if (!pszValue) {
        text.Remove(pszSection, pszKey);
    } else {
        const bool bPlain = Trimmed(pszValue) == pszValue && !IsQuoted(pszValue);
        text.Set(pszSection, pszKey, bPlain ? pszValue : "\"" + std::string(pszValue) + "\"");
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
    std::string_view str = *value;
    const bool bNegative = str.starts_with('-');
    if (bNegative || str.starts_with('+')) {
        str.remove_prefix(1);
    }
    UINT nValue = 0;
    for (; !str.empty() && str[0] >= '0' && str[0] <= '9'; str.remove_prefix(1)) {
        nValue = nValue * 10 + static_cast<UINT>(str[0] - '0');
    }
    return bNegative ? 0 - nValue : nValue;
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
                CIniText text(SYNTAX, strBytes);
                Change(text, pszSection, pszKey, pszValue);
            });
        });
        return TRUE;
    } catch (const CFileException&) {
        return FALSE;
    }
}
