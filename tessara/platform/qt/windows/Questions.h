#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "tessara/platform/ui/threads/MessageMap.h"

namespace tessara {

/// What becomes of an answer, on the main thread; does not run when the peer that asked has gone. May be
/// empty.
using CAnswer = std::function<void()>;

/// What a peer wants to know of a window, asked on that window's thread.
using CQuestion = std::function<CAnswer()>;

/// A question that waits is not asked a second time, unless it tells of something that has happened.
enum class EQuestion { notice, paint, colors, height, lines };

/// The questions of one peer to windows of other threads, from their posting until the thread takes them.
///
/// The toolkit calls peers when it paints and when the user does something, and must not be entered anew
/// before they return: so they wait for nobody. What is not known yet is shown as it was. Main thread.
class CQuestions {
public:
    explicit CQuestions(HWND hAsker) : m_hAsker(hAsker) {}

    void Post(HWND hAsked, EQuestion eKind, CQuestion question);
    /// The question of that number, no longer waiting; empty when it has been taken.
    CQuestion Take(LPARAM nNumber);
    /// Who is asked, and the question's number; the oldest first.
    std::vector<std::pair<HWND, LPARAM>> GetWaiting() const;

private:
    struct CWaiting {
        HWND hAsked;
        EQuestion eKind;
        CQuestion question;
    };

    HWND m_hAsker;
    LPARAM m_nLast = 0;
    std::map<LPARAM, CWaiting> m_waiting;
};

/// Tells a control's parent, on the parent's thread, of a notice that begins with this header; the answer of
/// the handler.
LRESULT SendNotice(HWND hControl, NMHDR& header, UINT nCode);

} // namespace tessara
