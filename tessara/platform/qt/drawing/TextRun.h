#pragma once

#include <QFont>
#include <QPainter>
#include <QString>

#include "tessara/platform/gdi/GdiObject.h"

namespace tessara {

/// A font as it is drawn here: which installed family stands for a face, and its proportions in parts of the
/// em.
class CFontFace {
public:
    /// The face of a logical font. Each thread has its own faces, which live as long as it: Qt's fonts keep
    /// what belongs to one thread, also when they are copied.
    static const CFontFace& Find(const LOGFONT& font);

    explicit CFontFace(const LOGFONT& font);

    /// The font at a pixel size of its em.
    QFont AtSize(int nPixels) const;
    /// Width of a text in parts of the em, from the unhinted outlines.
    double GetAdvance(const QString& strText) const;
    double GetAscent() const { return m_dAscent; }
    /// Widths of characters, in parts of the em.
    double GetMeanWidth() const;
    double GetLargestWidth() const;
    double GetLineHeight() const { return m_dAscent + m_dDescent; }
    /// The em of a font of that height (see LOGFONT), in the same unit.
    double GetEm(LONG nHeight) const;

    /// Outlines of a text whose baseline starts at the origin, with an em of REFERENCE_SIZE.
    QPainterPath GetOutlines(const QString& strText) const;

    static constexpr int REFERENCE_SIZE = 2048;

private:
    QFont m_font;
    double m_dAscent;
    double m_dDescent;
};

} // namespace tessara
