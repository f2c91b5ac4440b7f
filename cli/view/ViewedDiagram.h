#pragma once

#include <optional>
#include <vector>

#include "cli/DiagramOutput.h"
#include "cli/view/CurveWalk.h"
#include "cli/view/ShownPlot.h"

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
    /// Shows another record, without a zoom; windows, the mark and zoom-in mode stay. The pixels of the mouse
    /// are up to date without painting. Throws, and nothing has changed then, when there is nothing to be
    /// seen. REQUIRES: it has the kinds of elements that the one before had.
    void ShowDiagram(const DIAGRAM& diagram);

    /// Clicks pick what a read-out window is for; nothing without one.
    void PickFor(std::optional<EReadOut> eReadOut);
    bool IsOverElement() const { return (m_nFlags & MF_OVERELEMENT) != 0; }

    bool IsMarked() const { return (m_nFlags & MF_MARKSHOWN) != 0; }
    double GetMarkX() const { return m_dMarkX; }
    double GetMarkY() const { return m_dMarkY; }
    /// The colour of the element picked last.
    DWORD GetPicked() const { return m_crSelected; }
    /// Whether the read-out allows an element of that colour to be picked.
    bool CanPick(DWORD crElement) { return IsValidColor(crElement) != 0; }
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
    void Prepare(const DIAGRAM& diagram);
    void FollowBoundaries();

    std::optional<double> m_leftBoundary;
    std::optional<double> m_rightBoundary;
};

} // namespace tessara
