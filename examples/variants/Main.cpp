// A program that keeps its documents in an archive: the critical point of a polymer in a solvent. New, Load,
// Save, Save As and Delete are the archive's; "Keep" takes a snapshot that "Back" returns to.
#include "Solution.h"

IMPLEMENT_DYNCREATE(CSolution, CBaseVariant)
BEGIN_MESSAGE_MAP(CSolution, CBaseVariant)
ON_COMMAND(ID_LONGER, OnLonger)
ON_COMMAND(ID_KEEP, OnKeep)
ON_COMMAND(ID_BACK, OnBack)
END_MESSAGE_MAP()

namespace {
constexpr UINT IDR_MAINFRAME = 128;
constexpr tessara::CMenuEntry FILE_MENU[] = {{"&New\tCtrl+N", ID_FILE_NEW},
                                             {"&Load...\tCtrl+O", ID_FILE_OPEN},
                                             {"&Save\tCtrl+S", ID_FILE_SAVE},
                                             {"Save &As...\tCtrl+A", ID_FILE_SAVE_AS},
                                             {"&Delete...\tCtrl+D", ID_FILE_DELETE_BASE},
                                             tessara::MENU_SEPARATOR,
                                             {"E&xit\tCtrl+Q", ID_APP_EXIT}};
constexpr tessara::CMenuEntry CHAIN_MENU[] = {
    {"&Longer\tCtrl+L", ID_LONGER}, {"&Keep\tCtrl+K", ID_KEEP}, {"&Back\tCtrl+B", ID_BACK}};
constexpr tessara::CMenuEntry BAR[] = {{"&File", FILE_MENU}, {"&Chain", CHAIN_MENU}};
constexpr tessara::CMenuResource MENUS[] = {{IDR_MAINFRAME, BAR}};
constexpr tessara::CAccelerator KEYS[] = {
    {FCONTROL, 'N', ID_FILE_NEW},         {FCONTROL, 'O', ID_FILE_OPEN}, {FCONTROL, 'S', ID_FILE_SAVE},
    {FCONTROL, 'A', ID_FILE_SAVE_AS},     {FCONTROL, 'L', ID_LONGER},    {FCONTROL, 'K', ID_KEEP},
    {FCONTROL, 'D', ID_FILE_DELETE_BASE}, {FCONTROL, 'B', ID_BACK},      {FCONTROL, 'Q', ID_APP_EXIT}};
constexpr tessara::CAcceleratorResource ACCELERATORS[] = {{IDR_MAINFRAME, KEYS}};
constexpr tessara::CStringResource STRINGS[] = {
    {IDR_MAINFRAME, "Solutions\n\nSolution\nSolutions (*.sol)\n.sol\n"}};

class CSolutionView : public CView {
    DECLARE_DYNCREATE(CSolutionView)

protected:
    void OnDraw(CDC* pDC) override {
        const auto& solution = static_cast<const CSolution&>(*GetDocument());
        CString strText;
        strText.Format("Chains of %d segments: critical chi %.4f", solution.GetLength(),
                       solution.GetCriticalChi());
        pDC->TextOut(20, 20, strText);
    }
};
IMPLEMENT_DYNCREATE(CSolutionView, CView)

class CSolutionApp : public CWinApp {
public:
    CSolutionApp() : CWinApp("Solutions") {}

protected:
    BOOL InitInstance() override {
        SetRegistryKey("Tessara examples");
        tessara::AddMenuResources(MENUS);
        tessara::AddAcceleratorResources(ACCELERATORS);
        tessara::AddStringResources(STRINGS);
        AddDocTemplate(new CSingleDocTemplate(IDR_MAINFRAME, RUNTIME_CLASS(CSolution),
                                              RUNTIME_CLASS(CFrameWnd), RUNTIME_CLASS(CSolutionView)));
        CCommandLineInfo info;
        ParseCommandLine(info);
        return ProcessShellCommand(info);
    }
    void OnLoad() {
        const auto& solution =
            static_cast<const CSolution&>(*static_cast<CFrameWnd*>(m_pMainWnd)->GetActiveDocument());
        CString strDirectory;
        CString strExtension;
        solution.GetArchiveStrings(strDirectory, strExtension);
        CBaseFile file(strDirectory, strExtension, solution.m_strBaseName, solution.m_strBaseTag);
        if (file.GetBase(m_pMainWnd, 1)) {
            OpenDocumentFile(file.GetFilePath());
        }
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CSolutionApp, CWinApp)
ON_COMMAND(ID_FILE_NEW, OnFileNew)
ON_COMMAND(ID_FILE_OPEN, OnLoad)
END_MESSAGE_MAP()
CSolutionApp theApp;
} // namespace

int main(int argc, char* argv[]) {
    return AfxRunApplication(argc, argv);
}
