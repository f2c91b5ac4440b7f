#include "tessara/platform/qt/application/DisplayProbe.h"

#include <csignal>
#include <cstdlib>
#include <future>
#include <memory>
#include <string_view>
#include <thread>

#include <xcb/xcb.h>

namespace tessara {

namespace {

/// The signals of the process are for its own threads.
class CSignalsBlocked {
public:
    CSignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    ~CSignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    CSignalsBlocked(const CSignalsBlocked&) = delete;
    CSignalsBlocked& operator=(const CSignalsBlocked&) = delete;

private:
    sigset_t m_before{};
};

} // namespace

bool IsDisplayRemote() {
    const char* const pszDisplay = std::getenv("DISPLAY");
    const std::string_view strDisplay = pszDisplay ? pszDisplay : "";
    return !strDisplay.empty() && strDisplay.front() != ':' && strDisplay.front() != '/' &&
           !strDisplay.starts_with("unix:");
}

bool DisplayAnswers(std::chrono::milliseconds limit) {
    // The thread owns all that it uses, for it may outlive this call.
    auto pAnswer = std::make_shared<std::promise<bool>>();
    std::future<bool> answer = pAnswer->get_future();
    {
        const CSignalsBlocked blocked;
        std::thread([pAnswer] {
            xcb_connection_t* const pConnection = xcb_connect(nullptr, nullptr);
            pAnswer->set_value(xcb_connection_has_error(pConnection) == 0);
            xcb_disconnect(pConnection);
        }).detach();
    }
    return answer.wait_for(limit) == std::future_status::ready && answer.get();
}

} // namespace tessara
