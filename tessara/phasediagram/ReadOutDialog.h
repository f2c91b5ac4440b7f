#pragma once

#include <vector>

#include "tessara/platform/base/String.h"
#include "tessara/platform/base/StringArray.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

class CListBox;
class CPhaseDiagramOutput;

namespace tessara {

/// What the read-out windows of a phase diagram have in common: a list of indexed text, which grows with the
/// window, a place in the corner of the screen, and an owner, whose mark goes when the window is closed.
///
/// Made and owned by the diagram (CPhaseDiagramOutput::CreateGetValue and its like).
class CReadOutDialog : public CDialog {
public:
    /// nSymbols is the number of symbols that the window knows; the first two are those of the axes.
    CReadOutDialog(UINT nTemplate, CWnd* pParent, std::size_t nSymbols)
        : CDialog(nTemplate, pParent), m_symbols(nSymbols) {}

    /// Makes the hidden window for a diagram; false when there is none.
    bool CreateFor(CPhaseDiagramOutput& owner, CWnd* pParent);
    void SetSymbols(const CString& strAbscissa, const CString& strOrdinate);
    /// Empties the list and shows the lines, which must live until others are shown.
    void ShowLines(const CStringArray& lines);

protected:
    BOOL OnInitDialog() override;
    void OnCancel() override;
    void OnOK() override { OnCancel(); }

    void OnMeasureItem(int nID, LPMEASUREITEMSTRUCT pMeasure);
    void OnDrawItem(int nID, LPDRAWITEMSTRUCT pDraw);
    void OnShowWindow(BOOL bShow, UINT nStatus);
    void OnActivate(UINT nState, CWnd* pOther, BOOL bMinimized);
    void OnMove(int nX, int nY);
    void OnSize(UINT nType, int nWidth, int nHeight);
    DECLARE_MESSAGE_MAP()

    CListBox* GetList() const;

    CPhaseDiagramOutput* m_pOwner = nullptr;
    std::vector<CString> m_symbols;

private:
    /// Where a control is while the window has its own size.
    struct CPlacedControl {
        int nID;
        CRect place;
    };

    void PutInCorner();
    void PutInCornerOnceFramed();
    void RememberPlaces();

    bool m_bFramed = false; ///< the desktop's frame was counted in when the window was put in the corner
    CSize m_size;
    CRect m_list;
    std::vector<CPlacedControl> m_placed;
};

} // namespace tessara
