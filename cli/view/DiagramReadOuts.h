#pragma once

#include "cli/view/ShownPlot.h"
#include "cli/view/ViewedDiagram.h"

namespace tessara {

/// The read-out windows of a diagram, by their names. The diagram must outlive the object.
class CDiagramReadOuts {
public:
    /// The record says which windows there can be.
    CDiagramReadOuts(CViewedDiagram& output, const DIAGRAM& diagram);

    bool Offers(EReadOut eReadOut) const;
    /// Makes the windows that are offered, hidden.
    void Create(CWnd* pView);
    void Destroy();
    /// Shows one in place of another that is shown, or hides it.
    void Show(EReadOut eReadOut, bool bShow);
    bool IsVisible(EReadOut eReadOut) const;

private:
    CViewedDiagram& m_output;
    bool m_bSection; ///< there is a curve that can be cut
    bool m_bPoints;  ///< there is something that a click can pick
    bool m_bElements;
};

} // namespace tessara
