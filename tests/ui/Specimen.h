#pragma once

#include "tessara/platform/ui/controls/AnimateCtrl.h"
#include "tessara/platform/ui/controls/Button.h"
#include "tessara/platform/ui/controls/Edit.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/controls/ListCtrl.h"
#include "tessara/platform/ui/controls/ProgressCtrl.h"
#include "tessara/platform/ui/controls/SliderCtrl.h"
#include "tessara/platform/ui/controls/SpinButtonCtrl.h"
#include "tessara/platform/ui/controls/Static.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

// A dialog with every control, for tests and to look at.

enum SpecimenControl : UINT {
    ID_SPECIMEN = 900,
    ID_PLAIN = 901, ///< the number of a small dialog
    ID_NAME = 10,
    ID_COMMENT,
    ID_NAME_LABEL,
    ID_SMALL,
    ID_LARGE,
    ID_HUGE,
    ID_LID,
    ID_UNSURE,
    ID_LINES,
    ID_DRAWN,
    ID_CHECKS,
    ID_TABLE,
    ID_AMOUNT,
    ID_PROGRESS,
    ID_COUNT,
    ID_SPIN,
    ID_MOVING,
    ID_OTHER_MOVING,
    ID_FOREIGN,
    ID_APPLY
};

/// Registers the templates, once.
void AddSpecimenResources();

/// Fills its controls, draws the lines of one list and writes down what it hears.
class CSpecimen : public CDialog {
public:
    explicit CSpecimen(CWnd* pParent = nullptr) : CDialog(ID_SPECIMEN, pParent) { AddSpecimenResources(); }
    /// Makes it without waiting for it.
    BOOL Open() { return Create(ID_SPECIMEN, m_pParentWnd); }
    void Exchange(BOOL bSave) { UpdateData(bSave); }
    /// What was heard since the last question.
    CString TakeHeard() {
        CString strHeard;
        std::swap(strHeard, m_strHeard);
        return strHeard;
    }

    CString m_strName = "Polystyrene";
    int m_nSize = 1;
    int m_nLid = 1;
    CCheckListBox m_checks;
    CListCtrl m_table;
    CSliderCtrl m_amount;
    CProgressCtrl m_progress;
    CAnimateCtrl m_moving;
    CAnimateCtrl m_otherMoving;
    const char* m_drawn[3] = {"first", "second", "third"};

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    HBRUSH OnCtlColor(CDC* pDC, CWnd* pControl, UINT nKind);
    void OnHScroll(UINT nCode, UINT nPos, CScrollBar* pControl);
    void OnMeasureItem(int nID, LPMEASUREITEMSTRUCT pMeasure);
    void OnDrawItem(int nID, LPDRAWITEMSTRUCT pDraw);
    DECLARE_MESSAGE_MAP()

private:
    CString m_strHeard;
    CBrush m_ground{RGB(255, 255, 128)};
};
