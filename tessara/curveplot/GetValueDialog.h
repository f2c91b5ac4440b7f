#pragma once

#include "tessara/platform/base/StringArray.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

class COutputCurve;

/// The window that reads a curve plot out: the user types an argument, or clicks a curve, and sees the values
/// of all functions there. Made and owned by the plot (COutputCurve::CreateGetValue).
class TESSARA_API CGetValueDialog : public CDialog {
    DECLARE_DYNAMIC(CGetValueDialog)

public:
    static constexpr UINT TEMPLATE = 16391;

    explicit CGetValueDialog(CWnd* pParent = nullptr) : CDialog(TEMPLATE, pParent) {}

    COutputCurve* m_pPlot = nullptr; ///< read out; not owned

    void SetArgumentLabel(const char* name);
    /// Shows an argument in the plot's format.
    void SetArgument(double x);
    /// Shows lines of indexed text, which must live until others are shown.
    void SetValueLines(CStringArray& lines);

protected:
    BOOL OnInitDialog() override;
    /// Closing hides the window and ends the read-out.
    void OnCancel() override;

    void OnGetValue();
    void OnMeasureItem(int nID, LPMEASUREITEMSTRUCT pMeasure);
    void OnDrawItem(int nID, LPDRAWITEMSTRUCT pDraw);
    DECLARE_MESSAGE_MAP()
};
