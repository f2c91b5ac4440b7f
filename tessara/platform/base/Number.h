#pragma once

#include <cstdarg>
#include <optional>
#include <string>
#include <string_view>

#include "tessara/platform/base/Api.h"

// The one room that turns numbers into text and back. The decimal separator is always '.', whatever locale
// the process has set.

namespace tessara {

/// While it lives, the calling thread formats and parses numbers as the C locale does.
class TESSARA_API CNumericLocale {
public:
    CNumericLocale();
    ~CNumericLocale();
    CNumericLocale(const CNumericLocale&) = delete;
    CNumericLocale& operator=(const CNumericLocale&) = delete;

private:
    void* m_pPrevious;
};

/// printf with a literal format. Throws CMemoryException when the text cannot be built.
TESSARA_API std::string FormatText(const char* pszFormat, ...) __attribute__((format(printf, 1, 2)));

/// The same for the arguments of a function that itself takes a literal format; nothing when the text cannot
/// be built.
TESSARA_API std::optional<std::string> FormatArguments(const char* pszFormat, std::va_list arguments) noexcept
    __attribute__((format(printf, 1, 0)));

/// True when a printf format asks for exactly the given arguments, in order: one letter of strKinds each, 'f'
/// for a double, 'd' for an int, 's' for a string. Refuses %n, '*', positional arguments, length modifiers
/// that do not fit (only 'l' before a double's conversion does), and a width or precision above 512.
TESSARA_API bool FormatAccepts(const char* pszFormat, std::string_view strKinds);

/// dValue through a format that comes from an application. A format that does not ask for exactly one double
/// is replaced by "%.2lf". A negative zero is shown as zero only where printf does.
TESSARA_API std::string FormatValue(const char* pszFormat, double dValue);

/// The number that all of strText is ("strtod reads all of it", leading white space allowed), or nothing when
/// it is empty or anything else follows.
TESSARA_API std::optional<double> ParseNumber(const char* pszText);

/// The same for a part of a text, quickly. A zero byte in it is not its end: there is no number then.
TESSARA_API std::optional<double> ParseNumber(std::string_view strText);

} // namespace tessara

/// 1 when `text` is not empty and strtod reads all of it as one number and, when `bAllowNegative` is 0, that
/// number is greater than or equal to 0; else 0.
TESSARA_API int IsDouble(const char* text, int bAllowNegative);
