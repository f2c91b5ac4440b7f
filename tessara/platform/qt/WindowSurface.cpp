#include "tessara/platform/qt/WindowSurface.h"

#include <functional>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/Peer.h"
#include "tessara/platform/ui/Mailbox.h"
#include "tessara/platform/ui/PeerSeam.h"

namespace tessara {

CWindowSurface::CWindowSurface(QSize pixels, double dDotsPerInch) : m_image(pixels, QImage::Format_RGB32) {
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

/// Draws on the backing image of a window, wherever it is called from, as long as there is one.
class CSurfaceSink : public CDrawSink {
public:
    explicit CSurfaceSink(HWND hWnd) : m_hWnd(hWnd) {}

    CDeviceCaps GetCaps() const override {
        return OnMainThread([&] {
            CPeer* const pPeer = CPeer::Find(m_hWnd);
            return pPeer ? pPeer->GetSurface().GetCaps() : CDeviceCaps();
        });
    }
    COLORREF ReadPixel(POINT device) const override {
        return OnMainThread([&] {
            CPeer* const pPeer = CPeer::Find(m_hWnd);
            return pPeer ? pPeer->GetSurface().GetSink().ReadPixel(device) : CLR_INVALID;
        });
    }
    void Polyline(const CDrawState& state, std::span<const POINT> points) override {
        Draw([&](CDrawSink& sink) { sink.Polyline(state, points); });
    }
    void Polygon(const CDrawState& state, std::span<const POINT> points) override {
        Draw([&](CDrawSink& sink) { sink.Polygon(state, points); });
    }
    void Rectangle(const CDrawState& state, const RECT& rect) override {
        Draw([&](CDrawSink& sink) { sink.Rectangle(state, rect); });
    }
    void Ellipse(const CDrawState& state, const RECT& rect) override {
        Draw([&](CDrawSink& sink) { sink.Ellipse(state, rect); });
    }
    void FillRect(const CDrawState& state, const RECT& rect, COLORREF color) override {
        Draw([&](CDrawSink& sink) { sink.FillRect(state, rect, color); });
    }
    void FocusRect(const CDrawState& state, const RECT& rect) override {
        Draw([&](CDrawSink& sink) { sink.FocusRect(state, rect); });
    }
    void Text(const CDrawState& state, POINT origin, std::string_view strBytes) override {
        Draw([&](CDrawSink& sink) { sink.Text(state, origin, strBytes); });
    }

private:
    template <class FUNCTION>
    void Draw(FUNCTION fnDraw) {
        OnMainThread([&] {
            if (CPeer* const pPeer = CPeer::Find(m_hWnd)) {
                fnDraw(pPeer->GetSurface().GetSink());
                pPeer->ShowDrawing();
            }
        });
    }

    HWND m_hWnd;
};

} // namespace

std::unique_ptr<CDrawSink> MakeWindowSink(HWND hWnd) {
    return std::make_unique<CSurfaceSink>(hWnd);
}

} // namespace tessara
