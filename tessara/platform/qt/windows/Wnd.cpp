#include "tessara/platform/ui/windows/Wnd.h"

#include <QApplication>
#include <QScreen>
#include <cmath>

#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/qt/dialogs/DialogLayout.h"
#include "tessara/platform/qt/drawing/TextRun.h"
#include "tessara/platform/qt/windows/Centring.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/qt/windows/WindowBlock.h"
#include "tessara/platform/qt/windows/WindowText.h"

// The operations of a window that touch its widget.

namespace tessara {

namespace {

POINT ToPixels(QPoint point, double dRatio) {
    return {static_cast<LONG>(std::lround(point.x() * dRatio)),
            static_cast<LONG>(std::lround(point.y() * dRatio))};
}

RECT ToPixels(const QRect& rect, double dRatio) {
    const POINT first = ToPixels(rect.topLeft(), dRatio);
    const POINT last = ToPixels(rect.topLeft() + QPoint(rect.width(), rect.height()), dRatio);
    return {first.x, first.y, last.x, last.y};
}

/// Moves a widget and gives it a size, both unless told not to: in pixels of the screen for a window, of its
/// parent for a child.
void Place(CPeer& peer, const RECT& rect, UINT nFlags) {
    QWidget& widget = peer.GetWidget();
    const QRect place = ToQRect(rect, peer.GetRatio());
    if (!(nFlags & SWP_NOSIZE)) {
        widget.resize(place.size());
    }
    if (!(nFlags & SWP_NOMOVE)) {
        StopCentring(widget);
        widget.move(place.topLeft());
    }
}

void Show(QWidget& widget, int nCmdShow) {
    switch (nCmdShow) {
    case SW_HIDE:
        widget.hide();
        break;
    case SW_SHOWMINIMIZED:
    case SW_MINIMIZE:
        widget.showMinimized();
        break;
    case SW_SHOWMAXIMIZED:
        widget.showMaximized();
        break;
    case SW_SHOWNORMAL:
    case SW_RESTORE:
        widget.showNormal();
        break;
    case SW_SHOWNOACTIVATE:
        widget.setAttribute(Qt::WA_ShowWithoutActivating);
        widget.show();
        widget.setAttribute(Qt::WA_ShowWithoutActivating, false);
        break;
    default:
        widget.show();
        break;
    }
}

CWnd* WindowOf(const QWidget* pWidget) {
    const CPeer* const pPeer = CPeer::Of(pWidget);
    return pPeer ? CWnd::FromHandle(pPeer->GetHandle()) : nullptr;
}

UINT ShowCommandOf(const QWidget& widget) {
    if (widget.isMinimized()) {
        return SW_SHOWMINIMIZED;
    }
    return widget.isMaximized() ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
}

} // namespace

} // namespace tessara

using tessara::CPeer;
using tessara::OnPeer;

void CWnd::SetWindowText(const char* pszText) {
    OnPeer(*this, [&](CPeer& peer) {
        const CPeer::CEventScope scope;
        tessara::SetText(peer.GetWidget(), tessara::ToQString(pszText ? pszText : ""));
        tessara::FitDialog(peer.GetWidget());
    });
}

void CWnd::GetWindowText(CString& strText) const {
    strText =
        OnPeer(*this, [&](CPeer& peer) { return tessara::ToCString(tessara::GetText(peer.GetWidget())); });
}

void CWnd::SetFont(CFont* pFont, BOOL) {
    OnPeer(*this, [&](CPeer& peer) {
        peer.SetFont(pFont ? std::optional(pFont->GetLogFont()) : std::nullopt);
        if (!pFont) {
            peer.GetWidget().setFont(QApplication::font());
            return;
        }
        const LOGFONT& font = pFont->GetLogFont();
        const auto& face = tessara::CFontFace::Find(font);
        peer.GetWidget().setFont(face.AtSize(
            std::max(1, static_cast<int>(std::lround(face.GetEm(font.lfHeight) / peer.GetRatio())))));
    });
}

BOOL CWnd::ShowWindow(int nCmdShow) {
    return OnPeer(*this, [&](CPeer& peer) -> BOOL {
        const CPeer::CEventScope scope;
        const bool bVisible = !peer.GetWidget().isHidden();
        tessara::Show(peer.GetWidget(), nCmdShow);
        return bVisible;
    });
}

BOOL CWnd::IsWindowVisible() const {
    return OnPeer(*this, [](CPeer& peer) -> BOOL { return peer.GetWidget().isVisible(); });
}

BOOL CWnd::IsIconic() const {
    return OnPeer(*this, [](CPeer& peer) -> BOOL { return peer.GetWidget().isMinimized(); });
}

BOOL CWnd::IsZoomed() const {
    return OnPeer(*this, [](CPeer& peer) -> BOOL { return peer.GetWidget().isMaximized(); });
}

BOOL CWnd::EnableWindow(BOOL bEnable) {
    return OnPeer(*this, [&](CPeer& peer) -> BOOL {
        const CPeer::CEventScope scope;
        QWidget& widget = peer.GetWidget();
        const bool bDisabled = !tessara::IsReachable(widget);
        if (widget.isWindow()) {
            tessara::BlockWindow(widget, !bEnable);
        } else {
            widget.setEnabled(bEnable != 0);
        }
        return bDisabled;
    });
}

BOOL CWnd::IsWindowEnabled() const {
    return OnPeer(*this, [](CPeer& peer) -> BOOL { return tessara::IsReachable(peer.GetWidget()); });
}

