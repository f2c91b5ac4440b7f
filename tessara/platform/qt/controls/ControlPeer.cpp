#include "tessara/platform/qt/controls/ControlPeer.h"

#include <QApplication>

#include "tessara/platform/ui/threads/Dispatch.h"
#include "tessara/platform/ui/threads/MessageMap.h"

namespace tessara {

namespace {

COLORREF ToColorRef(const QColor& color) {
    return static_cast<COLORREF>(color.red() | color.green() << 8 | color.blue() << 16);
}

} // namespace

CControlPeer::CControlPeer(const CWindowDescription& description, QWidget* pWidget,
                           const CControlTraits& traits, QWidget* pClient)
    : CPeer(description, pWidget, pClient), m_traits(traits) {}

void CControlPeer::SetFocusCodes(UINT nSetFocus, UINT nKillFocus) {
    m_traits.nSetFocus = nSetFocus;
    m_traits.nKillFocus = nKillFocus;
}

void CControlPeer::Invalidate(bool bErase) {
    CPeer::Invalidate(bErase);
    if (GetWidget().isVisible()) {
        AskColors();
    }
}

bool CControlPeer::eventFilter(QObject* pWatched, QEvent* pEvent) {
    const bool bTaken = CPeer::eventFilter(pWatched, pEvent);
    if (pWatched != &GetWidget() || !FindWindow(GetHandle())) {
        return bTaken;
    }
    const CEventScope scope;
    if (pEvent->type() == QEvent::Show && !pEvent->spontaneous()) {
        AskColors();
    } else if (pEvent->type() == QEvent::FocusIn && m_traits.nSetFocus) {
        Notify(m_traits.nSetFocus);
    } else if (pEvent->type() == QEvent::FocusOut && m_traits.nKillFocus) {
        Notify(m_traits.nKillFocus);
    }
    return bTaken;
}

void CControlPeer::AskColors() {
    const auto record = FindWindow(GetHandle());
    if (m_traits.nColor == CControlTraits::NO_COLOR || !record || !record->hParent) {
        return;
    }
    const QPalette usual = QApplication::palette(&GetWidget());
    CDC dc; // without device: the handler sets its colours
    const COLORREF usualText = ToColorRef(usual.color(QPalette::WindowText));
    dc.SetTextColor(usualText);
    unpack::CControlColorQuestion question{&dc, record->pWnd, m_traits.nColor};
    const CReply reply = Ask(record->hParent, WM_CTLCOLOR, 0, reinterpret_cast<LPARAM>(&question));
    const auto* const pBrush = reinterpret_cast<HBRUSH>(reply.lResult);
    const COLORREF text = dc.GetState().textColor;
    const bool bGround = reply.bHandled && pBrush && pBrush->IsCreated();
    QPalette palette;
    if (bGround) {
        const QColor ground = ToQColor(pBrush->GetLogBrush().lbColor);
        palette.setColor(QPalette::Window, ground);
        palette.setColor(QPalette::Base, ground);
    }
    if (text != usualText) {
        palette.setColor(QPalette::WindowText, ToQColor(text));
        palette.setColor(QPalette::Text, ToQColor(text));
    }
    const bool bColored = bGround || text != usualText;
    if (bColored || m_bColored) {
        GetWidget().setPalette(palette);
        GetWidget().setAutoFillBackground(bGround);
    }
    m_bColored = bColored;
}

} // namespace tessara
