#pragma once

#include "tessara/appframe/ProgressEstimate.h"
#include "tessara/platform/ui/controls/ProgressCtrl.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

namespace tessara {

/// What both dialogs of a calculation have: a bar, under it a line that says how far it is and how long it
/// will take, and, while the application's window is minimised, the same in the title of that.
///
/// Calls come from the thread that owns the dialog. What is to be seen changes with ShowProgress, which waits
/// for the application's window's thread: a caller that has many steps at once makes them first.
class TESSARA_API CProgressDialog : public CDialog {
    DECLARE_DYNAMIC(CProgressDialog)

public:
    CProgressCtrl m_bar;
    int m_nSteps = 0;
    int m_nCurrentStep = 0;
    int m_bTitleChanged = 0;
    CString m_strSavedTitle; ///< of the application's window, from the last Begin

    /// Makes the window over an application's, which may be ending meanwhile. Zero when there can be none.
    virtual BOOL Open(HWND hParent) = 0;
    void Begin(int nSteps);
    virtual void Step();
    void SetPercent(double dFraction); ///< 0.5 is half of the range
    void End();
    void ShowProgress();

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override {}     // the Enter key ends no calculation
    void OnCancel() override {} // nor does Escape, where there is no button for it
    void OnDestroy();
    void RestoreTitle();
    /// Lets the bar and its line stay as they are.
    void StopShowing();
    DECLARE_MESSAGE_MAP()

private:
    void ShowTitle();
    void ShowLine(const std::string& strLine);

    int m_nPosition = 0;
    double m_dDone = 0; ///< as a fraction
    bool m_bMoved = false;
    bool m_bStepped = false;
    bool m_bStopped = false;
    CProgressEstimate m_estimate;
    std::string m_strLine;
};

} // namespace tessara
