#include "tessara/platform/qt/drawing/SvgPicture.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace tessara {

namespace {

/// Draws a picture anew for each size and palette.
class CSvgIconEngine : public QIconEngine {
public:
    explicit CSvgIconEngine(std::string_view strSvg) : m_strSvg(strSvg) {}

    void paint(QPainter* pPainter, const QRect& rect, QIcon::Mode eMode, QIcon::State eState) override {
        pPainter->drawPixmap(
            rect, scaledPixmap(rect.size(), eMode, eState, pPainter->device()->devicePixelRatioF()));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode eMode, QIcon::State eState) override {
        return scaledPixmap(size, eMode, eState, 1);
    }
    /// The size is in pixels of the device, as the result is.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode eMode, QIcon::State, qreal) override {
        const auto eGroup = eMode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        return DrawSvg(m_strSvg, std::min(size.width(), size.height()), 1,
                       QApplication::palette().color(eGroup, QPalette::ButtonText));
    }
    QIconEngine* clone() const override { return new CSvgIconEngine(m_strSvg); }

private:
    std::string_view m_strSvg;
};

} // namespace

QPixmap DrawSvg(std::string_view strSvg, int nSize, double dRatio, QColor color) {
    QByteArray bytes(strSvg.data(), static_cast<qsizetype>(strSvg.size()));
    bytes.replace("currentColor", color.name().toLatin1());
    QSvgRenderer renderer(bytes);
    if (!renderer.isValid()) {
        return {};
    }
    const int nPixels = std::max(1, static_cast<int>(nSize * dRatio));
    QPixmap pixmap(nPixels, nPixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(dRatio);
    return pixmap;
}

QIcon SvgIcon(std::string_view strSvg) {
    return QIcon(new CSvgIconEngine(strSvg));
}

} // namespace tessara
