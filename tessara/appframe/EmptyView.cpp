#include "tessara/appframe/EmptyView.h"

#include <utility>

#include "tessara/appframe/WelcomeDialog.h"
#include "tessara/document/BaseFile.h"
#include "tessara/document/BaseVariant.h"
#include "tessara/document/RegistrySettings.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/windows/System.h"

IMPLEMENT_DYNCREATE(CEmptyView, CView)

namespace {

constexpr const char* SECTION = "Preferences";
constexpr const char* SHOW_WELCOME = "ShowWelcomeDialog";

void Open(const CString& strPath) {
    if (CWinApp* const pApp = AfxGetApp()) {
        pApp->OpenDocumentFile(strPath);
    }
}

} // namespace

void CEmptyView::OnDraw(CDC* pDC) {
    CRect client;
    GetClientRect(&client);
    CBrush ground(GetSysColor(COLOR_APPWORKSPACE));
    pDC->FillRect(&client, &ground);
}

void CEmptyView::OnActivateView(BOOL bActivate, CView* pActivateView, CView* pDeactiveView) {
    const HWND hWnd = m_hWnd;
    const bool bFirst = !std::exchange(m_bWelcomeDone, TRUE);
    auto* const pVariant = dynamic_cast<CBaseVariant*>(GetDocument());
    if (bFirst && pVariant && ReadRegistryDword(SECTION, SHOW_WELCOME, TRUE) != 0) {
        Welcome(*pVariant);
    }
    if (IsWindow(hWnd)) { // a document that was opened may have taken this view away
        CView::OnActivateView(bActivate, pActivateView, pDeactiveView);
    }
}

void CEmptyView::Welcome(CBaseVariant& variant) {
    CString strDirectory;
    CString strExtension;
    CString strLast;
    variant.GetArchiveStrings(strDirectory, strExtension);
    variant.ReadLastBaseVariantFile(strLast);
    unsigned short wOptions = 0;
    if (!CBaseFile::IsArchiveEmpty(strDirectory, strExtension)) {
        wOptions = CWelcomeDialog::hasVariants;
        if (!strLast.IsEmpty()) {
            wOptions |= CWelcomeDialog::hasLast;
        }
    }
    CWelcomeDialog dialog(AfxGetMainWnd());
    const bool bChosen = dialog.DoModal(wOptions) == IDOK;
    // Kept before what was chosen is done, which may fail.
    WriteRegistryDword(SECTION, SHOW_WELCOME, dialog.m_bDontShow ? 0 : 1);
    if (!bChosen) {
        return;
    }
    switch (dialog.m_nAction) {
    case CWelcomeDialog::createNew:
        variant.SetBaseVariant(0);
        break;
    case CWelcomeDialog::loadLast:
        Open(strLast);
        break;
    case CWelcomeDialog::loadExisting: {
        CBaseFile file(strDirectory, strExtension, "", "");
        if (file.GetBase(AfxGetMainWnd(), 1)) {
            Open(file.GetFilePath());
        }
        break;
    }
    default:
        break;
    }
}
