#include "cli/view/ZoomPointer.h"

#include "tessara/platform/ui/windows/Pointer.h"
#include "tessara/plot/LibraryCursors.h"

namespace tessara {

void CZoomPointer::Enable(bool bEnable) {
    m_bEnabled = bEnable;
    if (!bEnable) {
        m_drag.Cancel();
    }
}

bool CZoomPointer::OnLButtonDown(CPoint point, const CPixelMap& map, CWnd& wnd) {
    if (m_bEnabled) {
        m_drag.Begin(point, map.rect, wnd);
    }
    return m_bEnabled;
}

bool CZoomPointer::OnMouseMove(CPoint point, const CPixelMap& map) {
    m_bInPlot = map.rect.PtInRect(point);
    if (m_bEnabled) {
        m_drag.Move(point);
        OnSetCursor();
    }
    return m_bEnabled;
}

std::optional<CZoomWindow> CZoomPointer::OnLButtonUp(CPoint point, const CPixelMap& map) {
    if (!m_drag.IsUnderWay()) {
        return std::nullopt;
    }
    m_bEnabled = false;
    const auto corners = m_drag.End(point);
    return corners ? std::optional(map.GetWindow(corners->first, corners->second)) : std::nullopt;
}

bool CZoomPointer::OnSetCursor() {
    if (m_bEnabled) {
        SetCursor(LoadCursor(m_bInPlot ? CURSOR_ZOOM : CURSOR_NO_ZOOM));
    }
    return m_bEnabled;
}

} // namespace tessara
