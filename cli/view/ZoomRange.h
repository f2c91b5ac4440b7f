#pragma once

#include "cli/view/ZoomHistory.h"

namespace tessara {

/// What a plot shows and all that it has to show, in data units: says what another step of zooming shows.
///
/// A step stays within the whole plot, and one that would show all of it on both axes gives the whole plot
/// itself. A step whose axes doubles or the scales' ticks could no longer divide changes nothing, nor does
/// one of an axis that is not finite.
class CZoomRange {
public:
    CZoomRange(const CZoomWindow& shown, const CZoomWindow& whole) : m_shown(shown), m_whole(whole) {}

    /// Multiplies the lengths of both axes; the point keeps its place on the screen unless the step meets an
    /// end of the whole plot.
    CZoomState Scaled(double dX, double dY, double dFactor) const;
    /// Moves by parts of the axes' lengths, to the right and up; stops at the ends of the whole plot.
    CZoomState Moved(double dRight, double dUp) const;
    /// Whether something of the whole plot lies in a window.
    bool Meets(const CZoomWindow& window) const;

private:
    CZoomState Settled(const CZoomWindow& window) const;

    CZoomWindow m_shown;
    CZoomWindow m_whole;
};

} // namespace tessara
