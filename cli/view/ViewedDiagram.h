#pragma once

#include <optional>
#include <vector>

#include "cli/DiagramOutput.h"
#include "cli/view/CurveWalk.h"

namespace tessara {

/// A diagram in a window: its read-outs have lines for every element, and what is marked and can be picked
/// may be asked.
class CViewedDiagram : public CDiagramOutput {
public:
    /// Throws CException when there is nothing to be seen of it.
    explicit CViewedDiagram(const DIAGRAM& diagram);

    /// Paints as the renderer does. On a picture or on paper there is no mark, and the pixels of the mouse
    /// stay those of the screen.
    int PaintOn(CDC& dc, const RECT& rc);
    int ExportOn(CDC& dc, const RECT& rc, const char* pszPath);
    /// Brings the pixels of the mouse up to date without painting, in the rectangle of the last paint of
    /// another diagram.
    void LayOutAs(const CViewedDiagram& other);

    bool IsAnyReadOutVisible();
    /// Clicks pick what the visible read-out windows are for, also after one of them was closed by itself.
    void FollowReadOuts();
    bool IsOverElement() const { return (m_nFlags & MF_OVERELEMENT) != 0; }

    bool IsMarked() const { return (m_nFlags & MF_MARKSHOWN) != 0; }
    double GetMarkX() const { return m_dMarkX; }
    double GetMarkY() const { return m_dMarkY; }
    /// The colour of the element picked last.
    DWORD GetPicked() const { return m_crSelected; }
    /// The colours of the elements that are there and that the read-out allows to be picked.
    std::vector<DWORD> GetPickable();
    /// All that is drawn in an element's colour.
    CWalkPath GetPath(DWORD crElement);
    /// Each found multiphase point, or null.
    const CMultipartTable* GetFoundPoints() const;

private:
    template <class TAKEPART, class TAKEPOINTS>
    void ForEachPiece(DWORD crElement, TAKEPART takePart, TAKEPOINTS takePoints);
    int PaintPicture(CDC& dc, const RECT& rc, const char* pszPath);
    void FollowBoundaries();

    const std::optional<double> m_leftBoundary;
    const std::optional<double> m_rightBoundary;
};

} // namespace tessara
