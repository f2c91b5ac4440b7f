#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "tessara/platform/ui/windows/WindowTypes.h"

class CWinThread;

namespace tessara {

/// Guards all mailboxes, events and the table of windows; held for moments, never while foreign code runs.
std::mutex& SharedLock();

using CDeadline = std::optional<std::chrono::steady_clock::time_point>;

/// What reaches one thread: calls that others send and wait for, and messages posted to it.
///
/// Whoever waits in a mailbox serves the calls sent to it, so two threads that call each other both get their
/// answer.
class CMailbox {
public:
    /// The calling thread's mailbox, made on first use and closed when the thread ends.
    static const std::shared_ptr<CMailbox>& OfThisThread();
    static const std::shared_ptr<CMailbox>& OfMainThread();
    static bool IsMainThread() { return OfMainThread()->IsOfThisThread(); }
    /// Makes the calling thread the main one. DEFAULT: the process's first, whichever loaded the library.
    static void BecomeMainThread();

    explicit CMailbox(std::thread::id thread = std::this_thread::get_id()) : m_thread(thread) {}

    bool IsOfThisThread() const;

    /// False when the thread has ended.
    bool Post(const MSG& message);
    /// Runs a function on the mailbox's thread and waits for its end; exceptions come through. False, and the
    /// function has not run, when the thread has ended or does not serve any more.
    bool Call(const std::function<void()>& fnCall);
    /// The same without waiting; exceptions are lost.
    void Send(const std::function<void()>& fnCall);

    /// Serves calls and waits until a condition is true. It is asked under the shared lock, any number of
    /// times and again after it was true, which it then must stay. False when it is not true and the deadline
    /// has passed. What it throws comes through and ends the wait.
    bool WaitUntil(const std::function<bool()>& fnCondition, const CDeadline& deadline = std::nullopt);

    /// The next posted message, if any.
    std::optional<MSG> Take();
    void ServeCalls();
    /// Drops what is in the box and lets nothing in any more.
    void Close();
    /// Makes a message loop of the thread ask again whether it has ended. From any thread.
    void Nudge();
    /// Whether that happened, or a call was served, since the last ForgetNudge. The caller holds the shared
    /// lock.
    bool IsNudged() const { return m_bNudged; }
    void ForgetNudge();

    /// The main thread's loop has ended, or begins: from then on calls are only served in a CServing, and
    /// others dropped.
    void SetLoopEnded(bool bEnded);
    class CServing;
    class CRefusal;
    /// Whether the thread may make windows. The caller holds the shared lock.
    bool TakesWindows() const { return !m_bClosed && m_nRefusals == 0; }

    /// The caller holds the shared lock.
    bool HasPosted() const { return !m_posted.empty(); }
    bool HasCalls() const { return !m_calls.empty(); }
    /// Makes the thread look at its condition again. The caller holds the shared lock.
    void Wake();
    /// Wakes every thread that waits. The caller holds the shared lock.
    static void WakeAll();
    /// How many waits there are now, one within another counted each. The caller holds the shared lock.
    static std::size_t CountWaiting();

private:
    struct CCall;

    bool Push(const std::shared_ptr<CCall>& pCall);
    void DropCalls();
    bool WaitHere(const std::function<bool()>& fnCondition, const CDeadline& deadline);

    std::atomic<std::thread::id> m_thread; ///< none: the process's first
    std::condition_variable m_wake;
    std::deque<std::shared_ptr<CCall>> m_calls;
    std::deque<MSG> m_posted;
    bool m_bClosed = false;
    bool m_bNudged = false;
    bool m_bLoopEnded = false;
    int m_nServing = 0;
    int m_nRefusals = 0;
};

/// A loop or a wait of the mailbox's thread, which serves calls also after SetLoopEnded.
class CMailbox::CServing {
public:
    explicit CServing(CMailbox& mailbox);
    ~CServing();
    CServing(const CServing&) = delete;
    CServing& operator=(const CServing&) = delete;

private:
    CMailbox& m_mailbox;
};

/// While it lives, the thread makes no windows.
class CMailbox::CRefusal {
public:
    explicit CRefusal(CMailbox& mailbox);
    ~CRefusal();
    CRefusal(const CRefusal&) = delete;
    CRefusal& operator=(const CRefusal&) = delete;

private:
    CMailbox& m_mailbox;
};

/// Runs a function on the main thread, directly when this is it, and gives its result: nothing, zero or false
/// when the main thread does not serve any more.
template <class FUNCTION>
auto OnMainThread(FUNCTION fnCall) {
    using Result = decltype(fnCall());
    if constexpr (std::is_void_v<Result>) {
        CMailbox::OfMainThread()->Call([&] { fnCall(); });
    } else {
        Result result{};
        CMailbox::OfMainThread()->Call([&] { result = fnCall(); });
        return result;
    }
}

} // namespace tessara
