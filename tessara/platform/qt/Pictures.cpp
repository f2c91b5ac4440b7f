#include "tessara/platform/qt/Pictures.h"

#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

namespace tessara {

namespace {

QByteArray BytesOf(const CFileResource& resource) {
    return QByteArray::fromRawData(reinterpret_cast<const char*>(resource.bytes.data()),
                                   static_cast<qsizetype>(resource.bytes.size()));
}

QPixmap RenderSvg(const QByteArray& bytes, double dRatio) {
    QSvgRenderer renderer(bytes);
    if (!renderer.isValid()) {
        return {};
    }
    QPixmap pixmap((QSizeF(renderer.defaultSize()) * dRatio).toSize());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

} // namespace

QPixmap LoadPicture(EFileResource eKind, UINT nID, double dRatio) {
    const CFileResource* const pResource = FindFileResource(eKind, nID);
    if (!pResource) {
        return {};
    }
    const QByteArray bytes = BytesOf(*pResource);
    QPixmap pixmap = RenderSvg(bytes, dRatio);
    if (pixmap.isNull()) {
        pixmap.loadFromData(bytes);
        return pixmap;
    }
    pixmap.setDevicePixelRatio(dRatio);
    return pixmap;
}

QList<QPixmap> LoadAnimation(UINT nID, int nSide) {
    QList<QPixmap> pictures;
    const CFileResource* const pResource = FindFileResource(EFileResource::animation, nID);
    if (!pResource) {
        return pictures;
    }
    QSvgRenderer renderer(BytesOf(*pResource));
    const QSize strip = renderer.defaultSize();
    const int nPictures = strip.height() > 0 ? strip.width() / strip.height() : 0;
    for (int i = 0; i < nPictures; ++i) {
        QPixmap pixmap(nSide, nSide);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.setViewBox(QRect(i * strip.height(), 0, strip.height(), strip.height()));
        renderer.render(&painter);
        pictures.append(pixmap);
    }
    return pictures;
}

} // namespace tessara
