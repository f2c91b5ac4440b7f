#include "tessara/platform/files/settings/OldSettings.h"

#include <algorithm>
#include <charconv>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/files/settings/IniText.h"
#include "tessara/platform/files/settings/SettingsStore.h"

namespace tessara {

namespace {

constexpr std::string_view BLANKS = " \t";
constexpr char32_t FIRST_HIGH_HALF = 0xD800;
constexpr char32_t FIRST_LOW_HALF = 0xDC00;
constexpr char32_t LAST_LOW_HALF = 0xDFFF;

/// A name that was a file's or a section's: without the characters that mean something in paths.
std::string ToName(const CString& strText) {
    std::string strName = EncodeUtf8(DecodeText(strText.View()));
    std::replace_if(
        strName.begin(), strName.end(),
        [](char ch) { return ch == '/' || ch == '\\' || static_cast<unsigned char>(ch) < 0x20; }, '_');
    return strName.empty() || strName == "." || strName == ".." ? "_" : strName;
}

/// Takes at most nMax digits off the front; nothing where there is none.
std::optional<unsigned> TakeNumber(std::string_view& str, std::size_t nMax, int nBase) {
    unsigned nNumber = 0;
    const char* const pBegin = str.data();
    const auto [pEnd, error] = std::from_chars(pBegin, pBegin + std::min(nMax, str.size()), nNumber, nBase);
    if (error != std::errc()) {
        return std::nullopt;
    }
    str.remove_prefix(static_cast<std::size_t>(pEnd - pBegin));
    return nNumber;
}

/// UTF-8 of characters that were halves of UTF-16 pairs.
std::string FromUtf16(std::u32string_view strHalves) {
    std::u32string strText;
    for (const char32_t ch : strHalves) {
        const bool bLow = ch >= FIRST_LOW_HALF && ch <= LAST_LOW_HALF;
        if (bLow && !strText.empty() && strText.back() >= FIRST_HIGH_HALF &&
            strText.back() < FIRST_LOW_HALF) {
            strText.back() = 0x10000 + ((strText.back() - FIRST_HIGH_HALF) << 10) + (ch - FIRST_LOW_HALF);
        } else {
            strText += ch;
        }
    }
    return EncodeUtf8(strText);
}

/// A key or group with its escapes undone; what is above a backslash in it belongs to the section.
std::string ReadName(std::string_view str) {
    std::u32string strText;
    while (!str.empty()) {
        std::string_view strRest = str.substr(1);
        const bool bLong = strRest.starts_with('U');
        strRest.remove_prefix(bLong ? 1 : 0);
        const auto code = str[0] == '%' ? TakeNumber(strRest, bLong ? 4 : 2, 16) : std::nullopt;
        const std::size_t nPlain = CharacterLength(str);
        strText += code ? std::u32string(1, *code) : DecodeText(str.substr(0, nPlain));
        str = code ? strRest : str.substr(nPlain);
    }
    return FromUtf16(strText);
}

/// An escape of a value, after its backslash; a letter that means nothing is itself.
std::string TakeEscape(std::string_view& str) {
    constexpr std::string_view LETTERS = "abfnrtv";
    constexpr std::string_view MEANINGS = "\a\b\f\n\r\t\v";
    if (str.empty()) {
        return {};
    }
    std::string_view strRest = str.substr(1);
    if (const auto code = str[0] == 'x' ? TakeNumber(strRest, std::string_view::npos, 16) : std::nullopt) {
        str = strRest;
        return EncodeUtf8(std::u32string(1, *code));
    }
    if (const auto code = TakeNumber(str, 3, 8)) {
        return EncodeUtf8(std::u32string(1, *code));
    }
    const std::size_t nLetter = LETTERS.find(str[0]);
    const char ch = nLetter == std::string_view::npos ? str[0] : MEANINGS[nLetter];
    str = strRest;
    return std::string(1, ch);
}

/// The items of a value between its commas, without quotes and escapes.
std::vector<std::string> ReadItems(std::string_view str) {
    std::vector<std::string> items(1);
    std::size_t nKept = 0; ///< of an item, what blanks at its end do not belong to
    for (bool bQuoted = false; !str.empty();) {
        const char ch = str[0];
        str.remove_prefix(1);
        if (ch == '\\') {
            items.back() += TakeEscape(str);
            nKept = items.back().size();
        } else if (ch == '"') {
            bQuoted = !bQuoted;
            nKept = items.back().size();
        } else if (ch == ',' && !bQuoted) {
            items.back().resize(std::max(nKept, items.back().find_last_not_of(BLANKS) + 1));
            items.emplace_back();
            nKept = 0;
        } else if (bQuoted || !items.back().empty() || BLANKS.find(ch) == std::string_view::npos) {
            items.back() += ch;
            nKept = bQuoted ? items.back().size() : nKept;
        }
    }
    return items;
}

/// Kinds of values begin with '@'; a text that does has another one before it. Bytes were escaped as
/// characters of Latin-1.
std::optional<std::string> ReadKind(const std::string& str) {
    if (!str.starts_with('@')) {
        return str;
    }
    if (str.starts_with("@@")) {
        return str.substr(1);
    }
    const std::size_t nOpen = str.find('(');
    if (nOpen == std::string::npos || !str.ends_with(')')) {
        return str;
    }
    const std::string strKind = str.substr(1, nOpen - 1);
    const std::string strInner = str.substr(nOpen + 1, str.size() - nOpen - 2);
    if (strKind == "Invalid") {
        return std::nullopt;
    }
    if (strKind != "ByteArray") {
        return strKind == "String" ? strInner : str;
    }
    std::string strBytes;
    for (const char32_t ch : DecodeText(strInner)) {
        strBytes += static_cast<char>(ch);
    }
    return strBytes;
}

std::optional<std::string> ReadValue(std::string_view str) {
    const std::vector<std::string> items = ReadItems(str);
    std::optional<std::string> value = ReadKind(items.front());
    for (std::size_t i = 1; value && i < items.size(); ++i) {
        *value += ", " + ReadKind(items[i]).value_or("");
    }
    return value;
}

std::string ReadSection(std::string_view strHeader) {
    const std::string_view strName = Trimmed(strHeader.substr(1, strHeader.find(']') - 1));
    if (IsSameName(strName, "General")) {
        return {};
    }
    return IsSameName(strName, "%General") ? "General" : ReadName(strName);
}

} // namespace

std::string OldSettingsPath(const CString& strMaker, const CString& strApplication) {
    const std::string strConfiguration = ConfigurationFolder();
    const std::string strName = ToName(strApplication);
    const std::string strFolder = strMaker.IsEmpty() ? strName : ToName(strMaker);
    return strConfiguration.empty() ? strConfiguration
                                    : strConfiguration + "/" + strFolder + "/" + strName + ".ini";
}

std::vector<OLDSETTING> ReadOldSettings(std::string_view strBytes) {
    std::vector<OLDSETTING> settings;
    std::string strSection;
    while (!strBytes.empty()) {
        const std::string_view strLine = Trimmed(strBytes.substr(0, strBytes.find('\n')));
        strBytes.remove_prefix(std::min(strBytes.find('\n'), strBytes.size() - 1) + 1);
        const std::size_t nEqual = strLine.find('=');
        if (strLine.starts_with('[')) {
            strSection = ReadSection(strLine);
        } else if (nEqual != std::string_view::npos && !strLine.starts_with(';')) {
            const std::string strPath = strSection + "\\" + ReadName(Trimmed(strLine.substr(0, nEqual)));
            const std::size_t nName = strPath.rfind('\\') + 1;
            if (auto value = ReadValue(Trimmed(strLine.substr(nEqual + 1)))) {
                settings.push_back({strPath.substr(0, nName - 1), strPath.substr(nName), std::move(*value)});
            }
        }
    }
    return settings;
}

} // namespace tessara
