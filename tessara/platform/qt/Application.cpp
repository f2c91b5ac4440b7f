#include "tessara/platform/qt/Application.h"

#include <QApplication>

namespace tessara {

namespace {

bool HasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

QApplication* MakeApplication(int& nArguments, char** ppszArguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !HasDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    auto* const pApplication = new QApplication(nArguments, ppszArguments);
    QApplication::setQuitOnLastWindowClosed(false); // programs say when they end
    return pApplication;
}

} // namespace

void EnsureApplication() {
    static int s_nArguments = 1;
    static char s_szName[] = "tessara";
    static char* s_arguments[] = {s_szName, nullptr};
    StartApplication(s_nArguments, s_arguments);
}

void StartApplication(int& nArguments, char** ppszArguments) {
    if (!QCoreApplication::instance()) {
        // Not deleted: windows and fonts of other static objects may outlive any place to do so.
        static QApplication* const s_pApplication = MakeApplication(nArguments, ppszArguments);
        Q_UNUSED(s_pApplication)
    }
}

} // namespace tessara
