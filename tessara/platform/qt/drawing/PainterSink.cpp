#include "tessara/platform/qt/drawing/PainterSink.h"

#include <QImage>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "tessara/platform/gdi/DC.h"
#include "tessara/platform/gdi/TextMeasure.h"
#include "tessara/platform/qt/drawing/TextRun.h"

namespace tessara {

namespace {

constexpr double SCREEN_DOTS_PER_INCH = 96.0;

/// Dash patterns in ninety-sixths of an inch.
QList<qreal> DashPattern(UINT nStyle) {
    switch (nStyle) {
    case PS_DASH:
        return {18, 6};
    case PS_DOT:
        return {3, 3};
    case PS_DASHDOT:
        return {9, 6, 3, 6};
    case PS_DASHDOTDOT:
        return {9, 3, 3, 3, 3, 3};
    default:
        return {};
    }
}

LONG Sum(LONG nA, LONG nB) {
    return ToCoordinate(static_cast<double>(nA) + nB);
}

/// A picture without its colours, as transparent as it was.
QImage InGrey(QImage image) {
    for (int y = 0; y < image.height(); ++y) {
        auto* const pRow = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(pRow, pRow + image.width(), pRow, [](QRgb rgb) {
            const int nGrey = qGray(rgb);
            return qRgba(nGrey, nGrey, nGrey, qAlpha(rgb));
        });
    }
    return image;
}

/// False for an outline inside an empty rectangle.
bool HasPixels(const QRectF& shape) {
    return shape.width() >= 0 && shape.height() >= 0;
}

} // namespace

QColor ToQColor(COLORREF color) {
    return QColor(GetRValue(color), GetGValue(color), GetBValue(color));
}

CPainterSink::CPainterSink(QPaintDevice& device, const CDeviceCaps& caps, Style eStyle)
    : m_painter(&device), m_caps(caps), m_eStyle(eStyle) {}

CPainterSink::~CPainterSink() = default;

QColor CPainterSink::Ink(COLORREF color) const {
    const QColor full = ToQColor(color);
    if (m_caps.nColors > 2) {
        return full;
    }
    const int nGrey = qGray(full.rgb());
    return QColor(nGrey, nGrey, nGrey);
}

void CPainterSink::EndPainting() {
    m_painter.end();
}

COLORREF CPainterSink::ReadPixel(POINT device) const {
    const QPaintDevice* pDevice = m_painter.device();
    if (!pDevice || pDevice->devType() != QInternal::Image) {
        return CLR_INVALID;
    }
    const auto& image = static_cast<const QImage&>(*pDevice);
    if (!image.valid(device.x, device.y)) {
        return CLR_INVALID;
    }
    const QRgb rgb = image.pixel(device.x, device.y);
    return RGB(qRed(rgb), qGreen(rgb), qBlue(rgb));
}

void CPainterSink::SetSmooth(bool bSmooth) {
    m_painter.setRenderHint(QPainter::Antialiasing, bSmooth);
    // An antialiased line through whole numbers runs between pixels; it is meant to run through their
    // middles.
    m_painter.setTransform(bSmooth && !IsVector() ? QTransform::fromTranslate(0.5, 0.5) : QTransform());
}

QPen CPainterSink::MakePen(const CDrawState& state, bool bExact) const {
    const LOGPEN& pen = state.pen;
    if (pen.lopnStyle == PS_NULL) {
        return Qt::NoPen;
    }
    const double dExact = pen.lopnWidth.x * state.mapping.GetScaleX();
    const double dHair = IsVector() ? m_caps.dDotsPerInchX / 300.0 : 1.0;
    const double dWidth = bExact ? dExact : std::floor(dExact);
    QPen result(Ink(pen.lopnColor), std::max(dWidth, dHair), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    QList<qreal> dashes = DashPattern(pen.lopnStyle);
    if (!dashes.isEmpty()) {
        for (qreal& dLength : dashes) {
            dLength *= m_caps.dDotsPerInchX / SCREEN_DOTS_PER_INCH / result.widthF();
        }
        result.setCapStyle(Qt::FlatCap);
        result.setDashPattern(dashes);
    }
    return result;
}

bool CPainterSink::SetRasterOperation(const CDrawState& state) {
    const int nOperation = state.nRasterOperation;
    if (nOperation == R2_NOP || (IsVector() && nOperation != R2_COPYPEN)) {
        return false;
    }
    QPainter::CompositionMode eMode = QPainter::CompositionMode_SourceOver;
    switch (nOperation) {
    case R2_XORPEN:
        eMode = QPainter::RasterOp_SourceXorDestination;
        break;
    case R2_NOTXORPEN:
        eMode = QPainter::RasterOp_NotSourceXorDestination;
        break;
    case R2_NOT:
        eMode = QPainter::RasterOp_NotDestination;
        break;
    case R2_BLACK:
        eMode = QPainter::RasterOp_ClearDestination;
        break;
    case R2_WHITE:
        eMode = QPainter::RasterOp_SetDestination;
        break;
    default:
        break;
    }
    m_painter.setCompositionMode(eMode);
    return true;
}

QPointF CPainterSink::MapExactly(const CDrawState& state, POINT point) const {
    const CMapping& mapping = state.mapping;
    const SIZE window = mapping.GetWindowExtent();
    const SIZE viewport = mapping.GetViewportExtent();
    const POINT from = mapping.GetWindowOrigin();
    const POINT to = mapping.GetViewportOrigin();
    return {(static_cast<double>(point.x) - from.x) * viewport.cx / window.cx + to.x,
            (static_cast<double>(point.y) - from.y) * viewport.cy / window.cy + to.y};
}

QRectF CPainterSink::MapShape(const CDrawState& state, const RECT& rect) const {
    if (IsVector()) {
        return QRectF(Hold(MapExactly(state, {rect.left, rect.top})),
                      Hold(MapExactly(state, {rect.right, rect.bottom})))
            .normalized();
    }
    CRect pixels(state.mapping.ToDevice(POINT{rect.left, rect.top}).x,
                 state.mapping.ToDevice(POINT{rect.left, rect.top}).y,
                 state.mapping.ToDevice(POINT{rect.right, rect.bottom}).x,
                 state.mapping.ToDevice(POINT{rect.right, rect.bottom}).y);
    pixels.NormalizeRect();
    // An outline runs along the last pixels that belong to the shape; without one the fill covers them.
    const int nOutline = state.pen.lopnStyle == PS_NULL ? 0 : 1;
    return QRectF(Hold(QPointF(pixels.left, pixels.top)),
                  Hold(QPointF(pixels.right - nOutline, pixels.bottom - nOutline)));
}

bool CPainterSink::PrepareShape(const CDrawState& state, bool bSmooth) {
    if (!SetRasterOperation(state)) {
        return false;
    }
    SetSmooth(bSmooth);
    QPen pen = MakePen(state, bSmooth);
    pen.setJoinStyle(Qt::MiterJoin);
    m_painter.setPen(pen);
    m_painter.setBrush(state.brush.lbStyle == BS_NULL ? QBrush(Qt::NoBrush)
                                                      : QBrush(Ink(state.brush.lbColor)));
    if (bSmooth && pen.style() == Qt::NoPen) {
        m_painter.setTransform(QTransform());
    }
    return true;
}

void CPainterSink::Polygon(const CDrawState& state, std::span<const POINT> points) {
    if (!PrepareShape(state, m_eStyle != Style::pixels)) {
        return;
    }
    QPolygonF polygon;
    for (const POINT& point : points) {
        const POINT device = state.mapping.ToDevice(point);
        polygon << Hold(IsVector() ? MapExactly(state, point) : QPointF(device.x, device.y));
    }
    m_painter.drawPolygon(polygon);
}

void CPainterSink::Rectangle(const CDrawState& state, const RECT& rect) {
    const QRectF shape = MapShape(state, rect);
    if (!HasPixels(shape) || !PrepareShape(state, IsVector())) {
        return;
    }
    if (shape.isNull()) {
        m_painter.drawPoint(shape.topLeft());
    } else {
        m_painter.drawRect(shape);
    }
}

void CPainterSink::Ellipse(const CDrawState& state, const RECT& rect) {
    if (m_eStyle == Style::pixels && state.pen.lopnStyle == PS_NULL && state.brush.lbStyle != BS_NULL &&
        state.nRasterOperation == R2_COPYPEN) {
        // Qt's fill alone leaves out the top row of pixels; an outline covers it.
        CDrawState outlined = state;
        outlined.pen = {PS_SOLID, {0, 0}, state.brush.lbColor};
        Ellipse(outlined, rect);
        return;
    }
    const QRectF shape = MapShape(state, rect);
    if (!HasPixels(shape) || !PrepareShape(state, m_eStyle != Style::pixels)) {
        return;
    }
    if (shape.isNull()) {
        m_painter.drawPoint(shape.topLeft());
    } else {
        m_painter.drawEllipse(shape);
    }
}

void CPainterSink::FillRect(const CDrawState& state, const RECT& rect, COLORREF color) {
    CDrawState fill = state;
    fill.pen.lopnStyle = PS_NULL;
    fill.nRasterOperation = R2_COPYPEN;
    fill.brush = {BS_SOLID, color, 0};
    Rectangle(fill, rect);
}

void CPainterSink::FocusRect(const CDrawState& state, const RECT& rect) {
    CDrawState frame = state;
    frame.pen = {PS_DOT, {0, 0}, 0xFFFFFF};
    frame.brush.lbStyle = BS_NULL;
    frame.nRasterOperation = R2_XORPEN;
    Rectangle(frame, rect);
}

void CPainterSink::Picture(const CDrawState& state, const RECT& rect, const CPixels& pixels) {
    QImage image(reinterpret_cast<const uchar*>(pixels.colors.data()), pixels.size.cx, pixels.size.cy,
                 QImage::Format_ARGB32);
    if (m_caps.nColors <= 2) {
        image = InGrey(image);
    }
    m_painter.setTransform(QTransform());
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QPointF first = MapExactly(state, {rect.left, rect.top});
    m_painter.drawImage(QRectF(first, MapExactly(state, {rect.right, rect.bottom})).normalized(), image);
}

void CPainterSink::Text(const CDrawState& state, POINT origin, std::string_view strBytes) {
    const CFontFace& face = CFontFace::Find(state.font);
    const QString strText = QString::fromStdU32String(DecodeFor(state.font, strBytes));
    if (state.nBackMode == OPAQUE) {
        const SIZE size = MeasureText(state.font, strBytes);
        const RECT cell{origin.x, origin.y, Sum(origin.x, size.cx), Sum(origin.y, size.cy)};
        FillRect(state, cell, state.backColor);
    }
    const double dScale = state.mapping.GetScaleY();
    const double dEm = face.GetEm(state.font.lfHeight) * dScale;
    QPointF baseline = MapExactly(state, origin);
    baseline.ry() += face.GetAscent() * dEm;
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    m_painter.setRenderHint(QPainter::Antialiasing, true);
    if (IsVector()) {
        m_painter.setTransform(QTransform());
        m_painter.setPen(Ink(state.textColor));
        m_painter.setFont(face.AtSize(static_cast<int>(std::lround(dEm))));
        m_painter.drawText(baseline, strText);
        return;
    }
    // Whole-pixel baselines keep the horizontal strokes of small text crisp.
    const double dUnit = dEm / CFontFace::REFERENCE_SIZE;
    m_painter.setTransform(QTransform(dUnit, 0, 0, dUnit, baseline.x(), std::round(baseline.y())));
    m_painter.fillPath(face.GetOutlines(strText), Ink(state.textColor));
}

} // namespace tessara
