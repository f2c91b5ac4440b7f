#include "tessara/platform/qt/windows/Peer.h"

#include <QApplication>
#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <cmath>
#include <utility>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

namespace {

QHash<const QWidget*, CPeer*>& Peers() {
    static auto* const s_pPeers = new QHash<const QWidget*, CPeer*>;
    return *s_pPeers;
}

QPointer<CPeer> g_pUnderPointer;
std::optional<Qt::KeyboardModifiers> g_keyModifiers; ///< of the key event that is being handled

/// Makes a peer the one under the pointer while an event of the mouse is handled, and then the one before it
/// again.
class CPointerScope {
public:
    CPointerScope(CPeer& peer) : m_pPrevious(std::exchange(g_pUnderPointer, QPointer(&peer))) {}
    ~CPointerScope() { g_pUnderPointer = m_pPrevious; }
    CPointerScope(const CPointerScope&) = delete;
    CPointerScope& operator=(const CPointerScope&) = delete;

private:
    QPointer<CPeer> m_pPrevious; ///< which a handler may destroy
};

UINT HeldKeys(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
    UINT nKeys = 0;
    nKeys |= buttons & Qt::LeftButton ? MK_LBUTTON : 0U;
    nKeys |= buttons & Qt::RightButton ? MK_RBUTTON : 0U;
    nKeys |= buttons & Qt::MiddleButton ? MK_MBUTTON : 0U;
    nKeys |= modifiers & Qt::ShiftModifier ? MK_SHIFT : 0U;
    nKeys |= modifiers & Qt::ControlModifier ? MK_CONTROL : 0U;
    return nKeys;
}

LPARAM PackPoint(QPointF point, double dRatio) {
    return MAKELPARAM(static_cast<int>(std::floor(point.x() * dRatio)),
                      static_cast<int>(std::floor(point.y() * dRatio)));
}

/// Where a mouse event happened in a widget. Qt rounds the position there to its own units, which are several
/// pixels of a dense screen; the one in the window is exact, unless a program has made the event itself.
QPointF ExactPosition(const QMouseEvent& event, const QWidget& widget) {
    const QPointF exact = event.scenePosition() - widget.mapTo(widget.window(), QPointF());
    const QPointF off = exact - event.position();
    return std::abs(off.x()) < 1 && std::abs(off.y()) < 1 ? exact : event.position();
}

/// The messages of a button: pressed, released, pressed twice.
struct CButtonMessages {
    Qt::MouseButton eButton;
    UINT nDown;
    UINT nUp;
    UINT nDouble;
};
constexpr CButtonMessages BUTTONS[] = {{Qt::LeftButton, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK},
                                       {Qt::RightButton, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDOWN},
                                       {Qt::MiddleButton, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDOWN}};

UINT MouseMessage(QEvent::Type eType, Qt::MouseButton eButton) {
    if (eType == QEvent::MouseMove) {
        return WM_MOUSEMOVE;
    }
    for (const CButtonMessages& button : BUTTONS) {
        if (button.eButton == eButton) {
            return eType == QEvent::MouseButtonPress     ? button.nDown
                   : eType == QEvent::MouseButtonRelease ? button.nUp
                                                         : button.nDouble;
        }
    }
    return WM_NULL;
}

} // namespace

int CPeer::CEventScope::s_nDepth = 0;

CPeer::CPeer(const CWindowDescription& description, QWidget* pWidget, QWidget* pClient)
    : QObject(pWidget), m_hWnd(description.hWnd), m_pWidget(pWidget), m_pClient(pClient ? pClient : pWidget),
      m_image(*this), m_questions(description.hWnd) {
    Peers().insert(m_pWidget, this);
    m_pWidget->installEventFilter(this);
    if (m_pClient != m_pWidget) {
        m_pClient->installEventFilter(this);
    }
    if (description.dwStyle & WS_CHILD) {
        m_pWidget->setObjectName(QString::number(description.nID));
    }
}

CPeer::~CPeer() {
    // The record goes last, after another thread's handlers perhaps, and the widget may go with its parent's
    // before the window's own end has come that far: nobody may find this peer there meanwhile.
    ChangeWindow(m_hWnd, [this](CWindowRecord& record) {
        record.pPeer = record.pPeer == this ? nullptr : record.pPeer;
    });
    Peers().remove(m_pWidget);
}

