#pragma once

#include <QPixmap>

#include "tessara/platform/ui/resources/Resources.h"

namespace tessara {

/// A picture of the resources at a device pixel ratio; its size is that of the file. Null when there is none.
QPixmap LoadPicture(EFileResource eKind, UINT nID, double dRatio);

/// The pictures of an animation, each a square of the given side in device pixels. Empty when there is none.
QList<QPixmap> LoadAnimation(UINT nID, int nSide);

} // namespace tessara
