#include "tessara/plot/PlotText.h"

#include <algorithm>

#include "tessara/platform/base/Number.h"
#include "tessara/platform/base/Text.h"
#include "tessara/plot/PlotArea.h"

namespace tessara {

namespace {

bool HasUtf8Characters(std::string_view strText) {
    return IsValidUtf8(strText) &&
           std::any_of(strText.begin(), strText.end(), [](char ch) { return ch < 0; });
}

/// The multiplication sign is written as the text before it is.
CString TimesPowerOfTen(const CString& strText, int nExponent) {
    CString strTimes = strText + (HasUtf8Characters(strText.View()) ? "\xC3\x97" : "\xD7") + "10~N";
    if (nExponent != 1) {
        strTimes += FormatText("%d~H", nExponent).c_str();
    }
    return strTimes;
}

} // namespace

CString AxisTitle(const CString& strSymbol, int nExponent) {
    if (nExponent == 0) {
        return strSymbol;
    }
    return TimesPowerOfTen(strSymbol, nExponent);
}

CString ValueLine(const CString& strSymbol, const CString& strFormat, double dValue, int nExponent) {
    const CString strLine = strSymbol + " = " + FormatValue(strFormat, dValue).c_str();
    return nExponent == 0 ? strLine + "~N" : TimesPowerOfTen(strLine, nExponent);
}

void DrawCaption(const CCanvas& canvas, int nX, int nY, bool bCentered, const CString& strCaption) {
    constexpr int POINTS = 11;
    constexpr int POINTS_PER_INCH = 72;
    constexpr int PAGE_HEIGHT_OF_CAPTION = 150;
    const CDC& surface = canvas.GetSurface();
    const int nHeight = surface.GetMapMode() == MM_TEXT
                            ? -MulDiv(POINTS, surface.GetDeviceCaps(LOGPIXELSY), POINTS_PER_INCH)
                            : PAGE_HEIGHT_OF_CAPTION;
    LOGFONT logFont = MakeLogFont(nHeight, "Times New Roman");
    logFont.lfWeight = FW_BOLD;
    logFont.lfItalic = TRUE;
    CFont font;
    font.CreateFontIndirect(&logFont);
    const CSelection selection(canvas, font);
    const int nLeft = bCentered ? nX - canvas.Measure(strCaption.View()).cx / 2 : nX;
    canvas.Text(nLeft, nY, strCaption.View());
}

} // namespace tessara
