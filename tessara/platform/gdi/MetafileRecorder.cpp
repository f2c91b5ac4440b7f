#include "tessara/platform/gdi/MetafileRecorder.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/gdi/DC.h"
#include "tessara/platform/gdi/PolylineReduction.h"
#include "tessara/platform/gdi/TextMeasure.h"

namespace tessara {

namespace {

enum MetafileFunction : WORD {
    META_EOF = 0x0000,
    META_SETBKMODE = 0x0102,
    META_SETROP2 = 0x0104,
    META_SELECTOBJECT = 0x012D,
    META_DELETEOBJECT = 0x01F0,
    META_SETBKCOLOR = 0x0201,
    META_SETTEXTCOLOR = 0x0209,
    META_SETWINDOWORG = 0x020B,
    META_SETWINDOWEXT = 0x020C,
    META_LINETO = 0x0213,
    META_MOVETO = 0x0214,
    META_CREATEPENINDIRECT = 0x02FA,
    META_CREATEFONTINDIRECT = 0x02FB,
    META_CREATEBRUSHINDIRECT = 0x02FC,
    META_POLYGON = 0x0324,
    META_POLYLINE = 0x0325,
    META_ELLIPSE = 0x0418,
    META_RECTANGLE = 0x041B,
    META_EXTTEXTOUT = 0x0A32,
    META_STRETCHDIB = 0x0F43
};

constexpr LONG MAX_POSITION = std::numeric_limits<std::int16_t>::max();
constexpr LONG MIN_POSITION = std::numeric_limits<std::int16_t>::min();
constexpr RECT WHOLE_SPACE{MIN_POSITION, MIN_POSITION, MAX_POSITION, MAX_POSITION};
constexpr std::size_t MAX_POINTS = 32767; ///< of one record: readers take the count as signed
constexpr std::size_t MAX_TEXT = 32767;

/// A coordinate in 16 bits, two's complement; what lies beyond is held at the end.
WORD Short(LONG nValue) {
    return static_cast<WORD>(static_cast<std::int16_t>(std::clamp(nValue, MIN_POSITION, MAX_POSITION)));
}

WORD LowWord(COLORREF color) {
    return static_cast<WORD>(color);
}

WORD HighWord(COLORREF color) {
    return static_cast<WORD>(color >> 16);
}

/// Bytes two by two, padded with zero to whole words.
void AppendBytes(std::vector<WORD>& words, std::string_view strBytes) {
    for (std::size_t i = 0; i < strBytes.size(); i += 2) {
        const WORD nLow = static_cast<BYTE>(strBytes[i]);
        const WORD nHigh = i + 1 < strBytes.size() ? static_cast<BYTE>(strBytes[i + 1]) : 0;
        words.push_back(static_cast<WORD>(nLow | nHigh << 8));
    }
}

WORD BytePair(BYTE nLow, BYTE nHigh) {
    return static_cast<WORD>(nLow | nHigh << 8);
}

struct CObjectRecord {
    WORD nFunction;
    std::vector<WORD> parameters;
};

CObjectRecord Describe(const LOGPEN& pen) {
    return {META_CREATEPENINDIRECT,
            {static_cast<WORD>(pen.lopnStyle), Short(pen.lopnWidth.x), 0, LowWord(pen.lopnColor),
             HighWord(pen.lopnColor)}};
}

CObjectRecord Describe(const LOGBRUSH& brush) {
    return {META_CREATEBRUSHINDIRECT,
            {static_cast<WORD>(brush.lbStyle), LowWord(brush.lbColor), HighWord(brush.lbColor), 0}};
}

/// Heights are recorded as those of the characters: some readers take a line's height for one.
CObjectRecord Describe(const LOGFONT& font) {
    const BYTE nCharSet = IsSymbolFont(font) ? BYTE{SYMBOL_CHARSET} : font.lfCharSet;
    CObjectRecord record{META_CREATEFONTINDIRECT,
                         {Short(-MeasureEm(font)), Short(font.lfWidth), Short(font.lfEscapement),
                          Short(font.lfOrientation), Short(font.lfWeight),
                          BytePair(font.lfItalic, font.lfUnderline), BytePair(font.lfStrikeOut, nCharSet),
                          BytePair(font.lfOutPrecision, font.lfClipPrecision),
                          BytePair(font.lfQuality, font.lfPitchAndFamily)}};
    const std::string_view strFace(font.lfFaceName);
    AppendBytes(record.parameters, std::string(strFace) + '\0');
    return record;
}

void AppendLong(std::vector<BYTE>& bytes, std::uint32_t nValue) {
    for (int nShift = 0; nShift < 32; nShift += 8) {
        bytes.push_back(static_cast<BYTE>(nValue >> nShift));
    }
}

void AppendWord(std::vector<BYTE>& bytes, WORD nValue) {
    bytes.push_back(static_cast<BYTE>(nValue));
    bytes.push_back(static_cast<BYTE>(nValue >> 8));
}

} // namespace

void CMetafileStream::Add(WORD nFunction, std::span<const WORD> parameters) {
    const std::size_t nSize = parameters.size() + 3;
    // A record is added whole or, where there is no memory, not at all: readers count words.
    if (m_records.capacity() - m_records.size() < nSize) {
        m_records.reserve(std::max(2 * m_records.capacity(), m_records.size() + nSize));
    }
    m_records.push_back(static_cast<WORD>(nSize));
    m_records.push_back(static_cast<WORD>(nSize >> 16));
    m_records.push_back(nFunction);
    m_records.insert(m_records.end(), parameters.begin(), parameters.end());
    m_nLargestRecord = std::max(m_nLargestRecord, nSize);
}

void CMetafileStream::Add(WORD nFunction, std::initializer_list<WORD> parameters) {
    Add(nFunction, std::span<const WORD>(parameters.begin(), parameters.size()));
}

std::vector<BYTE> CMetafileStream::Finish(WORD nObjects) {
    constexpr WORD IN_MEMORY = 1;
    constexpr WORD HEADER_WORDS = 9;
    constexpr WORD VERSION = 0x0300;
    Add(META_EOF, {});
    std::vector<BYTE> bytes;
    bytes.reserve((HEADER_WORDS + m_records.size()) * sizeof(WORD));
    AppendWord(bytes, IN_MEMORY);
    AppendWord(bytes, HEADER_WORDS);
    AppendWord(bytes, VERSION);
    AppendLong(bytes, static_cast<std::uint32_t>(HEADER_WORDS + m_records.size()));
    AppendWord(bytes, nObjects);
    AppendLong(bytes, static_cast<std::uint32_t>(m_nLargestRecord));
    AppendWord(bytes, 0);
    for (const WORD nWord : m_records) {
        AppendWord(bytes, nWord);
    }
    return bytes;
}

WORD CMetafileObjects::Create(const Object& object) {
    const auto free = std::find(m_objects.begin(), m_objects.end(), std::nullopt);
    const auto nHandle = static_cast<WORD>(free - m_objects.begin());
    if (free == m_objects.end()) {
        m_objects.emplace_back(object);
    } else {
        *free = object;
    }
    const CObjectRecord record = std::visit([](const auto& log) { return Describe(log); }, object);
    m_stream.Add(record.nFunction, record.parameters);
    return nHandle;
}

void CMetafileObjects::Delete(WORD nHandle) {
    m_objects[nHandle].reset();
    m_stream.Add(META_DELETEOBJECT, {nHandle});
}

void CMetafileObjects::SelectKept(const Object& object, std::optional<WORD>& selected) {
    const auto found = std::find(m_objects.begin(), m_objects.end(), object);
    const WORD nHandle =
        found != m_objects.end() ? static_cast<WORD>(found - m_objects.begin()) : Create(object);
    if (selected != nHandle) {
        selected = nHandle;
        m_stream.Add(META_SELECTOBJECT, {nHandle});
    }
}

void CMetafileObjects::Select(const LOGFONT& font) {
    if (m_font && m_objects[*m_font] == Object(font)) {
        return;
    }
    const WORD nHandle = Create(font);
    m_stream.Add(META_SELECTOBJECT, {nHandle});
    if (m_font) {
        Delete(*m_font);
    }
    m_font = nHandle;
}

WORD CMetafileObjects::Finish() {
    const auto nCount = static_cast<WORD>(m_objects.size());
    for (WORD nHandle = 0; nHandle < nCount; ++nHandle) {
        if (m_objects[nHandle]) {
            Delete(nHandle);
        }
    }
    return nCount;
}

COLORREF CMetafileRecorder::ReadPixel(POINT) const {
    return CLR_INVALID;
}

std::vector<BYTE> CMetafileRecorder::Finish() {
    const WORD nObjects = m_objects.Finish();
    return m_stream.Finish(nObjects);
}

void CMetafileRecorder::SyncFrame(const CDrawState& state) {
    if (state.mapping.GetMode() < MM_ISOTROPIC) {
        return;
    }
    const POINT origin = state.mapping.GetWindowOrigin();
    const SIZE extent = state.mapping.GetWindowExtent();
    if (Changed(m_windowOrigin, origin)) {
        m_stream.Add(META_SETWINDOWORG, {Short(origin.y), Short(origin.x)});
    }
    if (Changed(m_windowExtent, extent)) {
        m_stream.Add(META_SETWINDOWEXT, {Short(extent.cy), Short(extent.cx)});
    }
}

void CMetafileRecorder::SyncPen(const CDrawState& state) {
    SyncFrame(state);
    if (Changed(m_nRasterOperation, state.nRasterOperation)) {
        m_stream.Add(META_SETROP2, {static_cast<WORD>(state.nRasterOperation)});
    }
    m_objects.Select(state.pen);
}

void CMetafileRecorder::SyncShape(const CDrawState& state) {
    SyncPen(state);
    m_objects.Select(state.brush);
}

void CMetafileRecorder::SyncText(const CDrawState& state) {
    SyncFrame(state);
    if (Changed(m_nBackMode, state.nBackMode)) {
        m_stream.Add(META_SETBKMODE, {static_cast<WORD>(state.nBackMode)});
    }
    if (Changed(m_textColor, state.textColor)) {
        m_stream.Add(META_SETTEXTCOLOR, {LowWord(state.textColor), HighWord(state.textColor)});
    }
    if (Changed(m_backColor, state.backColor)) {
        m_stream.Add(META_SETBKCOLOR, {LowWord(state.backColor), HighWord(state.backColor)});
    }
    m_objects.Select(state.font);
}

void CMetafileRecorder::AddPiece(std::span<const POINT> points) {
    if (points.size() <= 2) {
        if (m_position != points.front()) {
            m_stream.Add(META_MOVETO, {Short(points.front().y), Short(points.front().x)});
        }
        m_stream.Add(META_LINETO, {Short(points.back().y), Short(points.back().x)});
        m_position = points.back();
        return;
    }
    std::vector<WORD> words;
    for (std::size_t nFirst = 0; nFirst + 1 < points.size(); nFirst += MAX_POINTS - 1) {
        const auto piece = points.subspan(nFirst, std::min(MAX_POINTS, points.size() - nFirst));
        words.assign(1, static_cast<WORD>(piece.size()));
        for (const POINT& point : piece) {
            words.push_back(Short(point.x));
            words.push_back(Short(point.y));
        }
        m_stream.Add(META_POLYLINE, words);
    }
}

void CMetafileRecorder::Polyline(const CDrawState& state, std::span<const POINT> points) {
    SyncPen(state);
    ClipPolyline(points, WHOLE_SPACE, [&](std::span<const POINT> piece) {
        std::vector<POINT> kept(piece.begin(), piece.end());
        if (state.nRasterOperation == R2_COPYPEN) {
            kept.resize(MergeColumns(kept));
        }
        AddPiece(kept);
    });
}

void CMetafileRecorder::Polygon(const CDrawState& state, std::span<const POINT> points) {
    SyncShape(state);
    const auto kept = points.first(std::min(points.size(), MAX_POINTS));
    std::vector<WORD> words{static_cast<WORD>(kept.size())};
    for (const POINT& point : kept) {
        words.push_back(Short(point.x));
        words.push_back(Short(point.y));
    }
    m_stream.Add(META_POLYGON, words);
}

void CMetafileRecorder::Rectangle(const CDrawState& state, const RECT& rect) {
    SyncShape(state);
    m_stream.Add(META_RECTANGLE, {Short(rect.bottom), Short(rect.right), Short(rect.top), Short(rect.left)});
}

void CMetafileRecorder::Ellipse(const CDrawState& state, const RECT& rect) {
    SyncShape(state);
    m_stream.Add(META_ELLIPSE, {Short(rect.bottom), Short(rect.right), Short(rect.top), Short(rect.left)});
}

void CMetafileRecorder::FillRect(const CDrawState& state, const RECT& rect, COLORREF color) {
    CDrawState fill = state;
    fill.pen = {PS_NULL, {0, 0}, 0};
    fill.brush = {BS_SOLID, color, 0};
    fill.nRasterOperation = R2_COPYPEN;
    Rectangle(fill, rect);
}

/// A picture has no focus: a focus rectangle is a matter of windows and leaves no record.
void CMetafileRecorder::FocusRect(const CDrawState&, const RECT&) {}

/// A device-independent bitmap of 24 bits, its rows from the bottom.
void CMetafileRecorder::Picture(const CDrawState& state, const RECT& rect, const CPixels& pixels) {
    constexpr WORD BITS = 24;
    constexpr std::uint32_t HEADER_SIZE = 40;
    SyncFrame(state);
    const auto nWidth = static_cast<std::uint32_t>(pixels.size.cx);
    const auto nHeight = static_cast<std::uint32_t>(pixels.size.cy);
    std::vector<BYTE> bitmap;
    for (const std::uint32_t nField :
         {HEADER_SIZE, nWidth, nHeight, 1U | std::uint32_t{BITS} << 16, 0U, 0U, 0U, 0U, 0U, 0U}) {
        AppendLong(bitmap, nField);
    }
    for (std::uint32_t y = nHeight; y-- > 0;) {
        for (std::uint32_t x = 0; x < nWidth; ++x) {
            const std::uint32_t nColor = pixels.colors[std::size_t{y} * nWidth + x];
            for (const int nShift : {0, 8, 16}) {
                bitmap.push_back(static_cast<BYTE>(nColor >> nShift));
            }
        }
        bitmap.resize((bitmap.size() + 3) / 4 * 4); // rows end on 32 bits; so does the header
    }
    const CRect place(rect);
    std::vector<WORD> words{static_cast<WORD>(SRCCOPY),
                            static_cast<WORD>(SRCCOPY >> 16),
                            0,
                            static_cast<WORD>(nHeight),
                            static_cast<WORD>(nWidth),
                            0,
                            0,
                            Short(place.Height()),
                            Short(place.Width()),
                            Short(place.top),
                            Short(place.left)};
    AppendBytes(words, {reinterpret_cast<const char*>(bitmap.data()), bitmap.size()});
    m_stream.Add(META_STRETCHDIB, words);
}

/// Text goes with the advance of each character, so that readers with other fonts keep the layout.
void CMetafileRecorder::Text(const CDrawState& state, POINT origin, std::string_view strBytes) {
    SyncText(state);
    const std::string strText =
        IsSymbolFont(state.font) ? std::string(strBytes) : EncodeWindows1252(DecodeText(strBytes));
    const std::string_view strCut = std::string_view(strText).substr(0, MAX_TEXT);
    std::vector<WORD> words{Short(origin.y), Short(origin.x), static_cast<WORD>(strCut.size()), 0};
    AppendBytes(words, strCut);
    for (const LONG nAdvance : MeasureAdvances(state.font, strCut)) {
        words.push_back(Short(nAdvance));
    }
    m_stream.Add(META_EXTTEXTOUT, words);
}

} // namespace tessara
