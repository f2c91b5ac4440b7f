#pragma once

#include <optional>

#include "tessara/plot/PixelMap.h"
#include "tessara/plot/ZoomDrag.h"

namespace tessara {

/// Zoom-in mode of a plot whose renderer has none: the pointer shows it, and one drag ends it. The operations
/// that take messages say whether they took one.
class CZoomPointer {
public:
    /// Switching off ends a drag, too.
    void Enable(bool bEnable);
    bool IsEnabled() const { return m_bEnabled; }

    bool OnLButtonDown(CPoint point, const CPixelMap& map, CWnd& wnd);
    bool OnMouseMove(CPoint point, const CPixelMap& map);
    /// The data rectangle that was dragged.
    std::optional<CZoomWindow> OnLButtonUp(CPoint point, const CPixelMap& map);
    bool OnSetCursor();
    /// Call when the plot has been painted: the rectangle that is dragged is drawn again.
    void OnPaint(CDC& dc) const { m_drag.OnPaint(dc); }

private:
    bool m_bEnabled = false;
    bool m_bInPlot = false; ///< where the pointer was last
    CZoomDrag m_drag;
};

} // namespace tessara
