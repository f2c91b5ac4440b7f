#include "tessara/platform/qt/windows/WindowSurface.h"

#include <utility>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/drawing/ForwardingSink.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/windows/PeerSeam.h"

namespace tessara {

CWindowSurface::CWindowSurface(QSize pixels, double dDotsPerInch)
    : m_image(pixels.expandedTo(QSize(1, 1)), QImage::Format_RGB32) {
    if (m_image.isNull()) {
        AfxThrowMemoryException();
    }
    m_image.fill(Qt::white);
    m_caps.dDotsPerInchX = dDotsPerInch;
    m_caps.dDotsPerInchY = dDotsPerInch;
    m_caps.size = {pixels.width(), pixels.height()};
}

void CWindowSurface::Fill(QColor color) {
    m_pSink.reset();
    m_image.fill(color);
}

void CWindowSurface::Copy(const QImage& image) {
    GetSink().GetPainter().drawImage(QPoint(0, 0), image);
    m_pSink.reset();
}

CPainterSink& CWindowSurface::GetSink() {
    if (!m_pSink) {
        m_pSink = std::make_unique<CPainterSink>(m_image, m_caps, CPainterSink::Style::pixels);
    }
    return *m_pSink;
}

const QImage& CWindowSurface::GetImage() {
    m_pSink.reset();
    return m_image;
}

namespace {

thread_local CSurfaceScope* t_pInnermost = nullptr;

/// Draws on the backing image of a window as long as there is one: on the main thread, or, while another
/// thread paints the window, there on the image that it paints.
class CSurfaceSink : public CForwardingSink {
public:
    explicit CSurfaceSink(HWND hWnd) : m_hWnd(hWnd) {}

private:
    void Forward(const CCall& fnCall, bool bDraws) const override {
        if (CWindowSurface* const pSurface = CSurfaceScope::Find(m_hWnd)) {
            fnCall(pSurface->GetSink());
            return;
        }
        OnPeer(m_hWnd, [&](CPeer& peer) {
            fnCall(peer.GetImage().GetSurface().GetSink());
            if (bDraws) {
                peer.GetImage().ShowDrawing();
            }
        });
    }

    HWND m_hWnd;
};

} // namespace

CSurfaceScope::CSurfaceScope(HWND hWnd, CWindowSurface& surface)
    : m_hWnd(hWnd), m_surface(surface), m_pOuter(std::exchange(t_pInnermost, this)) {}

CSurfaceScope::~CSurfaceScope() {
    t_pInnermost = m_pOuter;
}

CWindowSurface* CSurfaceScope::Find(HWND hWnd) {
    const CSurfaceScope* pScope = t_pInnermost;
    while (pScope && pScope->m_hWnd != hWnd) {
        pScope = pScope->m_pOuter;
    }
    return pScope ? &pScope->m_surface : nullptr;
}

std::unique_ptr<CDrawSink> MakeWindowSink(HWND hWnd) {
    return std::make_unique<CSurfaceSink>(hWnd);
}

} // namespace tessara
