#include "tessara/platform/qt/windows/BackingImage.h"

#include <cmath>
#include <utility>

#include "tessara/platform/qt/windows/PaintScope.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

QSize CBackingImage::GetPixelSize() const {
    const QWidget& client = m_peer.GetClient();
    const double dRatio = m_peer.GetRatio();
    return {static_cast<int>(std::lround(client.width() * dRatio)),
            static_cast<int>(std::lround(client.height() * dRatio))};
}

QColor CBackingImage::GetGround() const {
    const QWidget& client = m_peer.GetClient();
    return m_ground.value_or(client.palette().color(client.backgroundRole()));
}

CWindowSurface& CBackingImage::GetSurface() {
    if (!m_pSurface || m_pSurface->GetSize() != GetPixelSize()) {
        const double dDotsPerInch = m_peer.GetWidget().logicalDpiY() * m_peer.GetRatio();
        m_pSurface = std::make_shared<CWindowSurface>(GetPixelSize(), dDotsPerInch);
        m_pSurface->Fill(GetGround());
    }
    return *m_pSurface;
}

void CBackingImage::ShowDrawing() {
    m_bProgramPaints = true;
    m_peer.GetClient().update();
}

void CBackingImage::Outdate(bool bErase) {
    m_bInvalid = true;
    m_bErase |= bErase;
}

void CBackingImage::Update() {
    const HWND hWnd = m_peer.GetHandle();
    const auto record = FindWindow(hWnd);
    if (!m_bInvalid || m_bPainting || !record) {
        return;
    }
    const bool bHere = record->pOwner->IsOfThisThread();
    // An object of the layer's own paints nothing; nor does one of another thread whose map does not say so.
    if (!record->bPaints && (!bHere || !HasOwnObject(hWnd))) {
        m_bInvalid = m_bProgramPaints = false;
    } else if (bHere) {
        PaintHere();
    } else {
        m_peer.Ask(hWnd, EQuestion::paint, [hWnd] { return PaintOnItsThread(hWnd); });
    }
}

void CBackingImage::PaintHere() {
    m_bInvalid = false;
    m_bPainting = true;
    if (std::exchange(m_bErase, false) && m_pSurface) {
        m_pSurface->Fill(GetGround());
    }
    m_bProgramPaints = Tell(m_peer.GetHandle(), WM_PAINT).bHandled;
    m_bPainting = false;
}

std::function<void()> CBackingImage::PaintOnItsThread(HWND hWnd) {
    if (CSurfaceScope::Find(hWnd)) {
        return nullptr; // its handler is on the stack; the end of that sees to what is out of date then
    }
    const CFreshImage fresh = OnPeer(hWnd, [](CPeer& peer) { return peer.GetImage().Begin(); });
    if (!fresh.pSurface) {
        return nullptr;
    }
    bool bHandled = false;
    {
        const CSurfaceScope painted(hWnd, *fresh.pSurface);
        bHandled = Tell(hWnd, WM_PAINT).bHandled;
    }
    fresh.pSurface->GetImage(); // ends the drawing of this thread
    return [hWnd, fresh, bHandled] { CPeer::Find(hWnd)->GetImage().End(fresh, bHandled); };
}

/// A fresh image to paint, or none when that has been done since it was asked for.
CBackingImage::CFreshImage CBackingImage::Begin() {
    if (!m_bInvalid) {
        return {};
    }
    m_bInvalid = false;
    const bool bKept = !std::exchange(m_bErase, false) && m_pSurface;
    const double dDotsPerInch = m_peer.GetWidget().logicalDpiY() * m_peer.GetRatio();
    const auto pSurface = std::make_shared<CWindowSurface>(GetPixelSize(), dDotsPerInch);
    pSurface->Fill(GetGround());
    if (bKept) {
        pSurface->Copy(m_pSurface->GetImage());
    }
    return {pSurface, ++m_nBegun};
}

void CBackingImage::End(const CFreshImage& painted, bool bHandled) {
    if (painted.nNumber > m_nShown) {
        m_nShown = painted.nNumber;
        m_pSurface = painted.pSurface;
        m_bProgramPaints = bHandled;
    } else {
        m_bInvalid = true; // a call that the thread served meanwhile has painted: who was the later?
    }
    m_peer.GetClient().update(); // and asks again, if it has become out of date
}

bool CBackingImage::Paint() {
    QWidget& client = m_peer.GetClient();
    {
        const CPaintScope scope(client);
        Update();
    }
    if (!m_bProgramPaints || !m_pSurface) {
        return false;
    }
    QPainter painter(&client);
    const QImage& image = m_pSurface->GetImage();
    if (m_pSurface->GetSize() == GetPixelSize()) {
        painter.drawImage(QRectF(client.rect()), image);
    } else {
        painter.fillRect(client.rect(), GetGround());
        painter.drawImage(QRectF(QPointF(), QSizeF(image.size()) / m_peer.GetRatio()), image);
    }
    return true;
}

} // namespace tessara
