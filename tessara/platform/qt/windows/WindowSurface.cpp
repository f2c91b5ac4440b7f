#include "tessara/platform/qt/windows/WindowSurface.h"

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

/// Draws on the backing image of a window as long as there is one.
class CSurfaceSink : public CForwardingSink {
public:
    explicit CSurfaceSink(HWND hWnd) : m_hWnd(hWnd) {}

private:
    void Target(const CCall& fnCall, bool bDraws) const override {
        CPeer* const pPeer = CPeer::Find(m_hWnd);
        if (!pPeer) {
            return;
        }
        fnCall(pPeer->GetSurface().GetSink());
        if (bDraws) {
            pPeer->ShowDrawing();
        }
    }

    HWND m_hWnd;
};

} // namespace

std::unique_ptr<CDrawSink> MakeWindowSink(HWND hWnd) {
    return std::make_unique<CSurfaceSink>(hWnd);
}

} // namespace tessara
