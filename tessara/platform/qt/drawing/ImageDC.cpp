#include "tessara/platform/gdi/ImageDC.h"

#include <QBuffer>
#include <QImage>
#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/drawing/PageSink.h"

IMPLEMENT_DYNAMIC(CImageDC, CDC)

namespace tessara {

namespace {

constexpr double INCHES_PER_METRE = 1000 / 25.4;
constexpr std::size_t MAX_PALETTE = 256;

QImage MakeImage(int nWidth, int nHeight, double dDotsPerInch) {
    EnsureApplication();
    QImage image(nWidth, nHeight, QImage::Format_RGB32);
    if (image.isNull()) {
        AfxThrowMemoryException();
    }
    const int nDotsPerMetre = static_cast<int>(std::lround(dDotsPerInch * INCHES_PER_METRE));
    image.setDotsPerMeterX(nDotsPerMetre);
    image.setDotsPerMeterY(nDotsPerMetre);
    image.fill(Qt::white);
    return image;
}

CDeviceCaps ImageCaps(int nWidth, int nHeight, double dDotsPerInch) {
    CDeviceCaps caps;
    caps.dDotsPerInchX = dDotsPerInch;
    caps.dDotsPerInchY = dDotsPerInch;
    caps.size = {nWidth, nHeight};
    return caps;
}

} // namespace

/// An image with the painter that draws on it.
class CImageSink : private QImage, public CPainterSink {
public:
    CImageSink(int nWidth, int nHeight, double dDotsPerInch)
        : QImage(MakeImage(nWidth, nHeight, dDotsPerInch)),
          CPainterSink(static_cast<QImage&>(*this), ImageCaps(nWidth, nHeight, dDotsPerInch), Style::pixels) {
    }

    const QImage& GetImage() const { return *this; }
};

namespace {

/// The same picture with a palette, or a null image when it has too many colours. A palette image is quicker
/// to encode and smaller.
QImage WithPalette(const QImage& image) {
    QImage indexed(image.size(), QImage::Format_Indexed8);
    indexed.setDotsPerMeterX(image.dotsPerMeterX());
    indexed.setDotsPerMeterY(image.dotsPerMeterY());
    QList<QRgb> palette;
    std::unordered_map<QRgb, uchar> indices;
    QRgb last = 0;
    uchar nLast = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* pFrom = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        uchar* pTo = indexed.scanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            const QRgb rgb = pFrom[x] | 0xFF000000U;
            if (rgb != last) {
                const auto [it, bNew] = indices.try_emplace(rgb, static_cast<uchar>(palette.size()));
                if (bNew && indices.size() > MAX_PALETTE) {
                    return {};
                }
                if (bNew) {
                    palette.append(rgb);
                }
                last = rgb;
                nLast = it->second;
            }
            pTo[x] = nLast;
        }
    }
    indexed.setColorTable(palette);
    return indexed;
}

QByteArray EncodePng(const QImage& image) {
    const QImage indexed = WithPalette(image);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const QImage& chosen = indexed.isNull() ? image : indexed;
    if (!chosen.save(&buffer, "PNG")) {
        AfxThrowMemoryException();
    }
    return buffer.data();
}

} // namespace

} // namespace tessara

CImageDC::CImageDC(int nWidth, int nHeight, double dDotsPerInch) {
    auto pImage = std::make_unique<tessara::CImageSink>(std::max(nWidth, 1), std::max(nHeight, 1),
                                                        tessara::HoldResolution(dDotsPerInch));
    m_pImage = pImage.get();
    Attach(std::move(pImage));
    SetBkMode(TRANSPARENT);
}

CImageDC::~CImageDC() = default;

void CImageDC::SetSmooth(bool bSmooth) {
    using Style = tessara::CPainterSink::Style;
    m_pImage->SetStyle(bSmooth ? Style::smoothPixels : Style::pixels);
}

RECT CImageDC::GetClientRect() const {
    const SIZE size = GetSink()->GetCaps().size;
    return {0, 0, size.cx, size.cy};
}

IMAGEPIXELS CImageDC::GetPixels() const {
    const QImage& image = m_pImage->GetImage();
    return {reinterpret_cast<const std::uint32_t*>(image.constBits()), image.bytesPerLine(), image.width(),
            image.height()};
}

void CImageDC::SavePng(const char* pszPath) const {
    const QByteArray bytes = tessara::EncodePng(m_pImage->GetImage());
    tessara::WriteFile(pszPath, bytes);
}
