#include <algorithm>
#include <cmath>

#include "tessara/platform/gdi/DC.h"
#include "tessara/platform/gdi/PolylineReduction.h"
#include "tessara/platform/qt/drawing/PainterSink.h"

// How lines are drawn: thinned, cut to what Qt can hold, in pieces.

namespace tessara {

namespace {

/// How far beyond the device lines are handed to Qt, in device units: farther, its rasteriser loses
/// precision.
constexpr LONG MAX_PIXEL = 16000;
constexpr LONG MAX_VECTOR_UNIT = 1 << 22;
constexpr std::size_t WIDE_PIECE = 16; ///< segments of a wide or smooth line drawn at a time

/// Too close for a smooth line to show the difference.
bool IsNear(QPointF a, QPointF b) {
    constexpr double SEEN = 0.2; // pixels
    return std::abs(a.x() - b.x()) < SEEN && std::abs(a.y() - b.y()) < SEEN;
}

bool IsStraight(std::span<const POINT> points) {
    return points.size() == 2 && (points[0].x == points[1].x || points[0].y == points[1].y);
}

} // namespace

void CPainterSink::Polyline(const CDrawState& state, std::span<const POINT> points) {
    if (state.pen.lopnStyle == PS_NULL || !SetRasterOperation(state)) {
        return;
    }
    m_points.assign(points.begin(), points.end());
    const bool bMerge = state.nRasterOperation == R2_COPYPEN;
    const bool bExact = IsVector() || (m_eStyle == Style::smoothPixels && bMerge && !IsStraight(points));
    SetSmooth(bExact);
    m_painter.setPen(MakePen(state, bExact));
    if (!bExact) {
        std::transform(m_points.begin(), m_points.end(), m_points.begin(),
                       [&](POINT point) { return state.mapping.ToDevice(point); });
    }
    if (bMerge) {
        m_points.resize(MergeColumns(m_points));
    }
    if (bExact) {
        DrawExactly(state, m_points);
    } else {
        DrawInPixels(m_points);
    }
}

/// Draws a line in pieces that share their end points, or whole for nPiece 0. The rasteriser's time grows
/// faster than the length of an outline; the pieces' round ends lie on each other.
template <class POINT_TYPE>
void CPainterSink::DrawRun(const std::vector<POINT_TYPE>& points, std::size_t nPiece) {
    if (points.size() == 1) {
        m_painter.drawPoint(points.front());
        return;
    }
    const std::size_t nSegments = points.size() - 1;
    const std::size_t nStep = nPiece == 0 ? nSegments : nPiece;
    for (std::size_t nFirst = 0; nFirst < nSegments; nFirst += nStep) {
        m_painter.drawPolyline(points.data() + nFirst,
                               static_cast<int>(std::min(nStep, nSegments - nFirst)) + 1);
    }
}

/// Pieces of a line may lie on each other: no dashes go along it and no inversion is undone.
bool CPainterSink::MayOverlap() const {
    return m_painter.pen().style() == Qt::SolidLine &&
           m_painter.compositionMode() == QPainter::CompositionMode_SourceOver;
}

bool CPainterSink::IsHairline() const {
    return m_painter.pen().widthF() <= 1 && MayOverlap();
}

std::size_t CPainterSink::GetPieceLength() const {
    return IsVector() || !MayOverlap() ? 0 : WIDE_PIECE;
}

LONG CPainterSink::GetReach() const {
    return IsVector() ? MAX_VECTOR_UNIT : MAX_PIXEL + std::max(m_caps.size.cx, m_caps.size.cy);
}

QPointF CPainterSink::Hold(QPointF point) const {
    const double dReach = GetReach();
    return {std::clamp(point.x(), -dReach, dReach), std::clamp(point.y(), -dReach, dReach)};
}

void CPainterSink::DrawExactly(const CDrawState& state, std::span<const POINT> points) {
    const LONG nReach = GetReach();
    const POINT near = state.mapping.ToLogical(POINT{-nReach, -nReach});
    const POINT far = state.mapping.ToLogical(POINT{nReach, nReach});
    CRect reach(near.x, near.y, far.x, far.y);
    reach.NormalizeRect();
    ClipPolyline(points, reach, [&](std::span<const POINT> piece) {
        m_exactPoints.clear();
        for (const POINT& point : piece) {
            const QPointF mapped = MapExactly(state, point);
            const bool bLast = &point == &piece.back();
            if (IsVector() || bLast || m_exactPoints.empty() || !IsNear(m_exactPoints.back(), mapped)) {
                m_exactPoints.push_back(mapped);
            }
        }
        DrawRun(m_exactPoints, GetPieceLength());
    });
}

void CPainterSink::DrawInPixels(std::span<const POINT> points) {
    const LONG nReach = GetReach();
    ClipPolyline(points, {-nReach, -nReach, nReach, nReach}, [&](std::span<const POINT> piece) {
        if (piece.size() > 1 && IsHairline()) {
            DrawSegments(piece);
            return;
        }
        m_pixels.clear();
        for (const POINT& point : piece) {
            m_pixels.emplace_back(point.x, point.y);
        }
        DrawRun(m_pixels, GetPieceLength());
    });
}

/// Qt's polyline of one-pixel lines misses pixels at some of its points, and which ones depends on the points
/// around them. Single segments cover both their ends, so merged points change nothing.
void CPainterSink::DrawSegments(std::span<const POINT> points) {
    m_segments.clear();
    for (std::size_t i = 1; i < points.size(); ++i) {
        m_segments.emplace_back(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
    }
    m_painter.drawLines(m_segments.data(), static_cast<int>(m_segments.size()));
}

/// A pattern has one length for both directions: where a mapping stretches one of them, dashes would shift
/// along slanted lines, and so they would on a line that is cut at the reach.
bool CPainterSink::HasPattern(const CDrawState& state, std::span<const QPointF> points) const {
    constexpr double SEEN = 0.005;
    const double dScale = state.mapping.GetScaleX();
    const LONG nReach = GetReach();
    return std::abs(state.mapping.GetScaleY() - dScale) < SEEN * dScale &&
           std::ranges::all_of(points, [&](QPointF point) {
               return std::abs(point.x()) < nReach && std::abs(point.y()) < nReach;
           });
}

bool CPainterSink::DashedPolyline(const CDrawState& state, std::span<const POINT> points,
                                  std::span<const double> lengths) {
    if (!IsVector() || state.pen.lopnStyle != PS_SOLID) {
        return false;
    }
    m_exactPoints.clear();
    for (const POINT& point : points) {
        m_exactPoints.push_back(MapExactly(state, point));
    }
    if (!HasPattern(state, m_exactPoints) || !SetRasterOperation(state)) {
        return false;
    }
    SetSmooth(true);
    QPen pen = MakePen(state, true);
    QList<qreal> pattern; // in widths of the pen
    for (const double dLength : lengths) {
        pattern.append(dLength * state.mapping.GetScaleX() / pen.widthF());
    }
    pen.setDashPattern(pattern);
    m_painter.setPen(pen);
    m_painter.drawPolyline(m_exactPoints.data(), static_cast<int>(m_exactPoints.size()));
    return true;
}

} // namespace tessara
