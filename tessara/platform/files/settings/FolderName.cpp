#include "tessara/platform/files/settings/FolderName.h"

#include <algorithm>
#include <charconv>

#include "tessara/platform/base/Text.h"

namespace tessara {

namespace {

constexpr std::string_view HEXADECIMAL = "0123456789ABCDEF";

bool IsEscaped(std::string_view strCharacter, bool bFirst) {
    const auto nByte = static_cast<unsigned char>(strCharacter[0]);
    return nByte < 0x20 || nByte == 0x7F || nByte == '/' || nByte == '%' || (bFirst && nByte == '.') ||
           (nByte >= 0x80 && strCharacter.size() == 1);
}

} // namespace

std::string FolderNameOf(std::string_view strKey) {
    std::string strFolder;
    while (!strKey.empty()) {
        const std::string_view strCharacter = strKey.substr(0, CharacterLength(strKey));
        if (IsEscaped(strCharacter, strFolder.empty())) {
            const auto nByte = static_cast<unsigned char>(strCharacter[0]);
            ((strFolder += '%') += HEXADECIMAL[nByte >> 4]) += HEXADECIMAL[nByte & 0xF];
        } else {
            strFolder += strCharacter;
        }
        strKey.remove_prefix(strCharacter.size());
    }
    return strFolder;
}

std::optional<std::string> KeyOfFolder(std::string_view strFolder) {
    std::string strKey;
    for (std::string_view strRest = strFolder; !strRest.empty();) {
        unsigned nByte = static_cast<unsigned char>(strRest[0]);
        if (strRest[0] == '%') {
            const std::string_view strDigits = strRest.substr(1, 2);
            std::from_chars(strDigits.data(), strDigits.data() + strDigits.size(), nByte, 16);
        }
        strKey += static_cast<char>(nByte);
        strRest.remove_prefix(std::min<std::size_t>(strRest[0] == '%' ? 3 : 1, strRest.size()));
    }
    return FolderNameOf(strKey) == strFolder ? std::optional(strKey) : std::nullopt;
}

} // namespace tessara
