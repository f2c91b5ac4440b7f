#pragma once

#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

// Makers of the peers of each class of window. A maker builds the widget under the given parent, which may be
// null, connects its signals to notifications and leaves placing, text and showing to MakePeer.

using CPeerMaker = CPeer* (*)(const CWindowDescription& description, QWidget* pParent);

CPeer* MakePlainPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeDialogPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeStaticPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeEditPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeButtonPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeListBoxPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeListViewPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeSliderPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeProgressPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeSpinPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeAnimationPeer(const CWindowDescription& description, QWidget* pParent);

/// The flags of a top-level widget by the framework's styles.
Qt::WindowFlags ToWindowFlags(DWORD dwStyle);

/// A rectangle of pixels in Qt's units.
QRect ToQRect(const RECT& rect, double dRatio);

/// Places a child, also its inner parts while it is hidden: programs ask for the client area before a window
/// is shown.
void PlaceNow(QWidget& child, const QRect& place);

} // namespace tessara
