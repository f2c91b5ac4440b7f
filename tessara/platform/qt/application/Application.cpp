#include "tessara/platform/qt/application/Application.h"

#include <QApplication>
#include <QThread>
#include <cerrno>
#include <chrono>
#include <mutex>
#include <string>

#include "tessara/platform/gdi/GraphicsException.h"
#include "tessara/platform/qt/application/DisplayProbe.h"
#include "tessara/platform/qt/application/HostScope.h"
#include "tessara/platform/qt/application/PlatformChoice.h"
#include "tessara/platform/ui/threads/Mailbox.h"

namespace tessara {

namespace {

/// The application object of a program that has made none. Not deleted: windows and fonts of other static
/// objects may outlive any place to do so.
struct COwnApplication {
    std::vector<char*> arguments; ///< Qt keeps references to these two
    int nArguments;
    QApplication* pApplication;
    std::string strUnreached; ///< the displays that the user wants windows on, when none can be reached
};

COwnApplication* g_pOwn = nullptr;

/// While the object is made, other threads may see it and must not use it yet.
std::mutex& StartLock() {
    static auto* const s_pLock = new std::mutex;
    return *s_pLock;
}

/// Leaves out a server that keeps a drawing waiting. A program that wants windows waits, as everywhere.
void LeaveOutSilentDisplay(CPlatformChoice& choice) {
    constexpr auto PATIENCE = std::chrono::milliseconds(1000);
    if (choice.WantsXServer() && IsDisplayRemote() && !DisplayAnswers(PATIENCE)) {
        choice.LeaveOutXServer();
    }
}

COwnApplication* MakeOwn(std::vector<char*> arguments, ENeed eNeed) {
    if (!CMailbox::IsMainThread()) {
        throw CGraphicsException(CGraphicsException::wrongThread,
                                 "nothing can be drawn before the main thread has made a surface");
    }
    auto* const pOwn = new COwnApplication;
    CPlatformChoice choice(arguments);
    if (eNeed < ENeed::desktop) {
        LeaveOutSilentDisplay(choice);
    }
    static char s_szOption[] = "-platform";
    static QByteArray s_platforms;
    s_platforms = choice.GetList();
    arguments.insert(arguments.begin() + 1, {s_szOption, s_platforms.data()});
    pOwn->nArguments = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    pOwn->arguments = std::move(arguments);
    {
        const CHostScope scope;
        pOwn->pApplication = new QApplication(pOwn->nArguments, pOwn->arguments.data());
    }
    QApplication::setQuitOnLastWindowClosed(false); // programs say when they end
    if (choice.IsFallback(QGuiApplication::platformName())) {
        pOwn->strUnreached = choice.Describe();
    }
    return pOwn;
}

/// The caller holds the lock, and there is an application object.
void Check(ENeed eNeed) {
    const QCoreApplication* const pApplication = QCoreApplication::instance();
    if (eNeed >= ENeed::drawing && !qobject_cast<const QGuiApplication*>(pApplication)) {
        throw CGraphicsException(
            CGraphicsException::wrongApplication,
            "the program's QCoreApplication has no fonts to draw with: a QGuiApplication has");
    }
    if (eNeed >= ENeed::windows && !qobject_cast<const QApplication*>(pApplication)) {
        throw CGraphicsException(CGraphicsException::wrongApplication,
                                 "the program's QGuiApplication shows no windows: a QApplication does");
    }
    if (eNeed >= ENeed::windows && pApplication->thread() != QThread::currentThread()) {
        throw CGraphicsException(
            CGraphicsException::wrongThread,
            "another thread than the main one has made the program's application object");
    }
    if (eNeed >= ENeed::desktop && g_pOwn && g_pOwn->pApplication == pApplication &&
        !g_pOwn->strUnreached.empty()) {
        throw CGraphicsException(CGraphicsException::noDisplay,
                                 "there is no display to show a window on (" + g_pOwn->strUnreached + ')');
    }
}

void EnsureWith(std::vector<char*> arguments, ENeed eNeed) {
    if (!QCoreApplication::instance()) {
        g_pOwn = MakeOwn(std::move(arguments), eNeed);
    }
    Check(eNeed);
}

} // namespace

void EnsureApplication(ENeed eNeed) {
    const std::lock_guard lock(StartLock());
    EnsureWith({program_invocation_name}, eNeed);
}

std::vector<char*> StartApplication(std::vector<char*> arguments) {
    if (arguments.empty()) {
        arguments.push_back(program_invocation_name);
    }
    const std::lock_guard lock(StartLock());
    const bool bStarted = QCoreApplication::instance() != nullptr;
    EnsureWith(arguments, ENeed::windows);
    if (!bStarted) {
        arguments.assign(g_pOwn->arguments.begin(), g_pOwn->arguments.begin() + g_pOwn->nArguments);
    }
    return arguments;
}

} // namespace tessara
