#include <QBuffer>
#include <QPixmap>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/drawing/PageSink.h"
#include "tessara/platform/qt/windows/Peer.h"

void CWnd::SaveImage(const char* pszPath) const {
    const QByteArray bytes = tessara::OnPeer(*this, [](tessara::CPeer& peer) {
        const tessara::CPeer::CEventScope scope;
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        peer.GetWidget().grab().save(&buffer, "PNG");
        return buffer.data();
    });
    if (bytes.isEmpty()) {
        AfxThrowInvalidArgException();
    }
    tessara::WriteFile(pszPath, bytes);
}
