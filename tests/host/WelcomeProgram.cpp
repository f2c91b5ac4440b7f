// A program that asks its user something before its window is there: a modal dialog in the first activation
// of its view. It prints what the dialog's end was, and where the dialog stood. With --dark it has a dark
// desktop: for a look at it.

#include <QApplication>
#include <QPalette>
#include <cstdio>
#include <cstring>

#include "tessara/tessara.h"

namespace {

constexpr UINT IDR_MAINFRAME = 128;
constexpr UINT IDD_WELCOME = 200;
constexpr UINT ID_NAME = 1001;

constexpr tessara::CMenuEntry FILE_MENU[] = {{"E&xit", ID_APP_EXIT}};
constexpr tessara::CMenuEntry BAR[] = {{"&File", FILE_MENU}};
constexpr tessara::CMenuResource MENUS[] = {{IDR_MAINFRAME, BAR}};
constexpr DWORD STOP = WS_VISIBLE | WS_TABSTOP;
constexpr tessara::CDialogItem ITEMS[] = {
    {"Static", IDC_STATIC, "Your &name:", 7, 9, 40, 8, WS_VISIBLE},
    {"Edit", ID_NAME, "", 50, 7, 80, 12, STOP | WS_BORDER | ES_AUTOHSCROLL},
    {"Button", IDCANCEL, "Cancel", 20, 28, 50, 14, STOP},
    {"Button", IDOK, "OK", 80, 28, 50, 14, STOP | BS_DEFPUSHBUTTON}};
constexpr tessara::CDialogTemplate DIALOGS[] = {
    {IDD_WELCOME, "Welcome", 0, 0, 150, 50, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, ITEMS}};

class CWelcome : public CDialog {
public:
    explicit CWelcome(CWnd* pParent) : CDialog(IDD_WELCOME, pParent) {}

protected:
    BOOL OnInitDialog() override {
        CenterWindow();
        return CDialog::OnInitDialog();
    }
    void OnOK() override { End(IDOK); }
    void OnCancel() override { End(IDCANCEL); }

private:
    void End(int nResult) {
        CString strName;
        GetDlgItemText(ID_NAME, strName);
        CRect own;
        CRect owner;
        GetWindowRect(&own);
        GetParent()->GetWindowRect(&owner);
        const CPoint middle = own.CenterPoint();
        const CPoint wanted = owner.CenterPoint();
        std::printf("%s '%s' off the middle by %d,%d\n", nResult == IDOK ? "OK" : "Cancel",
                    static_cast<const char*>(strName), static_cast<int>(middle.x - wanted.x),
                    static_cast<int>(middle.y - wanted.y));
        EndDialog(nResult);
    }
};

class CEmptyView : public CView {
    DECLARE_DYNCREATE(CEmptyView)

protected:
    void OnDraw(CDC*) override {}
    void OnActivateView(BOOL bActivate, CView* pActivate, CView* pDeactive) override {
        if (bActivate && !std::exchange(m_bDone, true)) {
            CWelcome(AfxGetMainWnd()).DoModal();
            AfxGetMainWnd()->PostMessage(WM_CLOSE);
        }
        CView::OnActivateView(bActivate, pActivate, pDeactive);
    }

private:
    bool m_bDone = false;
};
IMPLEMENT_DYNCREATE(CEmptyView, CView)

class CWelcomeApp : public CWinApp {
public:
    CWelcomeApp() : CWinApp("Host") {}

protected:
    BOOL InitInstance() override {
        tessara::AddResources({DIALOGS, {}});
        tessara::AddMenuResources(MENUS);
        CCreateContext context{RUNTIME_CLASS(CEmptyView), nullptr, nullptr};
        auto* const pFrame = new CFrameWnd; // deletes itself
        m_pMainWnd = pFrame;
        pFrame->LoadFrame(IDR_MAINFRAME, WS_OVERLAPPEDWINDOW, nullptr, &context);
        pFrame->InitialUpdateFrame(nullptr, TRUE);
        return TRUE;
    }
};
CWelcomeApp theApp;

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "--dark") == 0) {
        QApplication::setPalette(QPalette(QColor(53, 53, 53), QColor(45, 45, 45)));
    }
    char* arguments[] = {argv[0], nullptr};
    return AfxRunApplication(1, arguments);
}
