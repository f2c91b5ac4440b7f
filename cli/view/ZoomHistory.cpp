#include "cli/view/ZoomHistory.h"

namespace tessara {

void CZoomHistory::Add(const CZoomState& state) {
    if (state == GetPresent()) {
        return;
    }
    m_states.resize(m_nPresent + 1);
    m_states.push_back(state);
    if (m_states.size() > MAX_STATES) {
        m_states.erase(m_states.begin());
    }
    m_nPresent = m_states.size() - 1;
}

void CZoomHistory::Replace(const CZoomState& state) {
    if (state != GetPresent()) {
        m_states.resize(m_nPresent + 1);
        m_states.back() = state;
    }
}

const CZoomState& CZoomHistory::GoBack() {
    m_nPresent -= CanGoBack();
    return GetPresent();
}

const CZoomState& CZoomHistory::GoForward() {
    m_nPresent += CanGoForward();
    return GetPresent();
}

} // namespace tessara
