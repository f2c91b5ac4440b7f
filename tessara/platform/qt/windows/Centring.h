#pragma once

#include <QWidget>

namespace tessara {

/// Puts a window into the middle of another one, or of the screen where that is null, hidden or minimised,
/// and keeps it on the screen. A window that is being shown has no place yet: the window manager chooses it.
/// Until that is done the window in its middle follows it.
void Centre(QWidget& window, QWidget* pOver);

/// Lets a window stay where it is: somebody has placed it.
void StopCentring(const QWidget& window);

} // namespace tessara
