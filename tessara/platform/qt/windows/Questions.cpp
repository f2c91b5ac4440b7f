#include "tessara/platform/qt/windows/Questions.h"

#include <algorithm>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

void CQuestions::Post(HWND hAsked, EQuestion eKind, CQuestion question) {
    const auto fnSame = [&](const auto& waiting) { return waiting.second.eKind == eKind; };
    if (eKind != EQuestion::notice && std::any_of(m_waiting.begin(), m_waiting.end(), fnSame)) {
        return;
    }
    m_waiting[++m_nLast] = {hAsked, eKind, std::move(question)};
    if (!::PostMessage(hAsked, WM_PEER_QUESTION, reinterpret_cast<WPARAM>(m_hAsker), m_nLast)) {
        m_waiting.erase(m_nLast);
    }
}

CQuestion CQuestions::Take(LPARAM nNumber) {
    const auto node = m_waiting.extract(nNumber);
    return node ? std::move(node.mapped().question) : nullptr;
}

std::vector<std::pair<HWND, LPARAM>> CQuestions::GetWaiting() const {
    std::vector<std::pair<HWND, LPARAM>> waiting;
    for (const auto& [nNumber, question] : m_waiting) {
        waiting.emplace_back(question.hAsked, nNumber);
    }
    return waiting;
}

void AnswerQuestion(HWND hAsker, LPARAM nQuestion) {
    const CQuestion question =
        OnPeer(hAsker, [&](CPeer& peer) { return peer.GetQuestions().Take(nQuestion); });
    const CAnswer answer = question ? question() : nullptr;
    if (answer) {
        OnPeer(hAsker, [&](CPeer&) {
            const CPeer::CEventScope scope;
            answer();
        });
    }
}

bool SettleQuestions(HWND hWnd) {
    const auto waiting = OnPeer(hWnd, [](CPeer& peer) { return peer.GetQuestions().GetWaiting(); });
    for (const auto& [hAsked, nNumber] : waiting) {
        if (const auto record = FindWindow(hAsked)) {
            record->pOwner->Call([&, nQuestion = nNumber] { AnswerQuestion(hWnd, nQuestion); });
        }
    }
    return !waiting.empty();
}

void SettleOwnQuestions(HWND hWnd) {
    const auto record = FindWindow(hWnd);
    if (record && record->pOwner->IsOfThisThread() && !CMailbox::IsMainThread()) {
        SettleQuestions(hWnd);
    }
}

LRESULT SendNotice(HWND hControl, NMHDR& header, UINT nCode) {
    const auto record = FindWindow(hControl);
    if (!record || !record->hParent) {
        return 0;
    }
    header = {hControl, record->nID, nCode};
    return Tell(record->hParent, WM_NOTIFY, record->nID, reinterpret_cast<LPARAM>(&header)).lResult;
}

} // namespace tessara
