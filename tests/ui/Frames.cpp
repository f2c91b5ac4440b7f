#include "tests/ui/Frames.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <filesystem>
#include <stdexcept>

#include "tessara/platform/base/Exception.h"

IMPLEMENT_DYNCREATE(CTextDocument, CDocument)
IMPLEMENT_DYNCREATE(CMarkView, CView)
IMPLEMENT_DYNCREATE(CTestFrame, CFrameWnd)

namespace {

constexpr UINT INDICATORS[] = {ID_SEPARATOR, ID_CHECKED};

constexpr tessara::CMenuEntry FILE_MENU[] = {{"&New\tCtrl+N", ID_FILE_NEW},
                                             {"&Open...\tCtrl+O", ID_FILE_OPEN},
                                             {"&Save\tCtrl+S", ID_FILE_SAVE},
                                             {"Save &As...", ID_FILE_SAVE_AS},
                                             tessara::MENU_SEPARATOR,
                                             {"&Print", ID_FILE_PRINT},
                                             {"Recent File", ID_FILE_MRU_FILE1},
                                             tessara::MENU_SEPARATOR,
                                             {"E&xit", ID_APP_EXIT}};
constexpr tessara::CMenuEntry DEEP_MENU[] = {{"&About", ID_APP_ABOUT}};
constexpr tessara::CMenuEntry VIEW_MENU[] = {{"&Mark\tF2", ID_MARK},   {"&Greyed", ID_GREYED},
                                             {"&Checked", ID_CHECKED}, {"&Nobody's", ID_NOBODYS},
                                             {"C&ompute", ID_COMPUTE}, {"Status &Bar", ID_VIEW_STATUS_BAR},
                                             {"&Deeper", DEEP_MENU}};
constexpr tessara::CMenuEntry MAIN_MENU[] = {{"&File", FILE_MENU}, {"&View", VIEW_MENU}};
constexpr tessara::CMenuResource MENUS[] = {{IDR_MAINFRAME, MAIN_MENU}};
constexpr tessara::CAccelerator KEYS[] = {
    {FNONE, VK_F2, ID_MARK},           {FCONTROL | FSHIFT, 'M', ID_MARK}, {FNONE, VK_F3, ID_GREYED},
    {FCONTROL, 'S', ID_FILE_SAVE},     {FCONTROL, VK_OEM_PLUS, ID_MARK},  {FCONTROL, VK_ADD, ID_MARK},
    {FCONTROL, VK_OEM_MINUS, ID_MARK}, {FCONTROL, VK_SUBTRACT, ID_MARK},  {FCONTROL, '0', ID_MARK},
    {FALT, VK_LEFT, ID_MARK},          {FALT, VK_RIGHT, ID_MARK},         {FNONE, VK_F10, ID_MARK},
    {FNONE, VK_F11, ID_MARK},          {FNONE, VK_ESCAPE, ID_MARK}};
constexpr tessara::CAcceleratorResource ACCELERATORS[] = {{IDR_MAINFRAME, KEYS}};
constexpr std::string_view DOT = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16">)"
                                 R"(<circle cx="8" cy="8" r="6" fill="currentColor"/></svg>)";
constexpr tessara::CToolButton BUTTONS[] = {
    {ID_MARK, "Mark", "", DOT}, {0}, {ID_GREYED, "Greyed"}, {ID_CHECKED, "Checked"}};
constexpr tessara::CToolBarResource TOOLBARS[] = {{IDR_MAINFRAME, BUTTONS}};
constexpr tessara::CStringResource STRINGS[] = {
    {IDR_MAINFRAME, "Marks\nUntitled\nText\nText files (*.txt)\n.txt\nMarks.Text\nText"},
    {ID_MARK, "Counts a mark\nMark"},
    {ID_CHECKED, "CHK"}};

void AddTables() {
    [[maybe_unused]] static const bool s_bAdded = [] {
        tessara::AddMenuResources(MENUS);
        tessara::AddAcceleratorResources(ACCELERATORS);
        tessara::AddToolBarResources(TOOLBARS);
        tessara::AddStringResources(STRINGS);
        return true;
    }();
}

/// An empty folder for the running test, which is also where settings are kept.
CString MakeFolder() {
    const auto folder = std::filesystem::path(::testing::TempDir()) /
                        ::testing::UnitTest::GetInstance()->current_test_info()->name();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    setenv("XDG_CONFIG_HOME", folder.string().c_str(), 1);
    return {folder.c_str()};
}

} // namespace

