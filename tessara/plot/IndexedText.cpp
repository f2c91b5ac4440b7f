#include "tessara/plot/IndexedText.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/gdi/TextMeasure.h"
#include "tessara/plot/Canvas.h"
#include "tessara/plot/IndexedTextRuns.h"

namespace {

using tessara::CIndexedRun;

constexpr double INDEX_SIZE = 0.75; ///< size of an index, in parts of the text's
constexpr double INDEX_DROP = 0.5;  ///< how far a low index lies below the top
constexpr double INDEX_RISE = 0.1;  ///< how far a high index lies above it
constexpr double PRINTED_ADVANCE = 1.1;
constexpr const char* TEXT_FACE = "Times New Roman";

enum class Style { normal, index, greek, greekIndex, bold, italic };

Style StyleOf(char chControl) {
    switch (chControl) {
    case 'H':
    case 'L':
        return Style::index;
    case 'G':
        return Style::greek;
    case 'j':
    case 'g':
        return Style::greekIndex;
    case 'b':
        return Style::bold;
    case 'i':
        return Style::italic;
    default:
        return Style::normal;
    }
}

/// Draws or measures one text, run after run.
class CIndexedTextRenderer {
public:
    CIndexedTextRenderer(CDC& dc, CMetaFileDC* pMetaDC, POINT origin, int nSize, bool bMeasure)
        : m_dc(dc), m_pMetaDC(pMetaDC), m_nX(origin.x), m_nY(origin.y), m_nSize(std::abs(nSize)),
          m_bMeasure(bMeasure), m_dAdvance(dc.IsPrinting() ? PRINTED_ADVANCE : 1.0) {
        SetStyle(Style::normal);
    }

    void Render(const CIndexedRun& run) {
        if (run.chControl == 'B') {
            RenderStack(run.strText);
            return;
        }
        SetStyle(StyleOf(run.chControl));
        const CSize extent = Draw(run.strText, TopOf(run.chControl), PictureTopOf(run.chControl));
        if (run.chControl == 0) {
            Advance(extent.cx);
            return;
        }
        Advance(tessara::ToCoordinate(extent.cx * m_dAdvance));
        if (run.chControl == 'N') {
            m_nHeight = std::max<int>(m_nHeight, extent.cy);
        }
    }

    RECT GetExtent() const { return {0, 0, m_nWidth, m_nHeight}; }

private:
    void SetStyle(Style eStyle) {
        if (m_eStyle == eStyle) {
            return;
        }
        m_eStyle = eStyle;
        const bool bIndex = eStyle == Style::index || eStyle == Style::greekIndex;
        const bool bGreek = eStyle == Style::greek || eStyle == Style::greekIndex;
        LOGFONT font = tessara::MakeLogFont(bIndex ? tessara::ToCoordinate(INDEX_SIZE * m_nSize) : m_nSize,
                                            bGreek ? tessara::SYMBOL_FACE : TEXT_FACE);
        font.lfWeight = eStyle == Style::bold ? FW_SEMIBOLD : FW_DONTCARE;
        font.lfItalic = eStyle == Style::italic;
        m_font.DeleteObject();
        m_font.CreateFontIndirect(&font);
    }

    int LowTop() const { return tessara::ToCoordinate(m_nY + INDEX_DROP * m_nSize); }
    int HighTop() const { return m_nY - tessara::ToCoordinate(INDEX_RISE * m_nSize); }
    int PictureHighTop() const { return tessara::ToCoordinate(m_nY - INDEX_RISE * m_nSize); }

    int TopOf(char chControl) const {
        switch (chControl) {
        case 'H':
        case 'j':
            return HighTop();
        case 'L':
        case 'g':
            return LowTop();
        default:
            return m_nY;
        }
    }

    /// Where the run goes on the recorded picture; raised runs may differ by one unit from the surface.
    int PictureTopOf(char chControl) const {
        return chControl == 'H' || chControl == 'j' ? PictureHighTop() : TopOf(chControl);
    }

    /// Draws in the current style at the pen, unless only measuring, and measures.
    CSize Draw(std::string_view strText, int nTop, int nPictureTop) {
        const tessara::CCanvas canvas(&m_dc, m_pMetaDC);
        const tessara::CSelection selection(canvas, m_font);
        const int nCount = static_cast<int>(strText.size());
        if (!m_bMeasure) {
            m_dc.TextOut(m_nX, nTop, strText.data(), nCount);
            if (m_pMetaDC) {
                m_pMetaDC->TextOut(m_nX, nPictureTop, strText.data(), nCount);
            }
        }
        return m_dc.GetTextExtent(strText.data(), nCount);
    }

    void Advance(int nWidth) {
        m_nX += nWidth;
        m_nWidth += nWidth;
    }

    void RenderStack(std::string_view strText) {
        const auto take = [&strText] {
            const std::string_view strCharacter = strText.substr(0, tessara::CharacterLength(strText));
            strText.remove_prefix(strCharacter.size());
            return strCharacter;
        };
        const std::string_view strBase = take();
        const std::string_view strLow = take();
        const std::string_view strHigh = take();
        SetStyle(Style::normal);
        Advance(tessara::ToCoordinate(Draw(strBase, m_nY, m_nY).cx * m_dAdvance) + 1);
        SetStyle(Style::index);
        const int nLow = tessara::ToCoordinate(Draw(strLow, LowTop(), LowTop()).cx * m_dAdvance + 1.0);
        const int nHigh =
            tessara::ToCoordinate(Draw(strHigh, PictureHighTop(), PictureHighTop()).cx * m_dAdvance + 1.0);
        Advance(std::max(nLow, nHigh));
    }

    CDC& m_dc;
    CMetaFileDC* m_pMetaDC;
    int m_nX;
    const int m_nY;
    const int m_nSize;
    const bool m_bMeasure;
    const double m_dAdvance; ///< factor of every styled run's advance
    std::optional<Style> m_eStyle;
    CFont m_font;
    int m_nWidth = 0;
    int m_nHeight = 0;
};

} // namespace

int RenderIndexedText(CDC* pDC, int x, int y, const char* text, int size, CMetaFileDC* pMetaDC, RECT* pRect) {
    CIndexedTextRenderer renderer(*pDC, pMetaDC, {x, y}, size, pRect != nullptr);
    for (const CIndexedRun& run : tessara::ParseIndexedText(text)) {
        renderer.Render(run);
    }
    if (pRect) {
        *pRect = renderer.GetExtent();
    }
    return 1;
}

int IndexedTextOut(CDC* pDC, int x, int y, const char* text, int size, CMetaFileDC* pMetaDC) {
    return RenderIndexedText(pDC, x, y, text, size, pMetaDC, nullptr);
}

int GetIndexedTextExtent(CDC* pDC, const char* text, int size, RECT* pRect) {
    return RenderIndexedText(pDC, 0, 0, text, size, nullptr, pRect);
}
