#include "tessara/platform/base/Number.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <locale.h>
#include <new>
#include <utility>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/NoTraps.h"

namespace {

constexpr int MAX_FIELD = 512; ///< the largest width or precision

locale_t NumericLocale() {
    // Lives as long as the process: threads may still format while static objects are destroyed.
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/// Walks through a printf format, one conversion at a time.
class CFormatScanner {
public:
    explicit CFormatScanner(const char* pszFormat) : m_psz(pszFormat) {}

    /// Moves to the next conversion that takes an argument; false at the end of the text.
    bool FindConversion() {
        for (; *m_psz; ++m_psz) {
            if (*m_psz != '%') {
                continue;
            }
            ++m_psz;
            if (*m_psz != '%') {
                return true;
            }
        }
        return false;
    }

    /// Passes over the conversion found. False when it does not take an argument of that kind alone.
    bool AcceptConversion(char chKind) {
        while (Skip("-+ #0")) {
        }
        if (!SkipField() || (Skip(".") && !SkipField())) {
            return false;
        }
        switch (chKind) {
        case 'f':
            Skip("l");
            return Skip("aAeEfFgG");
        case 'd':
            return Skip("diouxX");
        case 's':
            return Skip("s");
        default:
            return false;
        }
    }

private:
    bool Skip(std::string_view strAny) {
        const bool bFound = *m_psz && strAny.find(*m_psz) != std::string_view::npos;
        m_psz += bFound;
        return bFound;
    }

    /// A width or precision, possibly absent. False when it is too large.
    bool SkipField() {
        int nField = 0;
        for (; *m_psz >= '0' && *m_psz <= '9'; ++m_psz) {
            nField = nField * 10 + (*m_psz - '0');
            if (nField > MAX_FIELD) {
                return false;
            }
        }
        return true;
    }

    const char* m_psz;
};

} // namespace

namespace tessara {

CNumericLocale::CNumericLocale() : m_pPrevious(uselocale(NumericLocale())) {}

CNumericLocale::~CNumericLocale() {
    uselocale(static_cast<locale_t>(m_pPrevious));
}

std::optional<std::string> FormatArguments(const char* pszFormat, std::va_list arguments) noexcept {
    const CNumericLocale locale;
    std::va_list measured;
    va_copy(measured, arguments);
    const int nLength = std::vsnprintf(nullptr, 0, pszFormat, measured);
    va_end(measured);
    if (nLength < 0) {
        return std::nullopt;
    }
    try {
        std::string strText(static_cast<std::size_t>(nLength), '\0');
        std::vsnprintf(strText.data(), strText.size() + 1, pszFormat, arguments);
        return strText;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

std::string FormatText(const char* pszFormat, ...) {
    std::va_list arguments;
    va_start(arguments, pszFormat);
    std::optional<std::string> strText = FormatArguments(pszFormat, arguments);
    va_end(arguments);
    if (!strText) {
        AfxThrowMemoryException();
    }
    return std::move(*strText);
}

bool FormatAccepts(const char* pszFormat, std::string_view strKinds) {
    if (!pszFormat) {
        return false;
    }
    CFormatScanner scanner(pszFormat);
    for (const char chKind : strKinds) {
        if (!scanner.FindConversion() || !scanner.AcceptConversion(chKind)) {
            return false;
        }
    }
    return !scanner.FindConversion();
}

std::string FormatValue(const char* pszFormat, double dValue) {
    if (!FormatAccepts(pszFormat, "f")) {
        return FormatText("%.2lf", dValue);
    }
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral" // checked just above
    return FormatText(pszFormat, dValue);
#pragma GCC diagnostic pop
}

std::optional<double> ParseNumber(const char* pszText) {
    if (!pszText || !*pszText) {
        return std::nullopt;
    }
    const CNumericLocale locale;
    const CNoTraps noTraps; // strtod raises an exception for a text such as 1e999
    char* pszEnd = nullptr;
    const double dValue = std::strtod(pszText, &pszEnd);
    return pszEnd != pszText && !*pszEnd ? std::optional(dValue) : std::nullopt;
}

std::optional<double> ParseNumber(std::string_view strText) {
    // Most numbers look alike in every locale, and need not be copied to have a zero behind them.
    double dValue = 0;
    const char* const pEnd = strText.data() + strText.size();
    const auto [pRead, eError] = std::from_chars(strText.data(), pEnd, dValue);
    if (eError == std::errc() && pRead == pEnd && std::isfinite(dValue)) {
        return dValue;
    }
    const bool bText = strText.find('\0') == std::string_view::npos;
    return bText ? WithMemoryException([&] { return ParseNumber(std::string(strText).c_str()); })
                 : std::nullopt;
}

} // namespace tessara

int IsDouble(const char* text, int bAllowNegative) {
    const std::optional<double> dValue = tessara::ParseNumber(text);
    return dValue && (bAllowNegative || std::isgreaterequal(*dValue, 0)); // not by operator: NaN would trap
}
