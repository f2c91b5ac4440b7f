#pragma once

#include <QEvent>
#include <QWidget>

namespace tessara {

/// Whether an event comes from the user's hand.
bool IsInput(QEvent::Type eType);

/// Keeps input from a top-level window and all that is in it, without greying it, or lets it in again. A
/// click on it brings the window to the front that is open over it.
void BlockWindow(QWidget& window, bool bBlock);

/// Whether a widget is enabled and, if it is a window, not blocked.
bool IsReachable(const QWidget& widget);

} // namespace tessara