void CWnd::MoveWindow(int nX, int nY, int nWidth, int nHeight, BOOL) {
    SetWindowPos(nullptr, nX, nY, nWidth, nHeight, SWP_NOZORDER);
}

BOOL CWnd::SetWindowPos(const CWnd*, int nX, int nY, int nWidth, int nHeight, UINT nFlags) {
    return OnPeer(*this, [&](CPeer& peer) -> BOOL {
        const CPeer::CEventScope scope;
        tessara::Place(peer, {nX, nY, nX + nWidth, nY + nHeight}, nFlags);
        if (!(nFlags & SWP_NOZORDER)) {
            peer.GetWidget().raise();
        }
        if (nFlags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) {
            peer.GetWidget().setVisible((nFlags & SWP_SHOWWINDOW) != 0);
        }
        return TRUE;
    });
}

void CWnd::CenterWindow(CWnd* pAlternateOwner) {
    const CWnd* pOver = pAlternateOwner ? pAlternateOwner : GetParent();
    OnPeer(*this, [&](CPeer& peer) {
        CPeer* const pOwner = pOver ? CPeer::Find(pOver->GetSafeHwnd()) : nullptr;
        tessara::Centre(peer.GetWidget(), pOwner ? pOwner->GetWidget().window() : nullptr);
    });
}

void CWnd::GetWindowRect(RECT* pRect) const {
    *pRect = OnPeer(*this, [](CPeer& peer) {
        const QWidget& widget = peer.GetWidget();
        const QRect place = widget.isWindow() ? widget.frameGeometry()
                                              : QRect(widget.mapToGlobal(QPoint(0, 0)), widget.size());
        return tessara::ToPixels(place, peer.GetRatio());
    });
}

void CWnd::GetClientRect(RECT* pRect) const {
    *pRect = OnPeer(*this,
                    [](CPeer& peer) { return tessara::ToPixels(peer.GetClient().rect(), peer.GetRatio()); });
}

void CWnd::ClientToScreen(POINT* pPoint) const {
    const POINT origin = OnPeer(*this, [](CPeer& peer) {
        return tessara::ToPixels(peer.GetClient().mapToGlobal(QPoint(0, 0)), peer.GetRatio());
    });
    *pPoint = {pPoint->x + origin.x, pPoint->y + origin.y};
}

void CWnd::ScreenToClient(POINT* pPoint) const {
    POINT origin{0, 0};
    ClientToScreen(&origin);
    *pPoint = {pPoint->x - origin.x, pPoint->y - origin.y};
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* pPlacement) const {
    return OnPeer(*this, [&](CPeer& peer) -> BOOL {
        const QWidget& widget = peer.GetWidget();
        *pPlacement = {sizeof *pPlacement, 0, tessara::ShowCommandOf(widget), {-1, -1}, {-1, -1}, {}};
        const bool bNormal = (widget.windowState() & ~Qt::WindowActive) == Qt::WindowNoState;
        // Qt tells the normal place without the desktop's frame, which moving the window counts in.
        const QPoint frame = widget.geometry().topLeft() - widget.pos();
        const QRect normal = widget.normalGeometry().translated(-frame);
        pPlacement->rcNormalPosition =
            tessara::ToPixels(bNormal ? QRect(widget.pos(), widget.size()) : normal, peer.GetRatio());
        return TRUE;
    });
}

BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT* pPlacement) {
    return OnPeer(*this, [&](CPeer& peer) -> BOOL {
        const CPeer::CEventScope scope;
        tessara::Place(peer, pPlacement->rcNormalPosition, 0);
        tessara::Show(peer.GetWidget(), static_cast<int>(pPlacement->showCmd));
        return TRUE;
    });
}

void CWnd::BringWindowToTop() {
    OnPeer(*this, [](CPeer& peer) { peer.GetWidget().raise(); });
}

CWnd* CWnd::SetFocus() {
    CWnd* const pPrevious = GetFocus();
    OnPeer(*this, [](CPeer& peer) {
        const CPeer::CEventScope scope;
        peer.GetWidget().setFocus(Qt::OtherFocusReason);
    });
    return pPrevious;
}

CWnd* CWnd::GetFocus() {
    return tessara::OnMainThread([] { return tessara::WindowOf(QApplication::focusWidget()); });
}

CWnd* CWnd::SetCapture() {
    CWnd* const pPrevious = GetCapture();
    OnPeer(*this, [](CPeer& peer) { peer.GetClient().grabMouse(); });
    return pPrevious;
}

CWnd* CWnd::GetCapture() {
    return tessara::OnMainThread([] { return tessara::WindowOf(QWidget::mouseGrabber()); });
}

BOOL ReleaseCapture() {
    return tessara::OnMainThread([]() -> BOOL {
        QWidget* const pGrabber = QWidget::mouseGrabber();
        if (pGrabber) {
            pGrabber->releaseMouse();
        }
        return pGrabber != nullptr;
    });
}

BOOL CWnd::SetForegroundWindow() {
    return OnPeer(*this, [](CPeer& peer) -> BOOL {
        const CPeer::CEventScope scope;
        peer.GetWidget().window()->raise();
        peer.GetWidget().window()->activateWindow();
        return TRUE;
    });
}

void CWnd::InvalidateRect(const RECT*, BOOL bErase) {
    OnPeer(*this, [&](CPeer& peer) { peer.Invalidate(bErase != 0); });
}

void CWnd::UpdateWindow() {
    OnPeer(*this, [](CPeer& peer) {
        const CPeer::CEventScope scope;
        peer.PaintNow();
    });
    tessara::SettleQuestions(m_hWnd); // a window of another thread was asked to
}
