#include "tessara/platform/files/settings/SettingsSyntax.h"

#include <algorithm>
#include <charconv>
#include <climits>

#include "tessara/platform/base/Text.h"

namespace tessara {

namespace {

constexpr std::string_view HEXADECIMAL = "0123456789ABCDEF";
constexpr std::string_view ESCAPED = "\\\"\n\r\t";
constexpr std::string_view ESCAPES = "\\\"nrt"; ///< what stands for each of these

bool IsControl(char ch) {
    return static_cast<unsigned char>(ch) < 0x20 || ch == 0x7F;
}

/// A byte that starts no character of UTF-8 is escaped, for an editor would replace it.
void AppendCharacter(std::string& strQuoted, std::string_view strCharacter) {
    const char ch = strCharacter[0];
    if (const std::size_t nEscape = ESCAPED.find(ch); nEscape != std::string_view::npos) {
        (strQuoted += '\\') += ESCAPES[nEscape];
    } else if (IsControl(ch) || (strCharacter.size() == 1 && (ch & 0x80) != 0)) {
        const auto nByte = static_cast<unsigned char>(ch);
        ((strQuoted += "\\x") += HEXADECIMAL[nByte >> 4]) += HEXADECIMAL[nByte & 0xF];
    } else {
        strQuoted += strCharacter;
    }
}

std::string Quoted(std::string_view str) {
    std::string strQuoted = "\"";
    while (!str.empty()) {
        const std::size_t nLength = CharacterLength(str);
        AppendCharacter(strQuoted, str.substr(0, nLength));
        str.remove_prefix(nLength);
    }
    return strQuoted += '"';
}

/// Takes what follows a backslash off the front; false where that is no escape.
bool ReadEscape(std::string_view& str, std::string& strText) {
    if (str.starts_with('x')) {
        unsigned nByte = 0;
        const std::string_view strDigits = str.substr(1, 2);
        const char* const pEnd = strDigits.data() + strDigits.size();
        const auto [pStop, error] = std::from_chars(strDigits.data(), pEnd, nByte, 16);
        if (strDigits.size() < 2 || error != std::errc() || pStop != pEnd) {
            return false;
        }
        strText += static_cast<char>(nByte);
        str.remove_prefix(3);
        return true;
    }
    const std::size_t nEscape = str.empty() ? std::string_view::npos : ESCAPES.find(str[0]);
    if (nEscape == std::string_view::npos) {
        return false;
    }
    strText += ESCAPED[nEscape];
    str.remove_prefix(1);
    return true;
}

/// Takes a text in quotes off the front; nothing where there is none.
std::optional<std::string> TakeQuoted(std::string_view& str) {
    if (!str.starts_with('"')) {
        return std::nullopt;
    }
    std::string strText;
    for (std::string_view strRest = str.substr(1); !strRest.empty();) {
        const char ch = strRest[0];
        strRest.remove_prefix(1);
        if (ch == '"') {
            str = strRest;
            return strText;
        }
        if (ch != '\\') {
            strText += ch;
        } else if (!ReadEscape(strRest, strText)) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<std::string> ReadQuoted(std::string_view str) {
    auto text = TakeQuoted(str);
    return str.empty() ? text : std::nullopt;
}

/// Whether a name reads as itself without quotes, where none of some characters can stand.
bool CanStandBare(std::string_view strName, std::string_view strForbidden) {
    return !strName.empty() && Trimmed(strName) == strName && IsValidUtf8(strName) &&
           strName.find_first_of(strForbidden) == std::string_view::npos &&
           std::string_view(";#[\xEF").find(strName[0]) == std::string_view::npos && // U+FEFF would be a mark
           std::none_of(strName.begin(), strName.end(), IsControl);
}

} // namespace

const CSettingsSyntax& CSettingsSyntax::Get() {
    static const CSettingsSyntax s_syntax;
    return s_syntax;
}

std::optional<std::string> CSettingsSyntax::ReadHeader(std::string_view strLine) const {
    if (!strLine.starts_with('[') || !strLine.ends_with(']')) {
        return std::nullopt;
    }
    const std::string_view strName = Trimmed(strLine.substr(1, strLine.size() - 2));
    auto name = strName.starts_with('"') ? ReadQuoted(strName) : std::string(strName);
    return name && CSettingsText::IsPath(*name) ? name : std::nullopt;
}

std::optional<INIENTRY> CSettingsSyntax::ReadEntry(std::string_view strLine) const {
    if (strLine.starts_with(';') || strLine.starts_with('#')) {
        return std::nullopt;
    }
    std::string_view strRest = strLine;
    std::optional<std::string> name = TakeQuoted(strRest);
    if (!name && !strLine.starts_with('"')) {
        const std::size_t nEnd = strLine.find('=');
        name = nEnd == std::string_view::npos ? std::string_view() : Trimmed(strLine.substr(0, nEnd));
        strRest = nEnd == std::string_view::npos ? std::string_view() : strLine.substr(nEnd);
        name = name->empty() ? std::nullopt : name;
    }
    strRest = Trimmed(strRest);
    if (!name || !strRest.starts_with('=')) {
        return std::nullopt;
    }
    const std::string_view strValue = Trimmed(strRest.substr(1));
    return ReadValue(strValue) ? std::optional(INIENTRY{std::move(*name), strValue}) : std::nullopt;
}

std::string CSettingsSyntax::WriteHeader(std::string_view strSection) const {
    const bool bBare = strSection.empty() || CanStandBare(strSection, "]\"");
    return std::string(1, '[').append(bBare ? std::string(strSection) : Quoted(strSection)) + ']';
}

std::string CSettingsSyntax::WriteName(std::string_view strName) const {
    return CanStandBare(strName, "=\"") ? std::string(strName) : Quoted(strName);
}

std::optional<SETTING> CSettingsSyntax::ReadValue(std::string_view strValue) {
    if (strValue.starts_with('"')) {
        auto text = ReadQuoted(strValue);
        return text ? std::optional<SETTING>(std::move(*text)) : std::nullopt;
    }
    std::int64_t nValue = 0;
    const char* const pEnd = strValue.data() + strValue.size();
    const auto [pStop, error] = std::from_chars(strValue.data(), pEnd, nValue);
    const bool bNumber = error == std::errc() && pStop == pEnd && nValue >= INT32_MIN && nValue <= UINT32_MAX;
    return bNumber ? std::optional<SETTING>(static_cast<std::uint32_t>(nValue)) : std::nullopt;
}

std::string CSettingsSyntax::WriteValue(const SETTING& value) {
    if (const auto* const pText = std::get_if<std::string>(&value)) {
        return Quoted(*pText);
    }
    return std::to_string(static_cast<std::int32_t>(std::get<std::uint32_t>(value)));
}

} // namespace tessara
