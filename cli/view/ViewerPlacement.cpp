#include "cli/view/ViewerPlacement.h"

#include <algorithm>
#include <array>
#include <optional>

#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/windows/System.h"

namespace tessara {

namespace {

constexpr const char* SECTION = "Window";
constexpr const char* SIDES[] = {"Left", "Top", "Right", "Bottom"};
constexpr int MAX_COORDINATE = 1 << 20;
constexpr int UNSET = MAX_COORDINATE + 1;
constexpr int MIN_WIDTH = 200; ///< pixels; less is no window that somebody has used
constexpr int MIN_HEIGHT = 150;
constexpr int CASCADE = 32;

/// Nothing unless all sides are there and could be those of a window.
std::optional<CRect> ReadPlace(const CWinApp& app) {
    std::array<int, 4> sides{};
    for (std::size_t i = 0; i < sides.size(); ++i) {
        sides[i] = static_cast<int>(app.GetProfileInt(SECTION, SIDES[i], UNSET));
        if (sides[i] < -MAX_COORDINATE || sides[i] > MAX_COORDINATE) {
            return std::nullopt;
        }
    }
    return CRect(sides[0], sides[1], sides[2], sides[3]);
}

/// One side of a window, moved and shortened so that it lies on the screen.
void MoveOnScreen(LONG& nFirst, LONG& nLast, LONG nLeast, LONG nScreen) {
    const LONG nLength = std::clamp<LONG>(nLast - nFirst, nLeast, std::max(nLeast, nScreen));
    nFirst = std::max<LONG>(0, std::min(nFirst, nScreen - nLength));
    nLast = nFirst + nLength;
}

bool IsBarShown(const CFrameWnd& frame, UINT nBar) {
    const CWnd* const pBar = frame.GetDlgItem(static_cast<int>(nBar));
    return pBar && pBar->IsWindowVisible();
}

} // namespace

void CViewerPlacement::Save(const CFrameWnd& frame) {
    WINDOWPLACEMENT placement{};
    if (!frame.IsWindowVisible() || !frame.GetWindowPlacement(&placement)) {
        return;
    }
    const RECT& place = placement.rcNormalPosition;
    const std::array<LONG, 4> sides = {place.left, place.top, place.right, place.bottom};
    for (std::size_t i = 0; i < sides.size(); ++i) {
        m_app.WriteProfileInt(SECTION, SIDES[i], sides[i]);
    }
    m_app.WriteProfileInt(SECTION, "Maximized", placement.showCmd == SW_SHOWMAXIMIZED);
    if (frame.IsFullScreen()) {
        return; // which hides the bars
    }
    m_app.WriteProfileInt(SECTION, "Toolbar", IsBarShown(frame, AFX_IDW_TOOLBAR));
    m_app.WriteProfileInt(SECTION, "StatusBar", IsBarShown(frame, AFX_IDW_STATUS_BAR));
}

void CViewerPlacement::Restore(CFrameWnd& frame, int nBefore) {
    for (const auto& [nBar, pszEntry] :
         {std::pair{AFX_IDW_TOOLBAR, "Toolbar"}, std::pair{AFX_IDW_STATUS_BAR, "StatusBar"}}) {
        if (!m_app.GetProfileInt(SECTION, pszEntry, TRUE)) {
            frame.ShowControlBar(frame.GetDlgItem(static_cast<int>(nBar)), FALSE, FALSE);
        }
    }
    std::optional<CRect> place = ReadPlace(m_app);
    if (!place) {
        return;
    }
    place->OffsetRect(nBefore * CASCADE, nBefore * CASCADE);
    MoveOnScreen(place->left, place->right, MIN_WIDTH, GetSystemMetrics(SM_CXFULLSCREEN));
    MoveOnScreen(place->top, place->bottom, MIN_HEIGHT, GetSystemMetrics(SM_CYFULLSCREEN));
    const bool bMaximised = nBefore == 0 && m_app.GetProfileInt(SECTION, "Maximized", FALSE) != 0;
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    placement.showCmd = bMaximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
    placement.rcNormalPosition = *place;
    frame.SetWindowPlacement(&placement);
}

} // namespace tessara
