#include "tessara/appframe/ProgressDialog.h"

#include <algorithm>
#include <cmath>

#include "tessara/appframe/FrameControls.h"
#include "tessara/platform/ui/frames/WinApp.h"

// The application's window belongs to another thread, which may end it: it is asked for anew each time. It
// cannot go before this dialog has, which it owns.

namespace tessara {

IMPLEMENT_DYNAMIC(CProgressDialog, CDialog)

BOOL CProgressDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    CenterWindow();
    return TRUE;
}

void CProgressDialog::DoDataExchange(CDataExchange* pDX) {
    DDX_Control(pDX, IDC_BAR, m_bar);
}

void CProgressDialog::Begin(int nSteps) {
    RestoreTitle(); // of a beginning without an end: what is saved now must be the window's own
    m_bar.ShowWindow(SW_SHOW);
    m_bar.SetRange(0, nSteps);
    m_bar.SetPos(0);
    m_bar.SetStep(1);
    m_nSteps = nSteps;
    m_nCurrentStep = 0;
    m_nPosition = 0;
    m_dDone = 0;
    m_estimate.Begin(std::chrono::steady_clock::now());
    ShowLine({});
    if (const CWnd* const pParent = GetParent()) {
        pParent->GetWindowText(m_strSavedTitle);
    }
}

void CProgressDialog::Step() {
    ++m_nCurrentStep;
    m_nPosition = m_nPosition < m_nSteps ? m_nPosition + 1 : std::min(1, m_nSteps); // as the bar's own step
    m_dDone = m_nSteps > 0 ? static_cast<double>(m_nPosition) / m_nSteps : 0;
    m_bMoved = m_bStepped = true;
}

void CProgressDialog::SetPercent(double dFraction) {
    const bool bKnown = m_nSteps > 0 && !std::isnan(dFraction);
    m_dDone = bKnown ? std::clamp(dFraction, 0.0, 1.0) : 0;
    m_nPosition = static_cast<int>(m_nSteps * m_dDone);
    m_bMoved = true;
}

void CProgressDialog::ShowProgress() {
    if (m_bMoved && !m_bStopped) {
        m_bar.SetPos(m_nPosition);
        ShowLine(m_estimate.Describe(m_dDone, std::chrono::steady_clock::now()));
    }
    if (m_bStepped) {
        ShowTitle();
    }
    m_bMoved = m_bStepped = false;
}

void CProgressDialog::ShowTitle() {
    if (m_bStopped) {
        RestoreTitle();
        return;
    }
    CWnd* const pParent = GetParent();
    if (m_nSteps == 0 || !pParent) {
        return;
    }
    if (!pParent->IsIconic()) {
        RestoreTitle();
        return;
    }
    constexpr std::int64_t PERCENT = 100;
    const CWinApp* const pApp = AfxGetApp();
    CString strTitle;
    strTitle.Format("%d%% complete - %s", static_cast<int>(m_nCurrentStep * PERCENT / m_nSteps),
                    pApp ? pApp->m_pszAppName : "");
    m_bTitleChanged = TRUE;
    if (CWnd* const pStill = GetParent()) {
        pStill->SetWindowText(strTitle);
    }
}

void CProgressDialog::RestoreTitle() {
    if (m_bTitleChanged) {
        m_bTitleChanged = FALSE;
        if (CWnd* const pParent = GetParent()) {
            pParent->SetWindowText(m_strSavedTitle);
        }
    }
}

void CProgressDialog::ShowLine(const std::string& strLine) {
    if (strLine != m_strLine) {
        m_strLine = strLine;
        SetDlgItemText(IDC_PROGRESS_LINE, strLine.c_str());
    }
}

void CProgressDialog::StopShowing() {
    m_bStopped = true;
    ShowLine({});
}

void CProgressDialog::End() {
    constexpr DWORD SEEN = 250; // ms in which a user sees the full bar
    m_bMoved = m_bStepped = false;
    m_nPosition = m_nSteps;
    m_bar.SetPos(m_nSteps);
    Sleep(SEEN);
    m_bar.ShowWindow(SW_HIDE);
    ShowLine({});
    RestoreTitle();
}

void CProgressDialog::OnDestroy() {
    RestoreTitle();
    CDialog::OnDestroy();
}

BEGIN_MESSAGE_MAP(CProgressDialog, CDialog)
ON_WM_DESTROY()
END_MESSAGE_MAP()

} // namespace tessara
