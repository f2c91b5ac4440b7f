#include <QBuffer>
#include <QPixmap>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/drawing/PageSink.h"
#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

namespace {

QByteArray Grab(HWND hWnd) {
    return OnPeer(hWnd, [](CPeer& peer) {
        const CPeer::CEventScope scope;
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        peer.GetWidget().grab().save(&buffer, "PNG");
        return buffer.data();
    });
}

/// Waits for what a window of another thread and those in it were asked when they were painted; false when
/// there was nothing to wait for.
bool SettleAll(HWND hWnd) {
    bool bAsked = SettleQuestions(hWnd);
    for (const HWND hChild : ChildrenOf(hWnd)) {
        const auto child = FindWindow(hChild);
        if (child && (child->dwStyle & WS_CHILD)) {
            bAsked |= SettleAll(hChild);
        }
    }
    return bAsked;
}

} // namespace

} // namespace tessara

void CWnd::SaveImage(const char* pszPath) const {
    QByteArray bytes = tessara::Grab(m_hWnd);
    constexpr int MAX_ROUNDS = 3; // an answer may change what is asked next, such as the height of lines
    for (int i = 0; i < MAX_ROUNDS && tessara::SettleAll(m_hWnd); ++i) {
        bytes = tessara::Grab(m_hWnd);
    }
    if (bytes.isEmpty()) {
        AfxThrowInvalidArgException();
    }
    tessara::WriteFile(pszPath, bytes);
}
