#pragma once

#include <optional>
#include <variant>
#include <vector>

#include "tessara/platform/gdi/DrawSink.h"

namespace tessara {

/// The bytes of a finished metafile.
class CPicture {
public:
    explicit CPicture(std::vector<BYTE> bytes) : m_bytes(std::move(bytes)) {}
    const std::vector<BYTE>& GetBytes() const { return m_bytes; }

private:
    std::vector<BYTE> m_bytes;
};

/// The record stream of a Windows metafile under construction: 16-bit little-endian words, each record
/// preceded by its size in words (32 bits) and its function number.
class CMetafileStream {
public:
    void Add(WORD nFunction, std::span<const WORD> parameters);
    void Add(WORD nFunction, std::initializer_list<WORD> parameters);
    /// The whole file: the header with its size fields, the records, the end record.
    std::vector<BYTE> Finish(WORD nObjects);

private:
    std::vector<WORD> m_records;
    std::size_t m_nLargestRecord = 3;
};

/// The pens, brushes and fonts that exist in a player at each point of a metafile, under the handles it gives
/// them: the lowest free one to each new object.
///
/// Pens and brushes are created when they are first needed and kept. A font is created just before it is
/// selected and deleted after the next one is, as programs do that draw text run by run: readers are used to
/// that.
class CMetafileObjects {
public:
    using Object = std::variant<LOGPEN, LOGBRUSH, LOGFONT>;

    explicit CMetafileObjects(CMetafileStream& stream) : m_stream(stream) {}
    void Select(const LOGPEN& pen) { SelectKept(pen, m_pen); }
    void Select(const LOGBRUSH& brush) { SelectKept(brush, m_brush); }
    void Select(const LOGFONT& font);
    /// Deletes what exists and returns the largest number of objects that existed at once.
    WORD Finish();

private:
    void SelectKept(const Object& object, std::optional<WORD>& selected);
    WORD Create(const Object& object);
    void Delete(WORD nHandle);

    CMetafileStream& m_stream;
    std::vector<std::optional<Object>> m_objects; ///< by handle
    std::optional<WORD> m_pen;                    ///< handle of the selected one
    std::optional<WORD> m_brush;
    std::optional<WORD> m_font;
};

/// Turns drawing operations into metafile records. State that a record depends on is written just before it
/// is needed, and only when it has changed.
class CMetafileRecorder : public CDrawSink {
public:
    CMetafileRecorder() : m_objects(m_stream) {}

    CDeviceCaps GetCaps() const override {
        CDeviceCaps caps;
        caps.bBounded = false;
        return caps;
    }
    COLORREF ReadPixel(POINT device) const override;
    TESSARA_DRAW_OPERATIONS(TESSARA_OVERRIDE_OPERATION)

    /// The finished file; the recorder is not used afterwards.
    std::vector<BYTE> Finish();

private:
    void SyncFrame(const CDrawState& state);
    void SyncPen(const CDrawState& state);
    void SyncShape(const CDrawState& state);
    void SyncText(const CDrawState& state);
    void AddPiece(std::span<const POINT> points);

    /// A parameter that the player remembers, with the value it has there.
    template <class VALUE>
    static bool Changed(std::optional<VALUE>& current, const VALUE& wanted) {
        if (current == wanted) {
            return false;
        }
        current = wanted;
        return true;
    }

    CMetafileStream m_stream;
    CMetafileObjects m_objects;
    std::optional<POINT> m_windowOrigin;
    std::optional<SIZE> m_windowExtent;
    std::optional<int> m_nRasterOperation;
    std::optional<int> m_nBackMode;
    std::optional<COLORREF> m_textColor;
    std::optional<COLORREF> m_backColor;
    std::optional<POINT> m_position;
};

} // namespace tessara
