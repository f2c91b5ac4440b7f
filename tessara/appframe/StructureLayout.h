#pragma once

#include <array>
#include <vector>

#include "tessara/platform/gdi/Geometry.h"

namespace tessara {

/// A line across or down.
struct CEtchedLine {
    CPoint from;
    CPoint to; ///< is not drawn any more

    /// The last point that is drawn.
    CPoint GetLast() const;
};

/// The lines of one colour.
struct CEtching {
    int nSystemColor;
    std::vector<CEtchedLine> lines;
};

/// Where everything lies in the view of a Base Variant's structure: in pixels, from the height of a line of
/// text and the size of the client area. In a small area rectangles may be empty or turned round.
class CStructureLayout {
public:
    CStructureLayout(int nTextHeight, CSize client);

    CRect GetTitle() const;
    CRect GetInputHeading() const;
    CRect GetOutputHeading() const;
    CRect GetInputList() const;
    CRect GetOutputList() const;
    CRect GetButton(CSize size) const;

    /// The grounds between the controls.
    std::array<CRect, 3> GetBands() const;
    /// The edges of the controls, later ones over earlier ones.
    std::array<CEtching, 3> GetEtchings() const;

private:
    int m_nText;
    int m_nWidth;
    int m_nHeight;
    int m_nMiddle;
};

} // namespace tessara
