#include "tessara/platform/ui/threads/MainPump.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <climits>
#include <optional>
#include <vector>

#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/windows/PaintScope.h"
#include "tessara/platform/qt/windows/WindowBlock.h"
#include "tessara/platform/ui/threads/Dispatch.h"
#include "tessara/platform/ui/threads/Loop.h"

namespace tessara {

namespace {

/// The descriptor that wakes the main thread; below zero before there is a loop.
std::atomic<int> g_nWake = -1;

/// A running loop of the main thread.
struct CRunningLoop {
    CRunningLoop(EMainLoop eKind, const std::function<bool()>& fnEnd) : eLoop(eKind), fnCondition(fnEnd) {}

    EMainLoop eLoop;
    const std::function<bool()>& fnCondition;
    QEventLoop loop;
};

/// Serves the main thread's mailbox from its event loop.
class CMainPump : public QObject {
public:
    CMainPump() : m_notifier(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC), QSocketNotifier::Read) {
        connect(&m_notifier, &QSocketNotifier::activated, this, [this] { OnWake(); });
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                [this] { OnIdle(); });
        g_nWake = static_cast<int>(m_notifier.socket());
        WakeMainThread(); // for what came before
    }

    bool Run(EMainLoop eLoop, const std::function<bool()>& fnCondition, const CDeadline& deadline);
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    bool WaitInPaint(const std::function<bool()>& fnCondition, const CDeadline& deadline);

    /// A loop that is the innermost one to the end of the scope, whatever ends it.
    struct CInnermost {
        CInnermost(CMainPump& pump, CRunningLoop& running) : m_pump(pump) { m_pump.Enter(running); }
        ~CInnermost() { m_pump.Leave(); }
        CInnermost(const CInnermost&) = delete;
        CInnermost& operator=(const CInnermost&) = delete;
        CMainPump& m_pump;
    };

    void Enter(CRunningLoop& running);
    void Leave();
    void OnWake();
    void DispatchSome();
    void OnIdle();
    /// Whether the innermost loop's condition holds.
    bool HasEnded() const { return !m_loops.empty() && m_loops.back()->fnCondition(); }
    bool IsWaiting() const { return !m_loops.empty() && m_loops.back()->eLoop == EMainLoop::waiting; }

    QSocketNotifier m_notifier;
    std::vector<CRunningLoop*> m_loops; ///< the innermost last
    bool m_bIdle = false;
};

void CMainPump::OnIdle() {
    if (!m_loops.empty() && !IsWaiting() && !m_bIdle) {
        const CPeer::CEventScope scope;
        m_bIdle = true; // a message box of a handler waits, too
        RunGuarded(&RunIdle);
        m_bIdle = false;
    }
}

/// Takes what has woken the main thread.
void TakeWake() {
    std::uint64_t nCount = 0;
    [[maybe_unused]] const auto nRead = read(g_nWake, &nCount, sizeof nCount);
}

/// Waits until the main thread is woken; false when the deadline passed first.
bool AwaitWake(const CDeadline& deadline) {
    int nMilliseconds = -1;
    if (deadline) {
        const auto rest =
            std::chrono::ceil<std::chrono::milliseconds>(*deadline - std::chrono::steady_clock::now());
        nMilliseconds = static_cast<int>(std::clamp<std::int64_t>(rest.count(), 0, INT_MAX));
    }
    pollfd wake{g_nWake, POLLIN, 0};
    const bool bWoken = poll(&wake, 1, nMilliseconds) != 0;
    TakeWake();
    return bWoken;
}

bool HasCalls(const CMailbox& mailbox) {
    const std::lock_guard lock(SharedLock());
    return mailbox.HasCalls();
}

void CMainPump::OnWake() {
    TakeWake();
    const CPeer::CEventScope scope;
    CMailbox::OfMainThread()->ServeCalls();
    if (!IsWaiting()) {
        DispatchSome();
    }
    if (HasEnded()) {
        m_loops.back()->loop.exit();
    }
}