CPeer* CPeer::Find(HWND hWnd) {
    const auto record = FindWindow(hWnd);
    return record ? record->pPeer : nullptr;
}

CPeer* CPeer::Of(const QWidget* pWidget) {
    while (pWidget) {
        if (CPeer* const pPeer = Peers().value(pWidget)) {
            return pPeer;
        }
        pWidget = pWidget->parentWidget();
    }
    return nullptr;
}

CPeer* CPeer::UnderPointer() {
    return g_pUnderPointer;
}

Qt::KeyboardModifiers CPeer::KeyModifiers() {
    return g_keyModifiers.value_or(QGuiApplication::keyboardModifiers());
}

void CPeer::Notify(UINT nCode) {
    const auto record = FindWindow(m_hWnd);
    if (record && record->hParent) {
        Tell(record->hParent, WM_COMMAND, MAKEWPARAM(record->nID, nCode), reinterpret_cast<LPARAM>(m_hWnd));
    }
}

void CPeer::Ask(HWND hAsked, EQuestion eKind, CQuestion question) {
    const auto record = FindWindow(hAsked);
    if (!record) {
        return;
    }
    if (!record->pOwner->IsOfThisThread()) {
        m_questions.Post(hAsked, eKind, std::move(question));
        return;
    }
    const HWND hWnd = m_hWnd;
    const CAnswer answer = question();
    if (answer && FindWindow(hWnd)) { // the handler may have destroyed it
        answer();
    }
}

void CPeer::AskParent(EQuestion eKind, CQuestion question) {
    const auto record = FindWindow(m_hWnd);
    if (record && record->hParent) {
        Ask(record->hParent, eKind, std::move(question));
    }
}

void CPeer::Invalidate(bool bErase) {
    m_image.Outdate(bErase);
    m_pClient->update();
}

void CPeer::PaintNow() {
    if (m_image.IsOutOfDate() && m_pClient->isVisible()) {
        m_image.Update();
        m_pClient->update();
    }
}

bool CPeer::OnMouseMessage(UINT nMessage, const QMouseEvent& event) {
    const CPointerScope scope(*this);
    m_pointer.reset();
    const WPARAM nHit = static_cast<WPARAM>(MAKELPARAM(HTCLIENT, static_cast<int>(nMessage)));
    const bool bShaped =
        Tell(m_hWnd, WM_SETCURSOR, reinterpret_cast<WPARAM>(m_hWnd), static_cast<LPARAM>(nHit)).bHandled;
    const CReply reply = Tell(m_hWnd, nMessage, HeldKeys(event.buttons(), event.modifiers()),
                              PackPoint(ExactPosition(event, *m_pClient), GetRatio()));
    if (!FindWindow(m_hWnd)) {
        return true; // the handler destroyed the window
    }
    if (m_pointer) {
        m_pClient->setCursor(*m_pointer);
    } else if (!bShaped && m_pClient->testAttribute(Qt::WA_SetCursor) && m_image.IsShown()) {
        m_pClient->unsetCursor();
    }
    return reply.bHandled;
}

bool CPeer::OnMouse(QEvent& event) {
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const UINT nMessage = MouseMessage(event.type(), mouse.button());
    return nMessage != WM_NULL && OnMouseMessage(nMessage, mouse);
}

bool CPeer::OnWheel(const QWheelEvent& event) {
    const int nDelta = event.angleDelta().y();
    if (nDelta == 0) {
        return false;
    }
    const WPARAM nWord = MAKEWPARAM(HeldKeys(event.buttons(), event.modifiers()), static_cast<UINT>(nDelta));
    return Tell(m_hWnd, WM_MOUSEWHEEL, nWord, PackPoint(event.globalPosition(), GetRatio())).bHandled;
}

bool CPeer::CameFromChild() const {
    const QWidget* const pFocus = QApplication::focusWidget();
    return pFocus && m_pWidget->isAncestorOf(pFocus) && Of(pFocus) != this;
}

