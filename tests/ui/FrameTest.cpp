#include <malloc.h>

#include <QLabel>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/System.h"
#include "tessara/platform/ui/windows/WindowTable.h"
#include "tests/ui/Frames.h"

namespace {

using FrameTest = FrameFixture;

QToolButton& ButtonOf(CToolBar& bar, UINT nID) {
    const auto buttons = WidgetOf(bar).findChildren<QToolButton*>();
    for (QToolButton* const pButton : buttons) {
        if (pButton->defaultAction() && pButton->defaultAction()->data().toUInt() == nID) {
            return *pButton;
        }
    }
    throw std::runtime_error("no button");
}

TEST_F(FrameTest, ShowsItsMenuBarsAndViewInOneWindow) {
    EXPECT_TRUE(Frame().IsWindowVisible());
    EXPECT_EQ(Title(), "Untitled - Marks");
    CRect client;
    CRect view;
    Frame().GetClientRect(&client);
    View().GetClientRect(&view);
    EXPECT_EQ(view, client);
    EXPECT_GT(view.Width(), 100);
    const QRect middle = WidgetOf(Frame()).geometry();
    EXPECT_LE(Window().menuBar()->geometry().bottom(), middle.top());
    EXPECT_LE(WidgetOf(Frame().m_toolBar).geometry().bottom(), middle.top());
    EXPECT_GE(Window().statusBar()->geometry().top(), middle.bottom());
    Window().resize(500, 400);
    QTest::qWait(1);
    Frame().GetClientRect(&client);
    View().GetClientRect(&view);
    EXPECT_EQ(view, client);
}

TEST_F(FrameTest, CommandsGoToTheViewTheDocumentTheFrameAndTheApplication) {
    Choose(1, ID_MARK);
    EXPECT_EQ(View().m_nMarks, 1);
    Frame().SendMessage(WM_COMMAND, ID_APP_ABOUT);
    EXPECT_EQ(m_app.m_nAbout, 1);
    Choose(1, ID_VIEW_STATUS_BAR);
    EXPECT_FALSE(Frame().m_statusBar.IsWindowVisible());
    EXPECT_TRUE(tessara::IsCommandHandled(Frame(), ID_FILE_SAVE));
    EXPECT_FALSE(tessara::IsCommandHandled(Frame(), ID_NOBODYS));
}

TEST_F(FrameTest, ItemsLookAsTheirHandlersSayWhenTheMenuOpens) {
    QMenu& menu = OpenMenu(1);
    EXPECT_TRUE(ItemOf(menu, ID_MARK)->isEnabled());
    EXPECT_EQ(ItemOf(menu, ID_MARK)->text(), "&Mark\tF2");
    EXPECT_FALSE(ItemOf(menu, ID_GREYED)->isEnabled());
    EXPECT_TRUE(ItemOf(menu, ID_CHECKED)->isChecked());
    EXPECT_FALSE(ItemOf(menu, ID_NOBODYS)->isEnabled());
    EXPECT_TRUE(ItemOf(menu, ID_VIEW_STATUS_BAR)->isChecked());
    menu.close();
    View().m_bCheck = FALSE;
    OpenMenu(1).close();
    EXPECT_FALSE(ItemOf(menu, ID_CHECKED)->isChecked());
    Choose(1, ID_GREYED);
    EXPECT_EQ(View().m_nMarks, 0);
}

TEST_F(FrameTest, AProgramGreysAnItemThroughTheMenuUntilItEnablesIt) {
    CMenu* const pMenu = Frame().GetMenu();
    ASSERT_NE(pMenu, nullptr);
    EXPECT_EQ(pMenu, Frame().GetMenu());
    EXPECT_EQ(pMenu->EnableMenuItem(ID_COMPUTE, MF_GRAYED), static_cast<UINT>(MF_ENABLED));
    Frame().DrawMenuBar();
    EXPECT_FALSE(ItemOf(OpenMenu(1), ID_COMPUTE)->isEnabled());
    pMenu->EnableMenuItem(ID_COMPUTE, MF_ENABLED);
    Choose(1, ID_COMPUTE);
    EXPECT_EQ(View().m_nMarks, 1);
    EXPECT_EQ(pMenu->EnableMenuItem(1234, MF_GRAYED), 0xFFFFFFFF);
}

TEST_F(FrameTest, MenusAreReadAndChanged) {
    CMenu* const pView = Frame().GetMenu()->GetSubMenu(1);
    ASSERT_NE(pView, nullptr);
    EXPECT_EQ(Frame().GetMenu()->GetMenuItemCount(), 2U);
    EXPECT_EQ(pView->GetMenuItemID(0), ID_MARK);
    EXPECT_EQ(pView->GetMenuItemID(6), 0xFFFFFFFF);
    EXPECT_EQ(pView->GetSubMenu(0), nullptr);
    EXPECT_EQ(pView->GetSubMenu(6)->GetMenuItemID(0), static_cast<UINT>(ID_APP_ABOUT));
    const UINT nCount = pView->GetMenuItemCount();
    EXPECT_TRUE(pView->AppendMenu(MF_STRING | MF_CHECKED, ID_MARK + 9, "Last"));
    EXPECT_TRUE(pView->InsertMenu(0, MF_BYPOSITION | MF_SEPARATOR));
    EXPECT_EQ(pView->GetMenuItemCount(), nCount + 2);
    EXPECT_EQ(pView->GetMenuState(0, MF_BYPOSITION) & MF_SEPARATOR, static_cast<UINT>(MF_SEPARATOR));
    EXPECT_EQ(pView->GetMenuState(ID_MARK + 9, MF_BYCOMMAND), static_cast<UINT>(MF_CHECKED));
    EXPECT_EQ(pView->CheckMenuItem(ID_MARK + 9, MF_UNCHECKED), static_cast<UINT>(MF_CHECKED));
    CString strText;
    EXPECT_EQ(Frame().GetMenu()->GetMenuString(ID_MARK, strText, MF_BYCOMMAND), 8);
    EXPECT_EQ(strText, "&Mark\tF2");
    EXPECT_TRUE(pView->DeleteMenu(ID_MARK, MF_BYCOMMAND));
    EXPECT_FALSE(pView->DeleteMenu(ID_MARK, MF_BYCOMMAND));
    CMenu none;
    EXPECT_EQ(none.GetMenuItemCount(), 0U);
    EXPECT_FALSE(none.TrackPopupMenu(0, 0, 0, &Frame()));
}

TEST_F(FrameTest, APopupIsTrackedAndItsCommandSent) {
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_MAINFRAME));
    const auto fnChooseMark = [] {
        QTimer::singleShot(10, qApp, [] {
            QWidget* const pPopup = QApplication::activePopupWidget();
            ASSERT_NE(pPopup, nullptr);
            QTest::keyClick(pPopup, Qt::Key_Down);
            QTest::keyClick(pPopup, Qt::Key_Return);
        });
    };
    fnChooseMark();
    EXPECT_TRUE(menu.GetSubMenu(1)->TrackPopupMenu(TPM_LEFTALIGN, 50, 50, &Frame()));
    EXPECT_EQ(View().m_nMarks, 1);
    fnChooseMark();
    EXPECT_EQ(menu.GetSubMenu(1)->TrackPopupMenu(TPM_RETURNCMD, 50, 50, &Frame()),
              static_cast<BOOL>(ID_MARK));
    EXPECT_EQ(View().m_nMarks, 1);
    EXPECT_THROW(CMenu().LoadMenu(9999), CResourceException);
}

