#include "tessara/dialogs/TextLines.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/files/Descriptor.h"

namespace tessara {

namespace {

constexpr std::size_t MAX_BYTES = std::size_t{512} << 20;
constexpr std::ptrdiff_t MAX_LINES = std::ptrdiff_t{16} << 20;
constexpr std::string_view UTF8_MARK = "\xEF\xBB\xBF";
constexpr std::string_view LITTLE_MARK = "\xFF\xFE";
constexpr std::string_view BIG_MARK = "\xFE\xFF";

/// All bytes of a plain file.
ELinesRead ReadBytes(const char* pszPath, std::string& strBytes) {
    // A pipe of that name must not stop the program.
    const CDescriptor file(open(pszPath, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status;
    if (!file || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return ELinesRead::unreadable;
    }
    // The size is only a hint: files of the system have none, and others grow.
    const auto nSize = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0));
    if (nSize > MAX_BYTES) {
        return ELinesRead::tooLarge;
    }
    strBytes.resize(nSize + 1);
    for (std::size_t nDone = 0; nDone <= MAX_BYTES;) {
        const ssize_t nRead =
            Uninterrupted([&] { return read(file.Get(), strBytes.data() + nDone, strBytes.size() - nDone); });
        if (nRead <= 0) {
            strBytes.resize(nDone);
            return nRead == 0 ? ELinesRead::read : ELinesRead::unreadable;
        }
        nDone += static_cast<std::size_t>(nRead);
        if (nDone == strBytes.size()) {
            strBytes.resize(std::min(2 * nDone, MAX_BYTES + 1));
        }
    }
    return ELinesRead::tooLarge;
}

/// Text of 16-bit units as UTF-8. An odd byte at the end is dropped.
std::string FromUtf16(std::string_view strBytes, bool bBig) {
    std::u32string strCharacters;
    strCharacters.reserve(strBytes.size() / 2);
    for (std::size_t i = 0; i + 1 < strBytes.size(); i += 2) {
        const auto nFirst = static_cast<unsigned char>(strBytes[i]);
        const auto nSecond = static_cast<unsigned char>(strBytes[i + 1]);
        const char32_t ch = bBig ? nFirst * 256U + nSecond : nSecond * 256U + nFirst;
        const char32_t chBefore = strCharacters.empty() ? 0 : strCharacters.back();
        if (ch >= 0xDC00 && ch < 0xE000 && chBefore >= 0xD800 && chBefore < 0xDC00) {
            strCharacters.back() = 0x10000 + ((chBefore - 0xD800) << 10) + (ch - 0xDC00);
        } else {
            strCharacters += ch;
        }
    }
    return EncodeUtf8(strCharacters);
}

/// Splits a text of bytes; false when it has too many lines.
bool Split(std::string_view strText, CStringArray& lines) {
    const char chEnd = strText.find('\n') == std::string_view::npos ? '\r' : '\n';
    const bool bOpen = !strText.empty() && strText.back() != chEnd;
    const std::ptrdiff_t nLines = std::count(strText.begin(), strText.end(), chEnd) + (bOpen ? 1 : 0);
    if (nLines > MAX_LINES) {
        return false;
    }
    lines.SetSize(static_cast<int>(nLines)); // at once: growing would need it twice for a moment
    for (int i = 0; i < lines.GetSize(); ++i) {
        const std::size_t nEnd = std::min(strText.find(chEnd), strText.size());
        std::string_view strLine = strText.substr(0, nEnd);
        if (strLine.ends_with('\r')) {
            strLine.remove_suffix(1);
        }
        lines[i] = CString(strLine);
        strText.remove_prefix(std::min(nEnd + 1, strText.size()));
    }
    return true;
}

ELinesRead ReadAndSplit(const char* pszPath, CStringArray& lines) {
    std::string strBytes;
    const ELinesRead eRead = ReadBytes(pszPath, strBytes);
    if (eRead != ELinesRead::read) {
        return eRead;
    }
    std::string_view strText = strBytes;
    if (strText.starts_with(LITTLE_MARK) || strText.starts_with(BIG_MARK)) {
        strBytes = FromUtf16(strText.substr(LITTLE_MARK.size()), strText.starts_with(BIG_MARK));
        strText = strBytes;
    } else if (strText.starts_with(UTF8_MARK)) {
        strText.remove_prefix(UTF8_MARK.size());
    }
    return Split(strText, lines) ? ELinesRead::read : ELinesRead::tooLarge;
}

} // namespace

ELinesRead ReadLines(const char* pszPath, CStringArray& lines) {
    lines.RemoveAll();
    try {
        return WithMemoryException([&] { return ReadAndSplit(pszPath, lines); });
    } catch (const CMemoryException&) {
        lines.RemoveAll();
        return ELinesRead::tooLarge;
    }
}

} // namespace tessara
