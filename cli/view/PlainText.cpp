#include "cli/view/PlainText.h"

#include <algorithm>
#include <cmath>

#include "tessara/platform/base/Number.h"
#include "tessara/platform/base/Text.h"
#include "tessara/platform/gdi/SymbolEncoding.h"
#include "tessara/plot/IndexedTextRuns.h"

namespace tessara {

namespace {

bool IsGreek(const CIndexedRun& run) {
    return run.chControl == 'G' || run.chControl == 'j' || run.chControl == 'g';
}

} // namespace

std::string PlainText(std::string_view strIndexed) {
    std::u32string strPlain;
    for (const CIndexedRun& run : ParseIndexedText(strIndexed)) {
        strPlain += IsGreek(run) ? DecodeSymbol(run.strText) : DecodeText(run.strText);
    }
    const auto isControl = [](char32_t ch) { return ch < 0x20 || ch == 0x7F; };
    std::replace_if(strPlain.begin(), strPlain.end(), isControl, U' ');
    return EncodeUtf8(strPlain);
}

QUANTITY::QUANTITY(const std::string& strTitle) : strName(strTitle) {
    for (const std::string_view strMark : {", ", " / "}) {
        const std::size_t nMark = strTitle.rfind(strMark);
        if (nMark != std::string::npos && nMark > 0) {
            strName = strTitle.substr(0, nMark);
            strUnit = strTitle.substr(nMark + strMark.size());
            return;
        }
    }
}

std::string QUANTITY::Show(const std::string& strValue) const {
    return strName + " = " + strValue + (strUnit.empty() ? "" : " " + strUnit);
}

std::string TextOfNumber(double dValue, double dStep) {
    constexpr int MAX_DECIMALS = 9;
    constexpr int MAX_DIGITS = 16;
    if (!std::isnormal(dValue) || !std::isnormal(dStep)) {
        return FormatText("%.6g", dValue);
    }
    const int nStep = static_cast<int>(std::floor(std::log10(std::fabs(dStep))));
    const int nValue = static_cast<int>(std::floor(std::log10(std::fabs(dValue))));
    const int nDigits = std::clamp(nValue - nStep + 1, 1, MAX_DIGITS);
    if (nStep < -MAX_DECIMALS || nValue >= MAX_DIGITS) {
        return FormatText("%.*g", nDigits, dValue);
    }
    return FormatText("%.*f", std::clamp(-nStep, 0, MAX_DECIMALS), dValue);
}

std::string TextOfNumber(double dValue) {
    constexpr int ALL_DIGITS = 17;
    for (int nDigits = 15; nDigits < ALL_DIGITS; ++nDigits) {
        std::string strText = FormatText("%.*g", nDigits, dValue);
        if (ParseNumber(strText.c_str()) == dValue) {
            return strText;
        }
    }
    return FormatText("%.*g", ALL_DIGITS, dValue);
}

} // namespace tessara