void CMainPump::DispatchSome() {
    // Not without end: painting and input come between.
    constexpr int MAX_MESSAGES = 64;
    CMailbox& mailbox = *CMailbox::OfMainThread();
    for (int i = 0; i < MAX_MESSAGES; ++i) {
        if (HasEnded()) {
            return; // what follows is for the loop around this one
        }
        const auto message = mailbox.Take();
        if (!message) {
            return;
        }
        DispatchPosted(*message);
    }
    WakeMainThread();
}

void CMainPump::Enter(CRunningLoop& running) {
    m_loops.push_back(&running);
    if (running.eLoop == EMainLoop::waiting) {
        qApp->installEventFilter(this);
    }
    WakeMainThread(); // what was posted before this loop ran
}

void CMainPump::Leave() {
    m_loops.pop_back();
    if (!IsWaiting()) {
        qApp->removeEventFilter(this);
    }
    WakeMainThread(); // the loop around this one looks at its own condition
}

/// Waits within a paint event: calls are served, or two waits could block each other, and nothing else. An
/// event loop would let the widget be painted, resized or deleted under its paint.
bool CMainPump::WaitInPaint(const std::function<bool()>& fnCondition, const CDeadline& deadline) {
    std::optional<CPaintHold> hold; // from the first call on: its end paints the window anew
    CMailbox& mailbox = *CMailbox::OfMainThread();
    bool bEnded = false;
    for (bool bInTime = true; bInTime && !bEnded;) {
        if (!hold && HasCalls(mailbox)) {
            hold.emplace();
        }
        mailbox.ServeCalls();
        bEnded = fnCondition();
        bInTime = bEnded || AwaitWake(deadline);
    }
    WakeMainThread(); // for the loops around this one
    return bEnded || fnCondition();
}

bool CMainPump::Run(EMainLoop eLoop, const std::function<bool()>& fnCondition, const CDeadline& deadline) {
    if (eLoop == EMainLoop::waiting && CPaintScope::IsInside()) {
        return WaitInPaint(fnCondition, deadline);
    }
    const CPaintHold hold; // for a message box that a handler opens there
    CMailbox::OfMainThread()->ServeCalls();
    if (fnCondition()) {
        return true;
    }
    CRunningLoop running(eLoop, fnCondition);
    bool bLate = false;
    QTimer timer;
    if (deadline) {
        const auto rest = *deadline - std::chrono::steady_clock::now();
        timer.setSingleShot(true);
        connect(&timer, &QTimer::timeout, &running.loop, [&] {
            bLate = true;
            running.loop.exit();
        });
        timer.start(
            std::max(std::chrono::ceil<std::chrono::milliseconds>(rest), std::chrono::milliseconds(0)));
    }
    {
        const CInnermost innermost(*this, running);
        do {
            running.loop.exec();
        } while (!bLate && !fnCondition());
    }
    return !bLate || fnCondition();
}

bool CMainPump::eventFilter(QObject* pWatched, QEvent* pEvent) {
    if (!IsWaiting() || !IsInput(pEvent->type()) || !pWatched->isWidgetType()) {
        return false;
    }
    // Input for a window of the thread that waits is lost, as when it is busy; other threads' windows get
    // theirs.
    const CPeer* const pPeer = CPeer::Of(static_cast<const QWidget*>(pWatched));
    const auto record = pPeer ? FindWindow(pPeer->GetHandle()) : std::nullopt;
    if (!record || record->pOwner != CMailbox::OfMainThread()) {
        return false;
    }
    pEvent->ignore();
    return true;
}

CMainPump& Pump() {
    EnsureApplication(ENeed::events);
    static auto* const s_pPump = new CMainPump;
    return *s_pPump;
}

} // namespace

void WakeMainThread() {
    const int nWake = g_nWake;
    const std::uint64_t nOne = 1;
    if (nWake >= 0) {
        [[maybe_unused]] const auto nWritten = write(nWake, &nOne, sizeof nOne);
    }
}

bool HasMainLoop() {
    return g_nWake >= 0;
}

bool RunMainLoop(EMainLoop eLoop, const std::function<bool()>& fnCondition, const CDeadline& deadline) {
    return Pump().Run(eLoop, fnCondition, deadline);
}

void EnsureMainPump() {
    Pump();
}

} // namespace tessara
