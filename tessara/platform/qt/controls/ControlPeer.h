#pragma once

#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

/// What a kind of control tells its parent and asks it for.
struct CControlTraits {
    UINT nColor;        ///< what WM_CTLCOLOR calls it, or NO_COLOR
    UINT nSetFocus = 0; ///< notification codes of getting and losing the keyboard; 0 for none
    UINT nKillFocus = 0;

    static constexpr UINT NO_COLOR = 0xFFFF;
};

/// The colours that a parent gives a control; nothing where they are the palette's.
struct CControlColors {
    std::optional<QColor> ground;
    std::optional<QColor> text;
};

/// The peer of a control. Its parent is asked for its colours when it is shown and when it is invalidated;
/// where the parent belongs to another thread, the control has those that it had until the answer comes.
class CControlPeer : public CPeer {
public:
    CControlPeer(const CWindowDescription& description, QWidget* pWidget, const CControlTraits& traits,
                 QWidget* pClient = nullptr);

    void SetFocusCodes(UINT nSetFocus, UINT nKillFocus);

    void Invalidate(bool bErase) override;
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void AskColors();
    void SetColors(const CControlColors& colors);

    CControlTraits m_traits;
    bool m_bColored = false;
};

} // namespace tessara
