#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "tessara/plot/ZoomWindow.h"

namespace tessara {

/// What a plot shows: a data rectangle, or nothing for the whole plot.
using CZoomState = std::optional<CZoomWindow>;

/// The zoom states that the user has been through, for going back and forward.
///
/// Holds at least the present state. States are compared and given back bit by bit. The oldest are forgotten
/// beyond MAX_STATES.
class CZoomHistory {
public:
    static constexpr std::size_t MAX_STATES = 300;

    explicit CZoomHistory(const CZoomState& present = {}) : m_states{present} {}

    const CZoomState& GetPresent() const { return m_states[m_nPresent]; }
    /// Makes a state the present one and forgets those that were ahead; nothing happens when it is so
    /// already.
    void Add(const CZoomState& state);
    /// The same, in place of the present state.
    void Replace(const CZoomState& state);

    bool CanGoBack() const { return m_nPresent > 0; }
    bool CanGoForward() const { return m_nPresent + 1 < m_states.size(); }
    /// Go one state back or forward, where there is one, and return the present one.
    const CZoomState& GoBack();
    const CZoomState& GoForward();

private:
    std::vector<CZoomState> m_states;
    std::size_t m_nPresent = 0;
};

} // namespace tessara
