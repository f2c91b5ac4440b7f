#include "cli/view/ViewerAboutDialog.h"

#include "cli/view/ViewerResources.h"
#include "tessara/platform/ui/resources/Resources.h"

namespace tessara {

namespace {

constexpr UINT IDC_VERSION = 1001;

constexpr CDialogItem ITEMS[] = {
    {"Static", IDR_VIEWER, "#128", 8, 8, 28, 28, WS_VISIBLE | SS_ICON},
    {"Static", IDC_VERSION, "", 44, 9, 150, 9, WS_VISIBLE | SS_NOPREFIX},
    {"Static", IDC_STATIC, "Shows data files and phase diagrams of polymer solutions.", 44, 21, 150, 18,
     WS_VISIBLE | SS_NOPREFIX},
    {"Button", IDOK, "Close", 144, 45, 50, 14, WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON}};
constexpr CDialogTemplate DIALOGS[] = {
    {IDD_VIEWER_ABOUT, "About", 0, 0, 202, 66, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, ITEMS}};

} // namespace

CViewerAboutDialog::CViewerAboutDialog(CWnd* pOwner, const std::string& strVersion)
    : CDialog(IDD_VIEWER_ABOUT, pOwner), m_strVersion(strVersion) {
    if (!FindDialogTemplate(IDD_VIEWER_ABOUT)) {
        AddResources({DIALOGS, {}});
    }
}

BOOL CViewerAboutDialog::OnInitDialog() {
    SetDlgItemText(IDC_VERSION, m_strVersion.c_str());
    return CDialog::OnInitDialog();
}

} // namespace tessara
