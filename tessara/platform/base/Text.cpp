#include "tessara/platform/base/Text.h"

#include <algorithm>
#include <array>

#include "tessara/platform/base/Exception.h"

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

/// Windows-1252 from 0x80 to 0x9F; elsewhere it is Latin-1. Zero marks the five undefined bytes.
constexpr std::array<char16_t, 32> WINDOWS_1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

struct CDecoded {
    std::size_t nBytes; ///< 0: no well-formed sequence starts here
    char32_t chCharacter;
};

constexpr CDecoded NOT_UTF8 = {0, 0};

unsigned char ByteAt(std::string_view str, std::size_t nIndex) {
    return static_cast<unsigned char>(str[nIndex]);
}

std::size_t SequenceLength(unsigned char nLead) {
    if (nLead < 0x80) {
        return 1;
    }
    if (nLead < 0xC2 || nLead > 0xF4) {
        return 0;
    }
    return nLead < 0xE0 ? 2 : nLead < 0xF0 ? 3 : 4;
}

bool IsCharacter(char32_t ch) {
    return ch <= 0x10FFFF && (ch < 0xD800 || ch > 0xDFFF);
}

/// The sequence at the front of a string that is not empty.
CDecoded DecodeSequence(std::string_view str) {
    constexpr std::array<char32_t, 5> smallestOfLength = {0, 0, 0x80, 0x800, 0x10000};
    const std::size_t nLength = SequenceLength(ByteAt(str, 0));
    if (nLength == 0 || nLength > str.size()) {
        return NOT_UTF8;
    }
    char32_t ch = nLength == 1 ? ByteAt(str, 0) : ByteAt(str, 0) & (0x7FU >> nLength);
    for (std::size_t i = 1; i < nLength; ++i) {
        if ((ByteAt(str, i) & 0xC0U) != 0x80U) {
            return NOT_UTF8;
        }
        ch = (ch << 6) | (ByteAt(str, i) & 0x3FU);
    }
    return ch >= smallestOfLength[nLength] && IsCharacter(ch) ? CDecoded{nLength, ch} : NOT_UTF8;
}

char32_t DecodeWindows1252(unsigned char nByte) {
    if (nByte < 0x80 || nByte > 0x9F) {
        return nByte;
    }
    const char32_t ch = WINDOWS_1252[nByte - 0x80U];
    return ch ? ch : REPLACEMENT;
}

char EncodeWindows1252(char32_t ch) {
    if (ch < 0x80 || (ch > 0x9F && ch <= 0xFF)) {
        return static_cast<char>(ch);
    }
    const auto it = std::find(WINDOWS_1252.begin(), WINDOWS_1252.end(), ch);
    return ch && it != WINDOWS_1252.end() ? static_cast<char>(0x80 + (it - WINDOWS_1252.begin())) : '?';
}

void AppendUtf8(std::string& str, char32_t ch) {
    if (ch < 0x80) {
        str += static_cast<char>(ch);
        return;
    }
    const unsigned nTrailing = ch < 0x800 ? 1 : ch < 0x10000 ? 2 : 3;
    constexpr std::array<unsigned, 4> leadMark = {0, 0xC0, 0xE0, 0xF0};
    str += static_cast<char>(leadMark[nTrailing] | (ch >> (6 * nTrailing)));
    for (unsigned i = nTrailing; i-- > 0;) {
        str += static_cast<char>(0x80U | (ch >> (6 * i) & 0x3FU));
    }
}

} // namespace

namespace tessara {

bool IsValidUtf8(std::string_view strBytes) {
    while (!strBytes.empty()) {
        const std::size_t nLength = DecodeSequence(strBytes).nBytes;
        if (nLength == 0) {
            return false;
        }
        strBytes.remove_prefix(nLength);
    }
    return true;
}

std::u32string DecodeText(std::string_view strBytes) {
    return WithMemoryException([&] {
        std::u32string strCharacters;
        strCharacters.reserve(strBytes.size());
        if (!IsValidUtf8(strBytes)) {
            for (const char ch : strBytes) {
                strCharacters += DecodeWindows1252(static_cast<unsigned char>(ch));
            }
            return strCharacters;
        }
        while (!strBytes.empty()) {
            const CDecoded decoded = DecodeSequence(strBytes);
            strCharacters += decoded.chCharacter;
            strBytes.remove_prefix(decoded.nBytes);
        }
        return strCharacters;
    });
}

std::string EncodeUtf8(std::u32string_view strCharacters) {
    return WithMemoryException([&] {
        std::string strBytes;
        strBytes.reserve(strCharacters.size());
        for (const char32_t ch : strCharacters) {
            AppendUtf8(strBytes, IsCharacter(ch) ? ch : REPLACEMENT);
        }
        return strBytes;
    });
}

std::string EncodeWindows1252(std::u32string_view strCharacters) {
    return WithMemoryException([&] {
        std::string strBytes(strCharacters.size(), '?');
        std::transform(strCharacters.begin(), strCharacters.end(), strBytes.begin(),
                       [](char32_t ch) { return ::EncodeWindows1252(ch); });
        return strBytes;
    });
}

std::size_t CharacterLength(std::string_view strBytes) {
    return strBytes.empty() ? 0 : std::max<std::size_t>(1, DecodeSequence(strBytes).nBytes);
}

std::string_view CutText(std::string_view strBytes, std::size_t nMaxBytes) {
    if (strBytes.size() <= nMaxBytes) {
        return strBytes;
    }
    // Only a sequence that starts in the last three bytes kept can reach beyond them.
    for (std::size_t nBack = 1; nBack <= std::min<std::size_t>(3, nMaxBytes); ++nBack) {
        if (CharacterLength(strBytes.substr(nMaxBytes - nBack)) > nBack) {
            return strBytes.substr(0, nMaxBytes - nBack);
        }
    }
    return strBytes.substr(0, nMaxBytes);
}

} // namespace tessara
