#include "tessara/platform/ui/threads/Mailbox.h"

#include <algorithm>
#include <exception>
#include <set>
#include <utility>

#include "tessara/platform/ui/threads/MainPump.h"

namespace tessara {

namespace {

const std::thread::id MAIN_THREAD = std::this_thread::get_id();

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
    ~CThreadMailbox() { pMailbox->Close(); }
};

} // namespace

std::mutex& SharedLock() {
    static auto* const s_pLock = new std::mutex;
    return *s_pLock;
}

struct CMailbox::CCall {
    enum class EState { waiting, done, dropped };

    std::function<void()> fnCall;
    CMailbox* pCaller;
    EState eState = EState::waiting;
    std::exception_ptr pException;
};

const std::shared_ptr<CMailbox>& CMailbox::OfMainThread() {
    static auto* const s_pMailbox = [] {
        auto* const pMailbox = new std::shared_ptr<CMailbox>(std::make_shared<CMailbox>());
        (*pMailbox)->m_thread = MAIN_THREAD;
        return pMailbox;
    }();
    return *s_pMailbox;
}

const std::shared_ptr<CMailbox>& CMailbox::OfThisThread() {
    if (IsMainThread()) {
        return OfMainThread();
    }
    thread_local CThreadMailbox t_mailbox;
    return t_mailbox.pMailbox;
}

bool CMailbox::IsMainThread() {
    return std::this_thread::get_id() == MAIN_THREAD;
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
    {
        const std::lock_guard lock(SharedLock());
        if (m_bClosed) {
            return false;
        }
        m_calls.push_back(pCall);
        Wake();
    }
    pOwn->WaitUntil([&] { return pCall->eState != CCall::EState::waiting; });
    if (pCall->pException) {
        std::rethrow_exception(pCall->pException);
    }
    return pCall->eState == CCall::EState::done;
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
        pCall->eState = CCall::EState::done;
        pCall->pCaller->Wake();
    }
}

void CMailbox::Close() {
    const std::lock_guard lock(SharedLock());
    m_bClosed = true;
    m_posted.clear();
    for (const auto& pCall : std::exchange(m_calls, {})) {
        pCall->eState = CCall::EState::dropped;
        pCall->pCaller->Wake();
    }
}

void CMailbox::Wake() {
    if (m_thread == MAIN_THREAD) {
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
