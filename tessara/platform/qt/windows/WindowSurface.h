#pragma once

#include <QImage>
#include <memory>

#include "tessara/platform/qt/drawing/PainterSink.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

namespace tessara {

/// An image of a window, at its size in pixels. Belongs to one thread at a time.
class CWindowSurface {
public:
    /// A white image; one pixel that nobody sees where the window has no extent. Throws CMemoryException.
    CWindowSurface(QSize pixels, double dDotsPerInch);

    QSize GetSize() const { return {m_caps.size.cx, m_caps.size.cy}; }
    const CDeviceCaps& GetCaps() const { return m_caps; }
    void Fill(QColor color);
    /// Puts a picture into its upper left corner.
    void Copy(const QImage& image);
    /// Where to draw; valid until the next GetImage.
    CPainterSink& GetSink();
    /// The picture as it is now; ends drawing for the moment, so that it is not copied.
    const QImage& GetImage();

private:
    QImage m_image;
    CDeviceCaps m_caps;
    std::unique_ptr<CPainterSink> m_pSink; ///< after the image: it draws on it
};

/// To its end the calling thread draws a window on this surface, whichever DC of the window it draws with.
class CSurfaceScope {
public:
    CSurfaceScope(HWND hWnd, CWindowSurface& surface);
    ~CSurfaceScope();
    CSurfaceScope(const CSurfaceScope&) = delete;
    CSurfaceScope& operator=(const CSurfaceScope&) = delete;

    /// The surface of that window here, or null.
    static CWindowSurface* Find(HWND hWnd);

private:
    HWND m_hWnd;
    CWindowSurface& m_surface;
    CSurfaceScope* m_pOuter;
};

} // namespace tessara