void CTextDocument::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar.Write(m_strText, static_cast<UINT>(m_strText.GetLength()));
        return;
    }
    std::string strText(ar.GetRemaining(), ' ');
    ar.Read(strText.data(), static_cast<UINT>(strText.size()));
    if (strText == "damaged") {
        AfxThrowArchiveException(CArchiveException::badIndex);
    }
    m_strText = strText;
}

void CMarkView::OnDraw(CDC* pDC) {
    m_backModes.push_back(pDC->SetBkMode(OPAQUE));
    CRect client;
    GetClientRect(&client);
    CBrush red(RGB(255, 0, 0));
    const RECT middle{client.Width() / 4, client.Height() / 4, client.Width() * 3 / 4,
                      client.Height() * 3 / 4};
    pDC->FillRect(&middle, &red);
}

void CMarkView::OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint) {
    ++m_nUpdates;
    CView::OnUpdate(pSender, lHint, pHint);
}

void CMarkView::OnActivateView(BOOL bActivate, CView* pActivate, CView* pDeactive) {
    m_activations.push_back(bActivate);
    CView::OnActivateView(bActivate, pActivate, pDeactive);
}

BOOL CMarkView::OnPreparePrinting(CPrintInfo* pInfo) {
    pInfo->SetMaxPage(2);
    pInfo->m_bDirect = !m_strPrintFile.IsEmpty();
    pInfo->m_strFileName = m_strPrintFile;
    return DoPreparePrinting(pInfo);
}

void CMarkView::OnPrint(CDC* pDC, CPrintInfo* pInfo) {
    m_bPrinted = pDC->IsPrinting() && pInfo->m_rectDraw.Width() > 1000;
    m_backModes.push_back(pDC->SetBkMode(OPAQUE));
    pDC->TextOut(pInfo->m_rectDraw.Width() / 2, pInfo->m_rectDraw.Height() / 2, "Page", 4);
}

BOOL CMarkView::OnSetCursor(CWnd* pWnd, UINT nHit, UINT nMessage) {
    if (!m_hShape) {
        return CView::OnSetCursor(pWnd, nHit, nMessage);
    }
    SetCursor(m_hShape);
    return TRUE;
}

void CMarkView::OnMouseMove(UINT, CPoint point) {
    m_last = point;
    if (point.x < 10) {
        SetCursor(LoadCursor(IDC_CROSS));
    }
}

void CMarkView::OnLButtonUp(UINT, CPoint point) {
    m_last = point;
}

BOOL CMarkView::OnMouseWheel(UINT, short nDelta, CPoint point) {
    m_nWheel = nDelta;
    m_last = point;
    return TRUE;
}

BEGIN_MESSAGE_MAP(CMarkView, CView)
ON_COMMAND(ID_MARK, OnMark)
ON_COMMAND(ID_GREYED, OnMark)
ON_COMMAND(ID_CHECKED, OnMark)
ON_COMMAND(ID_COMPUTE, OnMark)
ON_UPDATE_COMMAND_UI(ID_GREYED, OnUpdateGreyed)
ON_UPDATE_COMMAND_UI(ID_CHECKED, OnUpdateChecked)
ON_COMMAND(ID_FILE_PRINT, OnFilePrint)
ON_WM_SETCURSOR()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_MOUSEWHEEL()
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

int CTestFrame::OnCreate(LPCREATESTRUCT pCreate) {
    if (CFrameWnd::OnCreate(pCreate) == -1) {
        return -1;
    }
    const bool bBars = m_toolBar.Create(this) && m_toolBar.LoadToolBar(IDR_MAINFRAME) &&
                       m_statusBar.Create(this) && m_statusBar.SetIndicators(INDICATORS, 2);
    return bBars ? 0 : -1;
}

