#pragma once

#include <QCursor>
#include <QWidget>
#include <memory>
#include <optional>

#include "tessara/platform/qt/windows/BackingImage.h"
#include "tessara/platform/qt/windows/Questions.h"
#include "tessara/platform/ui/windows/PeerSeam.h"
#include "tessara/platform/ui/windows/WindowTable.h"
#include "tessara/platform/ui/windows/Wnd.h"

namespace tessara {

/// What stands behind a window: its widget, and the filter that turns the widget's events into messages.
///
/// The filter goes first. A message that a handler took ends there; any other event goes on to the widget, so
/// a control behaves as Qt's. Belongs to the main thread and to its widget, with which it dies.
class CPeer : public QObject {
public:
    /// The client widget is where children lie and where a program draws: the widget itself when null.
    CPeer(const CWindowDescription& description, QWidget* pWidget, QWidget* pClient = nullptr);
    ~CPeer() override;

    /// The peer of a window that exists, or null.
    static CPeer* Find(HWND hWnd);
    /// The peer of a widget or of the nearest one above it that has one, or null.
    static CPeer* Of(const QWidget* pWidget);
    /// The window whose mouse event is being handled, or null.
    static CPeer* UnderPointer();

    HWND GetHandle() const { return m_hWnd; }
    QWidget& GetWidget() const { return *m_pWidget; }
    QWidget& GetClient() const { return *m_pClient; }
    double GetRatio() const { return m_pWidget->devicePixelRatioF(); }

    /// Tells the parent of a notification of this control.
    void Notify(UINT nCode);
    /// The same as WM_NOTIFY with a notice of the control's kind, which begins with an NMHDR hdr.
    template <class NOTICE>
    void NotifyWith(NOTICE notice, UINT nCode) {
        AskParent(EQuestion::notice, [hWnd = m_hWnd, notice, nCode]() mutable -> CAnswer {
            SendNotice(hWnd, notice.hdr, nCode);
            return nullptr;
        });
    }

    /// Asks a window something: at once where it belongs to the main thread, else by a post.
    void Ask(HWND hAsked, EQuestion eKind, CQuestion question);
    /// Asks the parent, if there is one.
    void AskParent(EQuestion eKind, CQuestion question);
    CQuestions& GetQuestions() { return m_questions; }

    CBackingImage& GetImage() { return m_image; }
    virtual void Invalidate(bool bErase);
    void PaintNow();

    /// The font that the program gave the window, if it did.
    const std::optional<LOGFONT>& GetFont() const { return m_font; }
    void SetFont(const std::optional<LOGFONT>& font) { m_font = font; }

    /// The modifiers of the key event that is being handled, or of the keyboard.
    static Qt::KeyboardModifiers KeyModifiers();

    /// Sets the pointer's shape for the mouse event being handled and until the next.
    void SetPointer(const QCursor& cursor) { m_pointer = cursor; }

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

    /// Marks that a handler may be on the stack: widgets are then destroyed later.
    class CEventScope {
    public:
        CEventScope() { ++s_nDepth; }
        ~CEventScope() { --s_nDepth; }
        CEventScope(const CEventScope&) = delete;
        CEventScope& operator=(const CEventScope&) = delete;
        static bool IsInside() { return s_nDepth > 0; }

    private:
        static int s_nDepth;
    };

private:
    bool OnMouse(QEvent& event);
    bool OnMouseMessage(UINT nMessage, const class QMouseEvent& event);
    bool OnWheel(const class QWheelEvent& event);
    bool OnKey(const class QKeyEvent& event, bool bDown);
    /// Whether a key event is one that a child with the focus left to the widgets around it.
    bool CameFromChild() const;
    bool OnChange(QEvent& event);
    void OnResize();
    bool OnWindowEvent(QEvent& event);
    HWND m_hWnd;
    QWidget* m_pWidget;
    QWidget* m_pClient;
    std::optional<QCursor> m_pointer;
    std::optional<LOGFONT> m_font;
    CBackingImage m_image;
    CQuestions m_questions;
};

/// Runs a function on the peer of a window, on the main thread; a default result without window.
template <class FUNCTION>
auto OnPeer(HWND hWnd, FUNCTION fnPeer) {
    using Result = decltype(fnPeer(std::declval<CPeer&>()));
    return OnMainThread([&]() -> Result {
        CPeer* const pPeer = CPeer::Find(hWnd);
        if (pPeer) {
            return fnPeer(*pPeer);
        }
        return Result();
    });
}

template <class FUNCTION>
auto OnPeer(const CWnd& wnd, FUNCTION fnPeer) {
    return OnPeer(wnd.GetSafeHwnd(), fnPeer);
}

/// The same with the widget, which must be of that class.
template <class WIDGET, class FUNCTION>
auto OnWidget(const CWnd& wnd, FUNCTION fnWidget) {
    using Result = decltype(fnWidget(std::declval<WIDGET&>()));
    return OnPeer(wnd, [&](CPeer& peer) -> Result {
        auto* const pWidget = dynamic_cast<WIDGET*>(&peer.GetWidget());
        if (pWidget) {
            return fnWidget(*pWidget);
        }
        return Result();
    });
}

/// Bytes of the program as Qt's text and back (see Text.h).
QString ToQString(std::string_view strBytes);
CString ToCString(const QString& strText);

/// Connects a signal of a control's widget to a function, marking that handlers may be on the stack.
template <class SENDER, class SIGNAL, class FUNCTION>
void OnSignal(CPeer& peer, SENDER* pSender, SIGNAL pSignal, FUNCTION fnSlot) {
    QObject::connect(pSender, pSignal, &peer, [fnSlot](auto&&... arguments) {
        const CPeer::CEventScope scope;
        fnSlot(arguments...);
    });
}

/// The window number of a key that is pressed with these modifiers, or 0.
UINT ToVirtualKey(int nQtKey, Qt::KeyboardModifiers eModifiers);

/// Makes the main thread's pump, if there is none yet. Main thread.
void EnsureMainPump();

} // namespace tessara
