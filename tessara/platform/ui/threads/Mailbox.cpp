#include "tessara/platform/ui/threads/Mailbox.h"

#include <unistd.h>

#include <algorithm>
#include <exception>
#include <set>
#include <utility>

#include "tessara/platform/ui/threads/MainPump.h"
#include "tessara/platform/ui/windows/WindowEnd.h"

namespace tessara {

namespace {

/// The mailboxes of threads that wait now. Kept to the end of the process: threads may outlive static
/// objects.
std::multiset<CMailbox*>& Waiting() {
    static auto* const s_pWaiting = new std::multiset<CMailbox*>;
    return *s_pWaiting;
}

/// Among the waiting for as long as it lives. The caller holds the shared lock at both ends.
class CWaitingScope {
public:
    explicit CWaitingScope(CMailbox* pMailbox) : m_it(Waiting().insert(pMailbox)) {}
    ~CWaitingScope() { Waiting().erase(m_it); }
    CWaitingScope(const CWaitingScope&) = delete;
    CWaitingScope& operator=(const CWaitingScope&) = delete;

private:
    std::multiset<CMailbox*>::iterator m_it;
};

/// The same where the shared lock is not held; ends also when a handler that ran meanwhile throws.
class CUnlockedWaitingScope {
public:
    explicit CUnlockedWaitingScope(CMailbox* pMailbox) {
        const std::lock_guard lock(SharedLock());
        m_scope.emplace(pMailbox);
    }
    ~CUnlockedWaitingScope() {
        const std::lock_guard lock(SharedLock());
        m_scope.reset();
    }
    CUnlockedWaitingScope(const CUnlockedWaitingScope&) = delete;
    CUnlockedWaitingScope& operator=(const CUnlockedWaitingScope&) = delete;

private:
    std::optional<CWaitingScope> m_scope;
};

/// Closes the mailbox of a thread that ends.
struct CThreadMailbox {
    std::shared_ptr<CMailbox> pMailbox = std::make_shared<CMailbox>();
    ~CThreadMailbox() {
        pMailbox->Close();
        LeaveWindowsToMainThread(*pMailbox);
    }
};

/// The thread that the process began with.
bool IsFirstThread() {
    thread_local const bool t_bFirst = gettid() == getpid();
    return t_bFirst;
}

} // namespace

std::mutex& SharedLock() {
    static auto* const s_pLock = new std::mutex;
    return *s_pLock;
}

struct CMailbox::CCall {
    enum class EState { waiting, done, dropped };

    /// Sets the state and tells who waits for it. The caller holds the shared lock.
    void Finish(EState eNew) {
        eState = eNew;
        if (pCaller) {
            pCaller->Wake();
        }
    }

