#include "tessara/platform/qt/windows/Centring.h"

#include <QEvent>
#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace tessara {

namespace {

bool IsPlaced(const QWidget& window) {
    return window.windowHandle() && window.windowHandle()->isExposed();
}

void Put(QWidget& window, const QWidget* pOver) {
    const QRect screen = window.screen()->availableGeometry();
    const bool bOver = pOver && pOver->isVisible() && !pOver->isMinimized();
    QRect place = window.frameGeometry();
    place.moveCenter(bOver ? pOver->frameGeometry().center() : screen.center());
    place.moveLeft(std::max(screen.left(), std::min(place.left(), screen.right() - place.width() + 1)));
    place.moveTop(std::max(screen.top(), std::min(place.top(), screen.bottom() - place.height() + 1)));
    window.move(place.topLeft());
}

/// Keeps a window in the middle of one that is being shown. Ends when the window is active and the other one
/// placed: what moves after that is moved by the user.
class CFollower : public QObject {
public:
    CFollower(QWidget& window, QWidget& over) : QObject(&window), m_window(window), m_over(over) {
        m_window.installEventFilter(this);
        m_over.installEventFilter(this);
    }

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override {
        const QEvent::Type eType = pEvent->type();
        const bool bMoved = eType == QEvent::Move || eType == QEvent::Resize || eType == QEvent::Show;
        if (pWatched == &m_over && bMoved) {
            Put(m_window, &m_over);
        } else if (pWatched == &m_window && eType == QEvent::WindowActivate && IsPlaced(m_over)) {
            Put(m_window, &m_over); // by now the desktop's frame round it is known
            deleteLater();
        }
        return false;
    }

private:
    QWidget& m_window; ///< the parent of this object
    QWidget& m_over;   ///< the owner of the window, which outlives it
};

} // namespace

void StopCentring(const QWidget& window) {
    for (QObject* const pChild : window.children()) {
        if (dynamic_cast<CFollower*>(pChild)) {
            delete pChild;
            return;
        }
    }
}

void Centre(QWidget& window, QWidget* pOver) {
    StopCentring(window);
    Put(window, pOver);
    if (pOver && !IsPlaced(*pOver) && window.isWindow() && window.parentWidget() &&
        window.parentWidget()->window() == pOver) {
        new CFollower(window, *pOver); // belongs to the window
    }
}

} // namespace tessara
