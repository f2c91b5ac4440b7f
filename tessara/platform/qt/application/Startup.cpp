#include <QApplication>

#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/frames/AppSeam.h"

// The start and the end of a program with windows.

namespace tessara {

std::vector<CString> StartWindowSystem(int argc, char** argv) {
    const std::vector<char*> arguments = StartApplication({argv, argv + argc});
    EnsureMainPump();
    return {arguments.begin() + 1, arguments.end()};
}

void SetApplicationName(const CString& strName) {
    QCoreApplication::setApplicationName(ToQString(strName.View()));
}

void FinishDestroying() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace tessara