    std::function<void()> fnCall;
    CMailbox* pCaller; ///< null when nobody waits
    EState eState = EState::waiting;
    std::exception_ptr pException;
};

const std::shared_ptr<CMailbox>& CMailbox::OfMainThread() {
    static auto* const s_pMailbox =
        new std::shared_ptr<CMailbox>(std::make_shared<CMailbox>(std::thread::id()));
    return *s_pMailbox;
}

const std::shared_ptr<CMailbox>& CMailbox::OfThisThread() {
    if (IsMainThread()) {
        return OfMainThread();
    }
    thread_local CThreadMailbox t_mailbox;
    return t_mailbox.pMailbox;
}

void CMailbox::BecomeMainThread() {
    OfMainThread()->m_thread = std::this_thread::get_id();
}

bool CMailbox::IsOfThisThread() const {
    const std::thread::id thread = m_thread;
    return thread == std::thread::id() ? IsFirstThread() : thread == std::this_thread::get_id();
}

bool CMailbox::Post(const MSG& message) {
    const std::lock_guard lock(SharedLock());
    if (m_bClosed) {
        return false;
    }
    m_posted.push_back(message);
    Wake();
    return true;
}

bool CMailbox::Call(const std::function<void()>& fnCall) {
    if (IsOfThisThread()) {
        fnCall();
        return true;
    }
    const auto& pOwn = OfThisThread();
    const auto pCall = std::make_shared<CCall>(CCall{fnCall, pOwn.get(), CCall::EState::waiting, nullptr});
    if (!Push(pCall)) {
        return false;
    }
    pOwn->WaitUntil([&] { return pCall->eState != CCall::EState::waiting; });
    if (pCall->pException) {
        std::rethrow_exception(pCall->pException);
    }
    return pCall->eState == CCall::EState::done;
}

void CMailbox::Send(const std::function<void()>& fnCall) {
    Push(std::make_shared<CCall>(CCall{fnCall, nullptr, CCall::EState::waiting, nullptr}));
}

bool CMailbox::Push(const std::shared_ptr<CCall>& pCall) {
    const std::lock_guard lock(SharedLock());
    if (m_bClosed || (m_bLoopEnded && m_nServing == 0)) {
        return false;
    }
    m_calls.push_back(pCall);
    Wake();
    return true;
}

bool CMailbox::WaitUntil(const std::function<bool()>& fnCondition, const CDeadline& deadline) {
    const auto fnLocked = [&] {
        const std::lock_guard lock(SharedLock());
        return fnCondition();
    };
    if (!IsMainThread()) {
        return WaitHere(fnCondition, deadline);
    }
    if (fnLocked()) {
        return true;
    }
    const CUnlockedWaitingScope waiting(this);
    const CServing serving(*this);
    return RunMainLoop(EMainLoop::waiting, fnLocked, deadline);
}

bool CMailbox::WaitHere(const std::function<bool()>& fnCondition, const CDeadline& deadline) {
    for (;;) {
        ServeCalls();
        std::unique_lock lock(SharedLock());
        const CWaitingScope waiting(this);
        const auto fnWake = [&] { return !m_calls.empty() || fnCondition(); };
        if (!deadline) {
            m_wake.wait(lock, fnWake);
        } else if (!m_wake.wait_until(lock, *deadline, fnWake)) {
            return false;
        }
        if (fnCondition()) {
            return true;
        }
    }
}

std::optional<MSG> CMailbox::Take() {
    const std::lock_guard lock(SharedLock());
    if (m_posted.empty()) {
        return std::nullopt;
    }
    const MSG message = m_posted.front();
    m_posted.pop_front();
    return message;
}

void CMailbox::ServeCalls() {
    for (;;) {
        std::shared_ptr<CCall> pCall;
        {
            const std::lock_guard lock(SharedLock());
            if (m_calls.empty()) {
                return;
            }
            pCall = std::move(m_calls.front());
            m_calls.pop_front();
        }
        try {
            pCall->fnCall();
        } catch (...) {
            pCall->pException = std::current_exception();
        }
        const std::lock_guard lock(SharedLock());
        m_bNudged = true; // a loop beneath may have been waiting for what the call did
        pCall->Finish(CCall::EState::done);
    }
}

void CMailbox::Close() {
    const std::lock_guard lock(SharedLock());
    m_bClosed = true;
    m_posted.clear();
    DropCalls();
}

void CMailbox::DropCalls() {
    for (const auto& pCall : std::exchange(m_calls, {})) {
        pCall->Finish(CCall::EState::dropped);
    }
}

void CMailbox::Nudge() {
    const std::lock_guard lock(SharedLock());
    m_bNudged = true;
    Wake();
}

void CMailbox::ForgetNudge() {
    const std::lock_guard lock(SharedLock());
    m_bNudged = false;
}

void CMailbox::SetLoopEnded(bool bEnded) {
    const std::lock_guard lock(SharedLock());
    m_bLoopEnded = bEnded;
    if (bEnded && m_nServing == 0) {
        DropCalls();
    }
}

CMailbox::CServing::CServing(CMailbox& mailbox) : m_mailbox(mailbox) {
    const std::lock_guard lock(SharedLock());
    ++m_mailbox.m_nServing;
}

CMailbox::CServing::~CServing() {
    const std::lock_guard lock(SharedLock());
    if (--m_mailbox.m_nServing == 0 && m_mailbox.m_bLoopEnded) {
        m_mailbox.DropCalls(); // they came while it served
    }
}

CMailbox::CRefusal::CRefusal(CMailbox& mailbox) : m_mailbox(mailbox) {
    const std::lock_guard lock(SharedLock());
    ++m_mailbox.m_nRefusals;
}

CMailbox::CRefusal::~CRefusal() {
    const std::lock_guard lock(SharedLock());
    --m_mailbox.m_nRefusals;
}

void CMailbox::Wake() {
    if (this == OfMainThread().get()) {
        WakeMainThread();
    } else {
        m_wake.notify_all();
    }
}

std::size_t CMailbox::CountWaiting() {
    return Waiting().size();
}

void CMailbox::WakeAll() {
    for (CMailbox* pMailbox : Waiting()) {
        pMailbox->Wake();
    }
}

} // namespace tessara