bool CPeer::OnKey(const QKeyEvent& event, bool bDown) {
    if (CameFromChild()) {
        return false; // the window with the focus was asked, and those around it with it
    }
    const UINT nKey = ToVirtualKey(event.key(), event.modifiers());
    const MSG message{m_hWnd, bDown ? WM_KEYDOWN : WM_KEYUP, nKey, MAKELPARAM(std::max(1, event.count()), 0)};
    const auto record = FindWindow(m_hWnd);
    if (!record || nKey == 0) {
        return false;
    }
    if (bDown && record->pOwner->IsOfThisThread()) {
        g_keyModifiers = event.modifiers();
        bool bTaken = true;
        RunGuarded([&] { bTaken = PreTranslate(message); });
        g_keyModifiers.reset();
        if (bTaken || !FindWindow(m_hWnd)) {
            return true;
        }
    }
    bool bHandled = Tell(m_hWnd, message.message, message.wParam, message.lParam).bHandled;
    if (bDown && !event.text().isEmpty()) {
        for (const char ch : EncodeWindows1252(event.text().toStdU32String())) {
            bHandled |= Tell(m_hWnd, WM_CHAR, static_cast<BYTE>(ch), message.lParam).bHandled;
        }
    }
    return bHandled;
}

void CPeer::OnResize() {
    m_image.Outdate(true);
    const QSize pixels = m_image.GetPixelSize();
    const UINT nType = m_pWidget->isMaximized() ? SIZE_MAXIMIZED : SIZE_RESTORED;
    Tell(m_hWnd, WM_SIZE, nType, MAKELPARAM(pixels.width(), pixels.height()));
}

bool CPeer::OnChange(QEvent& event) {
    switch (event.type()) {
    case QEvent::WindowStateChange:
        if (m_pWidget->isMinimized()) {
            Tell(m_hWnd, WM_SIZE, SIZE_MINIMIZED);
        }
        break;
    case QEvent::ActivationChange:
        if (m_pWidget->isWindow()) {
            Tell(m_hWnd, WM_ACTIVATE, m_pWidget->isActiveWindow() ? WA_ACTIVE : WA_INACTIVE);
        }
        break;
    case QEvent::EnabledChange:
        Tell(m_hWnd, WM_ENABLE, m_pWidget->isEnabled());
        break;
    case QEvent::PaletteChange:
        Tell(m_hWnd, WM_SYSCOLORCHANGE);
        m_image.Outdate(true);
        break;
    default:
        break;
    }
    return false;
}

bool CPeer::OnWindowEvent(QEvent& event) {
    switch (event.type()) {
    case QEvent::Close:
        event.ignore(); // the window's handler decides
        Tell(m_hWnd, WM_CLOSE);
        return true;
    case QEvent::Show:
    case QEvent::Hide:
        if (!event.spontaneous()) {
            Tell(m_hWnd, WM_SHOWWINDOW, event.type() == QEvent::Show);
        }
        return false;
    case QEvent::Move: {
        const QPoint place = static_cast<const QMoveEvent&>(event).pos();
        Tell(m_hWnd, WM_MOVE, 0, PackPoint(place, GetRatio()));
        return false;
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        Tell(m_hWnd, event.type() == QEvent::FocusIn ? WM_SETFOCUS : WM_KILLFOCUS);
        return false;
    case QEvent::Leave:
        Tell(m_hWnd, WM_MOUSELEAVE);
        return false;
    case QEvent::ContextMenu: {
        const auto& menu = static_cast<const QContextMenuEvent&>(event);
        return Tell(m_hWnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_hWnd),
                    PackPoint(menu.globalPos(), GetRatio()))
            .bHandled;
    }
    default:
        return OnChange(event);
    }
}

bool CPeer::eventFilter(QObject* pWatched, QEvent* pEvent) {
    if (!FindWindow(m_hWnd)) {
        return false; // being destroyed
    }
    const CEventScope scope;
    const bool bClient = pWatched == m_pClient;
    switch (pEvent->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return bClient && OnMouse(*pEvent);
    case QEvent::Wheel:
        return bClient && OnWheel(static_cast<const QWheelEvent&>(*pEvent));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return pWatched == m_pWidget &&
               OnKey(static_cast<const QKeyEvent&>(*pEvent), pEvent->type() == QEvent::KeyPress);
    case QEvent::Paint:
        return bClient && m_image.Paint();
    case QEvent::Resize:
        if (bClient) {
            OnResize();
        }
        return false;
    default:
        return pWatched == m_pWidget && OnWindowEvent(*pEvent);
    }
}

QString ToQString(std::string_view strBytes) {
    const std::u32string strText = DecodeText(strBytes);
    return QString::fromUcs4(strText.data(), static_cast<qsizetype>(strText.size()));
}

CString ToCString(const QString& strText) {
    return CString(strText.toStdString());
}

} // namespace tessara
