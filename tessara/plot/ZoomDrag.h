#pragma once

#include <optional>
#include <utility>

#include "tessara/platform/gdi/Geometry.h"
#include "tessara/platform/ui/windows/Wnd.h"

namespace tessara {

/// Dragging the rectangle of a plot that is to be zoomed into: the pointer is confined to the plot and a
/// rectangle follows it until the button is let go. Positions are pixels of the window.
///
///     if (m_drag.Begin(point, m_rcPlot, *this)) return; // on button down
///     m_drag.Move(point);                               // on mouse move
///     if (auto corners = m_drag.End(point)) ...         // on button up
class TESSARA_API CZoomDrag {
public:
    using CCorners = std::pair<CPoint, CPoint>; ///< where the drag began and where it ended

    /// Begins a drag in a window. False, and nothing has begun, outside the plot.
    bool Begin(CPoint point, const CRect& rcPlot, CWnd& wnd);
    bool IsUnderWay() const { return m_hWnd != nullptr; }
    void Move(CPoint point);
    /// Ends the drag. Corners on one row or column are none, and the user is told so.
    std::optional<CCorners> End(CPoint point);
    /// Ends the drag without corners.
    void Cancel();

    /// Call when a surface has been painted: when it is that of the window, the rectangle is drawn again.
    void OnPaint(CDC& dc) const;

    /// Inverts the outline of a rectangle given by two corners; doing it twice restores the window.
    static void InvertRectangle(CWnd& wnd, POINT a, POINT b);

private:
    void InvertLast() const;

    HWND m_hWnd = nullptr; ///< null when no drag is under way
    CPoint m_anchor;
    std::optional<CPoint> m_last; ///< the corner of the rectangle on the screen
};

} // namespace tessara
