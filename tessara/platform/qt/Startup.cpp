#include <QApplication>

#include "tessara/platform/qt/Application.h"
#include "tessara/platform/qt/Peer.h"
#include "tessara/platform/ui/AppSeam.h"

// The start and the end of a program with windows.

namespace tessara {

std::vector<CString> StartWindowSystem(int argc, char** argv) {
    static int s_nArguments = 0; // Qt keeps a reference to it
    s_nArguments = argc;
    StartApplication(s_nArguments, argv);
    EnsureMainPump();
    std::vector<CString> arguments;
    for (int i = 1; i < s_nArguments; ++i) {
        arguments.emplace_back(argv[i]);
    }
    return arguments;
}

void SetApplicationName(const CString& strName) {
    QCoreApplication::setApplicationName(ToQString(strName.View()));
}

void FinishDestroying() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace tessara