BEGIN_MESSAGE_MAP(CTestFrame, CFrameWnd)
ON_WM_CREATE()
END_MESSAGE_MAP()

CTestApp::CTestApp() : CWinApp("Marks") {
    AddTables();
    SetRegistryKey("Tests");
    LoadStdProfileSettings();
    AddDocTemplate(new CSingleDocTemplate(IDR_MAINFRAME, RUNTIME_CLASS(CTextDocument),
                                          RUNTIME_CLASS(CTestFrame), RUNTIME_CLASS(CMarkView)));
}

BEGIN_MESSAGE_MAP(CTestApp, CWinApp)
ON_COMMAND(ID_APP_ABOUT, OnAbout)
ON_COMMAND(ID_FILE_NEW, CWinApp::OnFileNew)
ON_COMMAND(ID_FILE_OPEN, CWinApp::OnFileOpen)
END_MESSAGE_MAP()

FrameFixture::FrameFixture() : m_strFolder(MakeFolder()) {
    m_app.OnFileNew();
    if (!m_app.m_pMainWnd || !QTest::qWaitForWindowActive(&Window())) {
        throw std::runtime_error("no frame");
    }
}

FrameFixture::~FrameFixture() {
    if (m_app.m_pMainWnd) {
        m_app.m_pMainWnd->DestroyWindow();
    }
    tessara::TakeExitCode();
}

QMainWindow& FrameFixture::Window() {
    return dynamic_cast<QMainWindow&>(tessara::CPeer::Find(Frame().m_hWnd)->GetWidget());
}

CString FrameFixture::Title() {
    CString strTitle;
    Frame().GetWindowText(strTitle);
    return strTitle;
}

QMenu& FrameFixture::OpenMenu(int nMenu) {
    while (QWidget* const pPopup = QApplication::activePopupWidget()) {
        pPopup->close();
    }
    QMenuBar& bar = *Window().menuBar();
    QAction* const pAction = bar.actions().at(nMenu);
    QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.actionGeometry(pAction).center());
    EXPECT_TRUE(pAction->menu<QMenu*>()->isVisible());
    return *pAction->menu<QMenu*>();
}

QAction* FrameFixture::ItemOf(const QMenu& menu, UINT nID) {
    const auto actions = menu.actions();
    for (QAction* const pAction : actions) {
        if (pAction->data().toUInt() == nID) {
            return pAction;
        }
    }
    return nullptr;
}

void FrameFixture::Choose(int nMenu, UINT nID) {
    QMenu& menu = OpenMenu(nMenu);
    QAction* const pItem = ItemOf(menu, nID);
    ASSERT_NE(pItem, nullptr) << nID;
    const QPoint at = menu.actionGeometry(pItem).center();
    QTest::mouseMove(&menu, at);
    QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, at);
    if (menu.isVisible()) {
        QTest::keyClick(&menu, Qt::Key_Escape); // a greyed item leaves the menu open
    }
}

QWidget& WidgetOf(const CWnd& wnd) {
    return tessara::CPeer::Find(wnd.m_hWnd)->GetClient();
}

void WhenModal(const std::function<void(QWidget&)>& fnAct) {
    QTimer::singleShot(10, qApp, [fnAct] {
        if (QWidget* const pModal = QApplication::activeModalWidget()) {
            fnAct(*pModal);
        } else {
            WhenModal(fnAct);
        }
    });
}

void AnswerPath(const CString& strPath) {
    WhenModal([strPath](QWidget& modal) {
        auto* const pName = dynamic_cast<QFileDialog&>(modal).findChild<QLineEdit*>("fileNameEdit");
        pName->setText(QString(static_cast<const char*>(strPath)));
        QTest::keyClick(pName, Qt::Key_Return);
    });
}

void Answer(QMessageBox::StandardButton eButton, QString* pText) {
    WhenModal([eButton, pText](QWidget& modal) {
        auto& box = dynamic_cast<QMessageBox&>(modal);
        if (pText) {
            *pText = box.text();
        }
        QTest::mouseClick(box.button(eButton), Qt::LeftButton);
    });
}
