#include "tessara/platform/gdi/LogSink.h"

#include <cinttypes>
#include <utility>

#include "tessara/platform/base/Number.h"
#include "tessara/platform/gdi/DC.h"

namespace tessara {

namespace {

/// The pen, and how it and the brush are mixed with what is there.
std::string PenText(const CDrawState& state) {
    const LOGPEN& pen = state.pen;
    const bool bPen = pen.lopnStyle != PS_NULL;
    std::string strText =
        bPen ? FormatText("pen %06X width %d", pen.lopnColor, pen.lopnWidth.x) : std::string("no pen");
    if (bPen && pen.lopnStyle != PS_SOLID) {
        strText += FormatText(" style %u", pen.lopnStyle);
    }
    if (state.nRasterOperation != R2_COPYPEN) {
        strText += FormatText(" rop %d", state.nRasterOperation);
    }
    return strText;
}

std::string BrushText(const CDrawState& state) {
    return state.brush.lbStyle == BS_NULL ? "no brush" : FormatText("brush %06X", state.brush.lbColor);
}

std::string FontText(const CDrawState& state) {
    const LOGFONT& font = state.font;
    std::string strText = FormatText("%s %d", font.lfFaceName, font.lfHeight);
    if (font.lfWeight != 0) {
        strText += FormatText(" weight %d", font.lfWeight);
    }
    strText += font.lfItalic ? " italic" : "";
    const std::pair<const char*, LONG> rare[] = {{"width", font.lfWidth},
                                                 {"escapement", font.lfEscapement},
                                                 {"orientation", font.lfOrientation},
                                                 {"underline", font.lfUnderline},
                                                 {"strike-out", font.lfStrikeOut},
                                                 {"character set", font.lfCharSet},
                                                 {"out precision", font.lfOutPrecision},
                                                 {"clip precision", font.lfClipPrecision},
                                                 {"quality", font.lfQuality},
                                                 {"pitch and family", font.lfPitchAndFamily}};
    for (const auto& [pszName, nValue] : rare) {
        if (nValue != 0) {
            strText += FormatText(" %s %d", pszName, nValue);
        }
    }
    return strText;
}

std::string PointsText(std::span<const POINT> points) {
    std::string strText;
    for (const POINT& point : points) {
        strText += FormatText(" %d,%d", point.x, point.y);
    }
    return strText;
}

/// A checksum of the pixels (Fowler, Noll and Vo's, by words).
std::uint64_t ChecksumOf(const CPixels& pixels) {
    std::uint64_t nSum = 0xCBF29CE484222325ULL;
    for (const std::uint32_t nColor : pixels.colors) {
        nSum = (nSum ^ nColor) * 0x100000001B3ULL;
    }
    return nSum;
}

std::string RectText(const RECT& rect) {
    return FormatText(" %d,%d %d,%d", rect.left, rect.top, rect.right, rect.bottom);
}

/// Printable ASCII as it is, other bytes as \xNN, so that a log is plain text.
std::string Quoted(std::string_view strBytes) {
    std::string strText = "\"";
    for (const char ch : strBytes) {
        const auto nByte = static_cast<unsigned char>(ch);
        strText += nByte < 0x20 || nByte > 0x7E ? FormatText("\\x%02X", nByte) : std::string(1, ch);
    }
    return strText + "\"";
}

} // namespace

COLORREF CLogSink::ReadPixel(POINT) const {
    return CLR_INVALID;
}

void CLogSink::Polyline(const CDrawState& state, std::span<const POINT> points) {
    m_lines.push_back("Polyline" + PointsText(points) + " (" + PenText(state) + ")");
}

void CLogSink::Polygon(const CDrawState& state, std::span<const POINT> points) {
    m_lines.push_back("Polygon" + PointsText(points) + " (" + PenText(state) + ", " + BrushText(state) + ")");
}

void CLogSink::Rectangle(const CDrawState& state, const RECT& rect) {
    m_lines.push_back("Rectangle" + RectText(rect) + " (" + PenText(state) + ", " + BrushText(state) + ")");
}

void CLogSink::Ellipse(const CDrawState& state, const RECT& rect) {
    m_lines.push_back("Ellipse" + RectText(rect) + " (" + PenText(state) + ", " + BrushText(state) + ")");
}

void CLogSink::FillRect(const CDrawState&, const RECT& rect, COLORREF color) {
    m_lines.push_back("FillRect" + RectText(rect) + FormatText(" (brush %06X)", color));
}

void CLogSink::FocusRect(const CDrawState&, const RECT& rect) {
    m_lines.push_back("FocusRect" + RectText(rect));
}

void CLogSink::Picture(const CDrawState&, const RECT& rect, const CPixels& pixels) {
    m_lines.push_back("Picture" + RectText(rect) +
                      FormatText(" (%d x %d, checksum %016" PRIX64 ")", pixels.size.cx, pixels.size.cy,
                                 ChecksumOf(pixels)));
}

void CLogSink::Text(const CDrawState& state, POINT origin, std::string_view strBytes) {
    std::string strLine =
        FormatText("Text %d,%d ", origin.x, origin.y) + Quoted(strBytes) + " (" + FontText(state);
    if (state.textColor != 0) {
        strLine += FormatText(", colour %06X", state.textColor);
    }
    if (state.nBackMode == OPAQUE) {
        strLine += ", opaque";
        strLine += state.backColor != 0xFFFFFF ? FormatText(" on %06X", state.backColor) : "";
    }
    m_lines.push_back(strLine + ")");
}

} // namespace tessara
