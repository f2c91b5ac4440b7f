#pragma once

#include <QImage>
#include <memory>

#include "tessara/platform/qt/drawing/PainterSink.h"

namespace tessara {

/// The backing image of a window, at its size in pixels.
class CWindowSurface {
public:
    /// A white image; one pixel that nobody sees where the window has no extent. Throws CMemoryException.
    CWindowSurface(QSize pixels, double dDotsPerInch);

    QSize GetSize() const { return {m_caps.size.cx, m_caps.size.cy}; }
    const CDeviceCaps& GetCaps() const { return m_caps; }
    void Fill(QColor color);
    /// Where to draw; valid until the next GetImage.
    CPainterSink& GetSink();
    /// The picture as it is now; ends drawing for the moment, so that it is not copied.
    const QImage& GetImage();

private:
    QImage m_image;
    CDeviceCaps m_caps;
    std::unique_ptr<CPainterSink> m_pSink; ///< after the image: it draws on it
};

} // namespace tessara
