#pragma once

#include <QAbstractScrollArea>

#include "tessara/platform/ui/windows/PeerSeam.h"
#include "tessara/platform/ui/windows/Styles.h"

namespace tessara {

/// Whether a child has a line or a sunken edge round it.
inline bool HasEdge(const CWindowDescription& description) {
    return (description.dwStyle & WS_CHILD) &&
           ((description.dwStyle & WS_BORDER) || (description.dwExStyle & WS_EX_CLIENTEDGE));
}

/// Gives a widget the edge that its window's styles ask for. What is typed in or scrolled has the one that
/// the desktop draws round such controls, whichever of the two is asked for.
inline void SetEdge(QFrame& frame, const CWindowDescription& description) {
    const bool bSunken =
        (description.dwExStyle & WS_EX_CLIENTEDGE) || qobject_cast<QAbstractScrollArea*>(&frame);
    frame.setFrameStyle(!HasEdge(description) ? int{QFrame::NoFrame}
                        : bSunken             ? QFrame::StyledPanel | QFrame::Sunken
                                              : QFrame::Box | QFrame::Plain);
}

} // namespace tessara
