#include "tessara/platform/qt/windows/WindowBlock.h"

#include <QApplication>
#include <QSet>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

bool IsInput(QEvent::Type eType) {
    switch (eType) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

namespace {

/// Swallows the input of blocked windows.
class CWindowBlock : public QObject {
public:
    static CWindowBlock& Get() {
        static auto* const s_pBlock = new CWindowBlock;
        return *s_pBlock;
    }

    bool Has(const QWidget& window) const { return m_blocked.contains(&window); }
    void Add(QWidget& window);
    void Remove(const QObject* pWindow);
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void HandOver(QWidget& window);
    /// Gives the keyboard to the window that is open over a blocked one: the newest that it owns, or what is
    /// open over that.
    void Raise(const QWidget& window) const;

    QSet<const QObject*> m_blocked;
};

void CWindowBlock::Add(QWidget& window) {
    if (m_blocked.isEmpty()) {
        qApp->installEventFilter(this);
    }
    m_blocked.insert(&window);
    connect(&window, &QObject::destroyed, this, [this](const QObject* pWindow) { Remove(pWindow); });
}

void CWindowBlock::Remove(const QObject* pWindow) {
    m_blocked.remove(pWindow);
    disconnect(pWindow, nullptr, this, nullptr);
    if (m_blocked.isEmpty()) {
        qApp->removeEventFilter(this);
    }
}

void CWindowBlock::Raise(const QWidget& window) const {
    const CPeer* const pPeer = CPeer::Of(&window);
    const std::vector<HWND> owned = pPeer ? ChildrenOf(pPeer->GetHandle()) : std::vector<HWND>();
    for (auto it = owned.rbegin(); it != owned.rend(); ++it) {
        const CPeer* const pOwned = CPeer::Find(*it);
        if (!pOwned || !pOwned->GetWidget().isWindow() || !pOwned->GetWidget().isVisible()) {
            continue;
        }
        if (Has(pOwned->GetWidget())) {
            Raise(pOwned->GetWidget());
        } else {
            pOwned->GetWidget().raise();
            pOwned->GetWidget().activateWindow();
        }
        return;
    }
}

/// A window manager may make a blocked window the active one, above all when it shows it only now. It hands
/// that on; afterwards, for Qt is still busy with the activation.
void CWindowBlock::HandOver(QWidget& window) {
    if (Has(window)) {
        QMetaObject::invokeMethod(
            &window,
            [this, &window] {
                if (Has(window) && window.isActiveWindow()) {
                    Raise(window);
                }
            },
            Qt::QueuedConnection);
    }
}

bool CWindowBlock::eventFilter(QObject* pWatched, QEvent* pEvent) {
    if (pEvent->type() == QEvent::WindowActivate && pWatched->isWidgetType()) {
        HandOver(*static_cast<QWidget*>(pWatched));
        return false;
    }
    if (!IsInput(pEvent->type()) || !pWatched->isWidgetType()) {
        return false;
    }
    const QWidget* const pWindow = static_cast<const QWidget*>(pWatched)->window();
    if (!Has(*pWindow)) {
        return false;
    }
    if (pEvent->type() == QEvent::MouseButtonPress) {
        Raise(*pWindow);
    }
    pEvent->ignore();
    return true;
}

} // namespace

void BlockWindow(QWidget& window, bool bBlock) {
    CWindowBlock& block = CWindowBlock::Get();
    if (block.Has(window) == bBlock) {
        return;
    }
    if (bBlock) {
        block.Add(window);
    } else {
        block.Remove(&window);
    }
    if (const CPeer* const pPeer = CPeer::Of(&window)) {
        Tell(pPeer->GetHandle(), WM_ENABLE, !bBlock);
    }
}

bool IsReachable(const QWidget& widget) {
    return widget.isEnabled() && !(widget.isWindow() && CWindowBlock::Get().Has(widget));
}

} // namespace tessara
