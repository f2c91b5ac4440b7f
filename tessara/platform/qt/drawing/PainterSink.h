#pragma once

#include <QPainter>
#include <vector>

#include "tessara/platform/gdi/DrawSink.h"

class QImage;

namespace tessara {

/// Draws on anything that Qt paints on. Three styles of surface:
///  - pixels: lines and shapes in whole pixels, exact colours; what a window shows;
///  - smooth pixels: slanted lines and curves antialiased; frames and grids stay in whole pixels;
///  - vector: positions and widths unrounded; text stays text.
class CPainterSink : public CDrawSink {
public:
    enum class Style { pixels, smoothPixels, vector };

    /// The device outlives the sink; painting on it starts here and ends with EndPainting or the sink.
    CPainterSink(QPaintDevice& device, const CDeviceCaps& caps, Style eStyle);
    ~CPainterSink() override;

    void SetStyle(Style eStyle) { m_eStyle = eStyle; }
    QPainter& GetPainter() { return m_painter; }
    void EndPainting();

    CDeviceCaps GetCaps() const override { return m_caps; }
    COLORREF ReadPixel(POINT device) const override;
    TESSARA_DRAW_OPERATIONS(TESSARA_OVERRIDE_OPERATION)
    /// A vector format has dash patterns; pixels have not.
    bool DashedPolyline(const CDrawState& state, std::span<const POINT> points,
                        std::span<const double> lengths) override;

private:
    /// Widths are exact or whole pixels, never below one.
    QPen MakePen(const CDrawState& state, bool bExact) const;
    /// False when the raster operation leaves nothing to draw here.
    bool SetRasterOperation(const CDrawState& state);
    bool PrepareShape(const CDrawState& state, bool bSmooth);
    QRectF MapShape(const CDrawState& state, const RECT& rect) const;
    QPointF MapExactly(const CDrawState& state, POINT point) const;
    bool HasPattern(const CDrawState& state, std::span<const QPointF> points) const;
    void DrawExactly(const CDrawState& state, std::span<const POINT> points);
    void DrawInPixels(std::span<const POINT> points);
    template <class POINT_TYPE>
    void DrawRun(const std::vector<POINT_TYPE>& points, std::size_t nPiece);
    void DrawSegments(std::span<const POINT> points);
    bool MayOverlap() const;
    bool IsHairline() const;
    std::size_t GetPieceLength() const;
    /// The farthest coordinate that is handed to Qt, in device units, and a point held within it.
    LONG GetReach() const;
    QPointF Hold(QPointF point) const;
    /// A colour as the device shows it: a grey one where it has no colours.
    QColor Ink(COLORREF color) const;
    void SetSmooth(bool bSmooth);
    bool IsVector() const { return m_eStyle == Style::vector; }

    QPainter m_painter;
    CDeviceCaps m_caps;
    Style m_eStyle;
    std::vector<POINT> m_points; ///< scratch, kept for its memory
    std::vector<QPointF> m_exactPoints;
    std::vector<QPoint> m_pixels;
    std::vector<QLine> m_segments;
};

QColor ToQColor(COLORREF color);

} // namespace tessara
