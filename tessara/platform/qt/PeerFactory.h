#pragma once

#include "tessara/platform/qt/Peer.h"

namespace tessara {

// Makers of the peers of each class of window. A maker builds the widget under the given parent, which may be
// null, connects its signals to notifications and leaves placing, text and showing to MakePeer.

using CPeerMaker = CPeer* (*)(const CWindowDescription& description, QWidget* pParent);

CPeer* MakePlainPeer(const CWindowDescription& description, QWidget* pParent);

/// The flags of a top-level widget by the framework's styles.
Qt::WindowFlags ToWindowFlags(DWORD dwStyle);

/// A rectangle of pixels in Qt's units.
QRect ToQRect(const RECT& rect, double dRatio);

} // namespace tessara
