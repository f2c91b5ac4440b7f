#pragma once

#include <atomic>

#include "tessara/appframe/ProgressDialog.h"
#include "tessara/platform/ui/controls/AnimateCtrl.h"

/// "Calculation": says that the program computes, and has a button to abort it. An abort leaves the dialog
/// where it is: the calculation ends it.
class TESSARA_API CCalculationProgressDialog : public tessara::CProgressDialog {
    DECLARE_DYNAMIC(CCalculationProgressDialog)

public:
    /// The flag that an abort sets; it outlives the dialog.
    explicit CCalculationProgressDialog(std::atomic<bool>& bAborted) : m_bAborted(bAborted) {}

    CAnimateCtrl m_left;
    CAnimateCtrl m_right;
    int m_bAborting = 0;

    BOOL Open(HWND hParent) override;
    /// Once aborting, a step only takes the title of the application's window back.
    void Step() override;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnCancel() override;

private:
    std::atomic<bool>& m_bAborted;
};