TEST_F(FrameTest, AcceleratorsRunCommandsThatAreNotGreyed) {
    QTest::keyClick(&WidgetOf(View()), Qt::Key_F2);
    EXPECT_EQ(View().m_nMarks, 1);
    QTest::keyClick(&WidgetOf(View()), Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(View().m_nMarks, 2);
    QTest::keyClick(&WidgetOf(View()), Qt::Key_M, Qt::ControlModifier);
    QTest::keyClick(&WidgetOf(View()), Qt::Key_F2, Qt::ShiftModifier);
    QTest::keyClick(&WidgetOf(View()), Qt::Key_F3); // greyed
    EXPECT_EQ(View().m_nMarks, 2);
    Frame().GetMenu()->DeleteMenu(ID_MARK, MF_BYCOMMAND);
    QTest::keyClick(&WidgetOf(View()), Qt::Key_F2);
    EXPECT_EQ(View().m_nMarks, 3);
}

/// A key as the window system tells of it, and whether it runs a command.
struct CKeyCase {
    Qt::Key eKey;
    Qt::KeyboardModifiers eModifiers;
    bool bCommand = true;
};

TEST_F(FrameTest, AcceleratorsAreFoundHoweverAKeyboardTypesThem) {
    const Qt::KeyboardModifiers eControl = Qt::ControlModifier;
    const CKeyCase cases[] = {
        {Qt::Key_Plus, eControl},
        {Qt::Key_Plus, eControl | Qt::ShiftModifier}, // Shift types it where '=' is below
        {Qt::Key_Equal, eControl},
        {Qt::Key_Equal, eControl | Qt::ShiftModifier, false}, // another key's
        {Qt::Key_Plus, eControl | Qt::KeypadModifier},
        {Qt::Key_Minus, eControl},
        {Qt::Key_Minus, eControl | Qt::ShiftModifier, false},
        {Qt::Key_Minus, eControl | Qt::KeypadModifier},
        {Qt::Key_0, eControl},
        {Qt::Key_0, eControl | Qt::KeypadModifier},
        {Qt::Key_Left, Qt::AltModifier},
        {Qt::Key_Right, Qt::AltModifier},
        {Qt::Key_F2, Qt::NoModifier},
        {Qt::Key_F10, Qt::NoModifier},
        {Qt::Key_F11, Qt::NoModifier},
        {Qt::Key_Escape, Qt::NoModifier},
        {Qt::Key_Plus, Qt::NoModifier, false}};
    for (const CKeyCase& key : cases) {
        View().m_nMarks = 0;
        QTest::keyClick(Window().windowHandle(), key.eKey, key.eModifiers);
        EXPECT_EQ(View().m_nMarks, key.bCommand ? 1 : 0) << key.eKey << ' ' << key.eModifiers;
    }
}

TEST_F(FrameTest, OtherKeysReachTheView) {
    for (const Qt::Key eKey : {Qt::Key_X, Qt::Key_7, Qt::Key_Left, Qt::Key_Down, Qt::Key_Home, Qt::Key_Tab,
                               Qt::Key_Plus, Qt::Key_F5}) {
        QTest::keyClick(Window().windowHandle(), eKey);
    }
    const std::vector<UINT> expected = {'X', '7', VK_LEFT, VK_DOWN, VK_HOME, VK_TAB, VK_OEM_PLUS, VK_F5};
    EXPECT_EQ(View().m_keys, expected);
}

TEST_F(FrameTest, FillsTheScreenWithoutBarsAndComesBackAsItWas) {
    Frame().ShowControlBar(&Frame().m_statusBar, FALSE, FALSE); // stays hidden
    const QRect before = Window().geometry();
    Frame().ShowFullScreen(TRUE);
    QApplication::processEvents();
    EXPECT_TRUE(Frame().IsFullScreen());
    EXPECT_FALSE(Window().menuBar()->isVisible());
    EXPECT_FALSE(Frame().m_toolBar.IsWindowVisible());
    CRect view;
    View().GetClientRect(&view);
    EXPECT_EQ(view, CRect(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
    QTest::keyClick(Window().windowHandle(), Qt::Key_F2);
    EXPECT_EQ(View().m_nMarks, 1);
    WINDOWPLACEMENT placement;
    Frame().GetWindowPlacement(&placement);
    EXPECT_EQ(placement.rcNormalPosition.right - placement.rcNormalPosition.left, before.width());
    Frame().ShowFullScreen(FALSE);
    QApplication::processEvents();
    EXPECT_FALSE(Frame().IsFullScreen());
    EXPECT_TRUE(Window().menuBar()->isVisible());
    EXPECT_TRUE(Frame().m_toolBar.IsWindowVisible());
    EXPECT_FALSE(Frame().m_statusBar.IsWindowVisible());
    EXPECT_EQ(Window().geometry(), before);
}

TEST_F(FrameTest, AMaximisedFrameIsMaximisedAfterFillingTheScreen) {
    Frame().ShowWindow(SW_SHOWMAXIMIZED);
    Frame().ShowFullScreen(TRUE);
    Frame().ShowFullScreen(FALSE);
    EXPECT_TRUE(Frame().IsZoomed());
    Frame().ShowFullScreen(TRUE);
    Frame().ShowWindow(SW_RESTORE); // by another way
    EXPECT_FALSE(Frame().IsFullScreen());
    EXPECT_TRUE(Window().menuBar()->isVisible());
}

TEST_F(FrameTest, ButtonsAndPanesFollowTheirHandlersWhenTheProgramIsIdle) {
    bool bIdle = false;
    QTimer::singleShot(20, qApp, [&] {
        bIdle = true;
        tessara::CMailbox::OfMainThread()->Post({nullptr, WM_NULL, 0, 0});
    });
    tessara::RunLoopUntil([&] { return bIdle; });
    CToolBar& bar = Frame().m_toolBar;
    EXPECT_TRUE(ButtonOf(bar, ID_MARK).isEnabled());
    EXPECT_FALSE(ButtonOf(bar, ID_MARK).icon().isNull());
    EXPECT_EQ(ButtonOf(bar, ID_MARK).toolTip(), "Mark");
    EXPECT_FALSE(ButtonOf(bar, ID_GREYED).isEnabled());
    EXPECT_TRUE(ButtonOf(bar, ID_CHECKED).isChecked());
    QTest::mouseClick(&ButtonOf(bar, ID_MARK), Qt::LeftButton);
    EXPECT_EQ(View().m_nMarks, 1);
    EXPECT_THROW(bar.LoadToolBar(9999), CResourceException);
}

TEST_F(FrameTest, TheStatusBarTellsOfTheHighlightedItemAndThePanes) {
    CStatusBar& bar = Frame().m_statusBar;
    EXPECT_EQ(bar.GetPaneText(0), "Ready");
    EXPECT_EQ(bar.GetPaneText(1), "CHK");
    QMenu& menu = OpenMenu(1);
    QTest::mouseMove(&menu, menu.actionGeometry(ItemOf(menu, ID_MARK)).center());
    EXPECT_EQ(Window().statusBar()->currentMessage(), "Counts a mark");
    menu.close();
    EXPECT_EQ(Window().statusBar()->currentMessage(), "");
    Frame().SetMessageText("Computing");
    EXPECT_EQ(bar.GetPaneText(0), "Computing");
    EXPECT_TRUE(bar.SetPaneText(1, "on"));
    EXPECT_EQ(bar.GetPaneText(1), "on");
    EXPECT_FALSE(bar.SetPaneText(2, "none"));
}

TEST_F(FrameTest, TheViewIsWhitePaperInADarkPaletteToo) {
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(dark);
    View().RedrawWindow();
    CClientDC dc(&View());
    CRect client;
    View().GetClientRect(&client);
    EXPECT_EQ(dc.GetPixel(3, 3), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetPixel(client.Width() / 2, client.Height() / 2), RGB(255, 0, 0));
    const CString strPath = PathOf("frame.png");
    Frame().SaveImage(strPath);
    const QImage picture(QString(static_cast<const char*>(strPath)));
    const QPoint corner = WidgetOf(View()).mapTo(&Window(), QPoint(3, 3));
    EXPECT_EQ(picture.pixelColor(corner), QColor(Qt::white));
    EXPECT_EQ(picture.size(), Window().size());
    QApplication::setPalette(before);
}

TEST_F(FrameTest, ClosingTheMainFrameEndsTheProgram) {
    const HWND hWnd = Frame().m_hWnd;
    QTimer::singleShot(0, &Window(), [this] { Window().close(); });
    EXPECT_FALSE(tessara::RunLoopUntil([] { return false; }));
    EXPECT_FALSE(IsWindow(hWnd));
    EXPECT_EQ(m_app.m_pMainWnd, nullptr);
}

TEST(Frame, WithoutAMenuResourceCannotBeLoaded) {
    auto* const pFrame = new CFrameWnd;
    EXPECT_THROW(pFrame->LoadFrame(9999), CResourceException);
    EXPECT_THROW(pFrame->LoadAccelTable(9999), CResourceException);
    delete pFrame;
}

TEST(Frame, LeavesNothingBehind) {
    CTestApp app; // adds the tables
    const auto fnRound = [] {
        CCreateContext context{RUNTIME_CLASS(CMarkView), nullptr, nullptr};
        auto* const pFrame = new CTestFrame;
        ASSERT_TRUE(pFrame->LoadFrame(IDR_MAINFRAME, WS_OVERLAPPEDWINDOW, nullptr, &context));
        pFrame->InitialUpdateFrame(nullptr, TRUE);
        pFrame->GetMenu()->GetSubMenu(0);
        QApplication::processEvents();
        pFrame->DestroyWindow();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    fnRound();
    const std::size_t nWindows = tessara::CountWindows();
    const auto nWidgets = QApplication::allWidgets().size();
    const char* const pszRounds = std::getenv("TESSARA_LEAK_ROUNDS");
    const int nRounds = pszRounds ? std::max(1, std::atoi(pszRounds)) : 200;
    const auto nHeap = mallinfo2().uordblks;
    for (int i = 0; i < nRounds; ++i) {
        fnRound();
    }
    EXPECT_EQ(tessara::CountWindows(), nWindows);
    EXPECT_EQ(QApplication::allWidgets().size(), nWidgets);
    constexpr std::size_t ALLOWED = 1U
                                    << 20; // less than one view's image; what Qt keeps for later is a tenth
    EXPECT_LT(mallinfo2().uordblks, nHeap + ALLOWED);
    RecordProperty("heap_growth", static_cast<int>(mallinfo2().uordblks - nHeap));
}

} // namespace
