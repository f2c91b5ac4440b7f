// A window with a menu that shows a plot: the Flory-Huggins parameter of polystyrene in cyclohexane. With
// --screenshot FILE it writes a picture of the window and ends.
#include <tessara/tessara.h>

namespace {
constexpr UINT IDR_MAINFRAME = 128;
constexpr UINT ID_VIEW_WARMER = 32771;
constexpr tessara::CMenuEntry FILE_MENU[] = {
    {"&Print...\tCtrl+P", ID_FILE_PRINT}, tessara::MENU_SEPARATOR, {"E&xit", ID_APP_EXIT}};
constexpr tessara::CMenuEntry VIEW_MENU[] = {{"&Warmer\tCtrl+W", ID_VIEW_WARMER}};
constexpr tessara::CMenuEntry HELP_MENU[] = {{"&About...", ID_APP_ABOUT}};
constexpr tessara::CMenuEntry BAR[] = {{"&File", FILE_MENU}, {"&View", VIEW_MENU}, {"&Help", HELP_MENU}};
constexpr tessara::CMenuResource MENUS[] = {{IDR_MAINFRAME, BAR}};
constexpr tessara::CAccelerator KEYS[] = {{FCONTROL, 'P', ID_FILE_PRINT}, {FCONTROL, 'W', ID_VIEW_WARMER}};
constexpr tessara::CAcceleratorResource ACCELERATORS[] = {{IDR_MAINFRAME, KEYS}};
constexpr UINT IDD_ABOUT = 129;
constexpr tessara::CDialogItem ABOUT_ITEMS[] = {
    {"Static", IDC_STATIC, "The interaction of polystyrene with cyclohexane", 7, 9, 160, 8, WS_VISIBLE},
    {"Button", IDOK, "OK", 62, 26, 50, 14, WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON}};
constexpr tessara::CDialogTemplate DIALOGS[] = {
    {IDD_ABOUT, "About", 0, 0, 174, 46, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, ABOUT_ITEMS}};

class CPlotView : public CView {
    DECLARE_DYNCREATE(CPlotView)
public:
    CPlotView() : m_chi(61) { Fill(); }

protected:
    void OnDraw(CDC* pDC) override {
        CRect client;
        GetClientRect(&client);
        m_plot.Paint(pDC, client, nullptr);
    }
    void OnPrint(CDC* pDC, CPrintInfo* pInfo) override { m_plot.Paint(pDC, pInfo->m_rectDraw, nullptr); }
    void OnWarmer() {
        m_dFirst += 20; // K
        Fill();
        Invalidate();
    }
    DECLARE_MESSAGE_MAP()

private:
    void Fill() {
        for (int i = 0; i < m_chi.m_nPoints; ++i) {
            m_chi.m_pX[i] = m_dFirst + i;
            m_chi.m_pY[i] = -0.2956 + 243.29 / m_chi.m_pX[i];
        }
        m_plot.SetNames("Polystyrene in cyclohexane", "c~G", "Temperature", "T, K~N");
        m_plot.SetOutputData(&m_chi);
    }
    CCurve m_chi;
    COutputCurve m_plot;
    double m_dFirst = 280;
};
IMPLEMENT_DYNCREATE(CPlotView, CView)
BEGIN_MESSAGE_MAP(CPlotView, CView)
ON_COMMAND(ID_FILE_PRINT, OnFilePrint)
ON_COMMAND(ID_VIEW_WARMER, OnWarmer)
END_MESSAGE_MAP()

class CPlotApp : public CWinApp {
public:
    CPlotApp() : CWinApp("Polystyrene") {}

protected:
    BOOL InitInstance() override {
        tessara::AddResources({DIALOGS, {}});
        tessara::AddMenuResources(MENUS);
        tessara::AddAcceleratorResources(ACCELERATORS);
        CCreateContext context{RUNTIME_CLASS(CPlotView), nullptr, nullptr};
        auto* const pFrame = new CFrameWnd; // deletes itself
        m_pMainWnd = pFrame;
        pFrame->LoadFrame(IDR_MAINFRAME, WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE, nullptr, &context);
        pFrame->InitialUpdateFrame(nullptr, TRUE);
        CCommandLineInfo info;
        ParseCommandLine(info);
        m_strPicture = info.m_strFileName;
        return m_lpCmdLine.IsEmpty() || PostThreadMessage(WM_USER, 0, 0);
    }
    void OnAbout() { CDialog(IDD_ABOUT, m_pMainWnd).DoModal(); }
    void OnScreenshot(WPARAM, LPARAM) {
        m_pMainWnd->SaveImage(m_strPicture);
        m_pMainWnd->SendMessage(WM_CLOSE);
    }
    DECLARE_MESSAGE_MAP()

private:
    CString m_strPicture;
};
BEGIN_MESSAGE_MAP(CPlotApp, CWinApp)
ON_COMMAND(ID_APP_ABOUT, OnAbout)
ON_THREAD_MESSAGE(WM_USER, OnScreenshot)
END_MESSAGE_MAP()
CPlotApp theApp;
} // namespace

int main(int argc, char* argv[]) {
    return AfxRunApplication(argc, argv);
}
