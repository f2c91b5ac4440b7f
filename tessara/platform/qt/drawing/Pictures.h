#pragma once

#include <QPixmap>
#include <QSvgRenderer>

#include "tessara/platform/ui/resources/Resources.h"

namespace tessara {

/// A picture of the resources at a device pixel ratio; its size is that of the file. Null when there is none.
QPixmap LoadPicture(EFileResource eKind, UINT nID, double dRatio);

/// An animation of the resources. Each of its pictures is made when it is asked for: all at once would let
/// the program stand still for a moment, just when it begins to move.
class CFilm {
public:
    /// Without such an animation there is no picture.
    explicit CFilm(UINT nID);
    int GetCount() const { return m_nPictures; }
    /// A square of the given side in device pixels.
    QPixmap Draw(int nPicture, int nSide);

private:
    QSvgRenderer m_renderer;
    int m_nPictures = 0;
};

} // namespace tessara
