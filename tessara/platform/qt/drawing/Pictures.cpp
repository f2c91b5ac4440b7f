#include "tessara/platform/qt/drawing/Pictures.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <cmath>

#include "tessara/platform/gdi/Bitmap.h"
#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/ui/threads/Mailbox.h"

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

CFilm::CFilm(UINT nID) {
    const CFileResource* const pResource = FindFileResource(EFileResource::animation, nID);
    if (pResource && m_renderer.load(BytesOf(*pResource))) {
        const QSize strip = m_renderer.defaultSize();
        m_nPictures = strip.height() > 0 ? strip.width() / strip.height() : 0;
    }
}

QPixmap CFilm::Draw(int nPicture, int nSide) {
    QPixmap pixmap(nSide, nSide);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const int nHeight = m_renderer.defaultSize().height();
    m_renderer.setViewBox(QRect(nPicture * nHeight, 0, nHeight, nHeight));
    m_renderer.render(&painter);
    return pixmap;
}

} // namespace tessara

BOOL CBitmap::LoadBitmap(UINT nID) {
    m_pPixels = tessara::OnMainThread([nID]() -> std::shared_ptr<const tessara::CPixels> {
        tessara::EnsureApplication();
        const QPixmap pixmap = tessara::LoadPicture(tessara::EFileResource::bitmap, nID,
                                                    qGuiApp->primaryScreen()->devicePixelRatio());
        if (pixmap.isNull()) {
            return nullptr;
        }
        const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
        const auto* const pColors = reinterpret_cast<const std::uint32_t*>(image.constBits());
        return std::make_shared<tessara::CPixels>(
            tessara::CPixels{{image.width(), image.height()},
                             {pColors, pColors + std::size_t(image.width()) * image.height()}});
    });
    m_bCreated = m_pPixels != nullptr;
    return m_bCreated;
}
