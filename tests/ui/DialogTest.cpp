#include <gtest/gtest.h>

#include <malloc.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QTimer>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/threads/Sync.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/WindowTable.h"
#include "tests/ui/Specimen.h"

namespace {

QWidget* WidgetOf(const CWnd& wnd) {
    return &tessara::CPeer::Find(wnd.m_hWnd)->GetWidget();
}
QWidget* ControlOf(const CWnd& dialog, UINT nID) {
    return WidgetOf(dialog)->findChild<QWidget*>(QString::number(nID));
}
/// Shows a dialog and waits until it has the keyboard.
void Show(CWnd& dialog) {
    dialog.ShowWindow(SW_SHOW);
    WidgetOf(dialog)->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(WidgetOf(dialog)));
}
UINT FocusID() {
    const CWnd* const pFocus = CWnd::GetFocus();
    return pFocus ? static_cast<UINT>(pFocus->GetDlgCtrlID()) : 0;
}

class DialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_dialog.Open());
        ASSERT_NO_FATAL_FAILURE(Show(m_dialog));
        m_dialog.TakeHeard();
    }
    void Key(Qt::Key eKey, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), eKey, held);
    }

    CSpecimen m_dialog;
};

TEST_F(DialogTest, IsNamedByItsNumbersAndShowsWhatItsMembersHold) {
    EXPECT_EQ(WidgetOf(m_dialog)->objectName(), "900");
    EXPECT_EQ(WidgetOf(m_dialog)->windowTitle(), "Every control");
    CString strText;
    m_dialog.GetDlgItemText(ID_NAME, strText);
    EXPECT_EQ(strText, "Polystyrene");
    EXPECT_EQ(static_cast<CButton*>(m_dialog.GetDlgItem(ID_LARGE))->GetCheck(), 1);
    m_dialog.SetDlgItemText(ID_NAME, "Polyethylene");
    QTest::mouseClick(ControlOf(m_dialog, ID_HUGE), Qt::LeftButton, {}, QPoint(8, 8));
    QTest::mouseClick(ControlOf(m_dialog, ID_LID), Qt::LeftButton, {}, QPoint(8, 8));
    m_dialog.Exchange(TRUE);
    EXPECT_EQ(m_dialog.m_strName, "Polyethylene");
    EXPECT_EQ(m_dialog.m_nSize, 2);
    EXPECT_EQ(m_dialog.m_nLid, 0);
    m_dialog.m_nSize = -1;
    m_dialog.Exchange(FALSE);
    m_dialog.Exchange(TRUE);
    EXPECT_EQ(m_dialog.m_nSize, -1);
}

TEST_F(DialogTest, GivesEachControlItsObjectUntilTheProgramAttachesOne) {
    CWnd* const pEdit = m_dialog.GetDlgItem(ID_NAME);
    EXPECT_TRUE(pEdit->IsKindOf(RUNTIME_CLASS(CEdit)));
    EXPECT_TRUE(m_dialog.GetDlgItem(ID_LINES)->IsKindOf(RUNTIME_CLASS(CListBox)));
    EXPECT_EQ(m_dialog.GetDlgItem(ID_TABLE), &m_dialog.m_table);
    CWnd foreign;
    EXPECT_TRUE(foreign.SubclassDlgItem(ID_FOREIGN, &m_dialog));
    EXPECT_EQ(m_dialog.GetDlgItem(ID_FOREIGN), &foreign);
    foreign.UnsubclassWindow();
    EXPECT_NE(m_dialog.GetDlgItem(ID_FOREIGN), nullptr);
    EXPECT_EQ(m_dialog.GetDlgItem(4711), nullptr);
}

TEST_F(DialogTest, TabFollowsTheTemplateAndArrowsMoveInAGroup) {
    EXPECT_EQ(FocusID(), UINT{ID_NAME});
    for (const UINT nID : {ID_COMMENT, ID_LARGE, ID_LID, ID_UNSURE, ID_COUNT, ID_LINES, ID_DRAWN, ID_CHECKS,
                           ID_TABLE, ID_AMOUNT}) {
        Key(Qt::Key_Tab);
        EXPECT_EQ(FocusID(), nID);
    }
    m_dialog.PrevDlgCtrl();
    EXPECT_EQ(FocusID(), UINT{ID_TABLE});
    m_dialog.GotoDlgCtrl(m_dialog.GetDlgItem(ID_LARGE));
    m_dialog.TakeHeard();
    Key(Qt::Key_Down);
    EXPECT_EQ(FocusID(), UINT{ID_HUGE});
    EXPECT_EQ(m_dialog.TakeHeard(), "15:0 ");
    Key(Qt::Key_Down); // not beyond the group
    EXPECT_TRUE(FocusID() == ID_SMALL || FocusID() == ID_HUGE);
}

TEST_F(DialogTest, MnemonicsLeadToTheNextControlAndLabelsNameIt) {
    const auto fnPress = [&](Qt::Key eKey) { QTest::keyClick(WidgetOf(m_dialog), eKey, Qt::AltModifier); };
    fnPress(Qt::Key_M);
    EXPECT_EQ(FocusID(), UINT{ID_TABLE});
    fnPress(Qt::Key_N);
    EXPECT_EQ(FocusID(), UINT{ID_NAME});
    fnPress(Qt::Key_Z);
    EXPECT_EQ(FocusID(), UINT{ID_LARGE});
    fnPress(Qt::Key_R);
    CString strHeard; // a button that is pressed by its letter shows that for a moment
    EXPECT_TRUE(QTest::qWaitFor([&] { return (strHeard += m_dialog.TakeHeard()).Find("29:0 ") >= 0; }));
    const std::pair<UINT, const char*> names[] = {{ID_NAME, "Name of the polymer:"},
                                                  {ID_LINES, "Sorted"},
                                                  {ID_TABLE, "Monomers"},
                                                  {ID_AMOUNT, "Amount:"},
                                                  {ID_LID, "With a lid"}};
    for (const auto& [nID, pszName] : names) {
        EXPECT_EQ(QAccessible::queryAccessibleInterface(ControlOf(m_dialog, nID))->text(QAccessible::Name),
                  pszName);
    }
}

TEST_F(DialogTest, EnterPressesTheDefaultButtonAndEscapeCancels) {
    EXPECT_EQ(m_dialog.GetDefID(), IDOK | DC_HASDEFID << 16);
    m_dialog.SetDefID(ID_APPLY);
    EXPECT_EQ(m_dialog.GetDefID(), ID_APPLY | DC_HASDEFID << 16);
    Key(Qt::Key_Return);
    EXPECT_EQ(m_dialog.TakeHeard(), "29:0 ");
    m_dialog.GetDlgItem(IDCANCEL)->EnableWindow(FALSE);
    Key(Qt::Key_Escape);
    WidgetOf(m_dialog)->close();
    EXPECT_EQ(m_dialog.TakeHeard(), "");
    EXPECT_TRUE(m_dialog.IsWindowVisible());
    m_dialog.GetDlgItem(IDCANCEL)->EnableWindow(TRUE);
    Key(Qt::Key_Escape);
    EXPECT_EQ(m_dialog.TakeHeard().Left(4), "2:0 ");
    EXPECT_FALSE(m_dialog.IsWindowVisible()); // hidden, not gone
    EXPECT_TRUE(IsWindow(m_dialog.m_hWnd));
    ASSERT_NO_FATAL_FAILURE(Show(m_dialog));
    WidgetOf(m_dialog)->close();
    EXPECT_FALSE(m_dialog.IsWindowVisible());
}

TEST_F(DialogTest, GrowsWithItsTextsSoThatNothingIsCutOff) {
    const QSize before = WidgetOf(m_dialog)->size();
    const QRect edit = ControlOf(m_dialog, ID_NAME)->geometry();
    m_dialog.SetDlgItemText(ID_APPLY, "A label of a button that is too long");
    const QWidget& button = *ControlOf(m_dialog, ID_APPLY);
    EXPECT_GE(button.width(), button.fontMetrics().horizontalAdvance("A label of a button that is too long"));
    EXPECT_GT(WidgetOf(m_dialog)->width(), before.width());
    EXPECT_LE(button.geometry().right(), WidgetOf(m_dialog)->width());
    EXPECT_GT(ControlOf(m_dialog, ID_NAME)->x(), edit.x()); // everything has grown together
}

/// Ends with OK when it is told.
class CPlain : public CDialog {
public:
    explicit CPlain(CWnd* pParent = nullptr) : CDialog(ID_PLAIN, pParent) { AddSpecimenResources(); }
    std::function<void()> m_fnShown;

protected:
    LRESULT OnShown(WPARAM, LPARAM) {
        m_fnShown();
        return 0;
    }
    BOOL OnInitDialog() override {
        PostMessage(WM_USER);
        return CDialog::OnInitDialog();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPlain, CDialog)
ON_MESSAGE(WM_USER, OnShown)
END_MESSAGE_MAP()

TEST_F(DialogTest, AModalDialogInAModalDialogKeepsItsOwnerFromInput) {
    CPlain outer(&m_dialog);
    CPlain inner(&outer);
    int nInner = 0;
    outer.m_fnShown = [&] {
        EXPECT_FALSE(m_dialog.IsWindowEnabled());
        EXPECT_TRUE(ControlOf(m_dialog, ID_APPLY)->isEnabled()); // nothing of the owner is greyed
        QTest::mouseClick(ControlOf(m_dialog, ID_APPLY), Qt::LeftButton);
        nInner = inner.DoModal();
        EXPECT_TRUE(outer.IsWindowEnabled());
        EXPECT_FALSE(IsWindow(inner.m_hWnd));
        QTest::mouseClick(ControlOf(outer, IDCANCEL), Qt::LeftButton);
    };
    inner.m_fnShown = [&] {
        EXPECT_FALSE(outer.IsWindowEnabled());
        QTest::mouseClick(ControlOf(outer, IDCANCEL), Qt::LeftButton);
        QTest::keyClick(ControlOf(inner, ID_NAME), Qt::Key_Return); // no default button: IDOK
    };
    EXPECT_EQ(outer.DoModal(), IDCANCEL);
    EXPECT_EQ(nInner, IDOK);
    EXPECT_TRUE(m_dialog.IsWindowEnabled());
    EXPECT_EQ(m_dialog.TakeHeard().Find("29:0"), -1);
    QTest::mouseClick(ControlOf(m_dialog, ID_APPLY), Qt::LeftButton);
    EXPECT_NE(m_dialog.TakeHeard().Find("29:0"), -1);
}

TEST(Dialog, WithoutTemplateModalThrowsAndModelessDoesNotExist) {
    CDialog dialog(4711);
    EXPECT_THROW(dialog.DoModal(), CResourceException);
    EXPECT_FALSE(dialog.Create(4711));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, EndsModalWhenItsWindowIsDestroyedAndPassesExceptionsOn) {
    class CThrower : public CDialog {
    public:
        explicit CThrower(CWnd* pParent) : CDialog(ID_PLAIN, pParent) {}
        BOOL OnInitDialog() override { AfxThrowResourceException(); }
    };
    CPlain dialog;
    dialog.m_fnShown = [&] {
        CThrower thrower(&dialog);
        EXPECT_THROW(thrower.DoModal(), CResourceException);
        EXPECT_EQ(thrower.m_hWnd, nullptr);
        EXPECT_TRUE(dialog.IsWindowEnabled());
        dialog.DestroyWindow();
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

constexpr DWORD LIMIT = 60'000; ///< milliseconds: what does not come fails the test

UINT RunDialog(void* pResult) {
    CPlain dialog;
    const DWORD nThread = GetCurrentThreadId();
    dialog.m_fnShown = [&] {
        EXPECT_EQ(GetCurrentThreadId(), nThread);
        CString strText;
        dialog.SetDlgItemText(ID_NAME, "from afar");
        dialog.GetDlgItemText(ID_NAME, strText);
        EXPECT_EQ(strText, "from afar");
        const HWND hDialog = dialog.m_hWnd;
        tessara::OnMainThread([hDialog] { // the user's hand, while the main thread waits
            QTest::mouseClick(ControlOf(*CWnd::FromHandle(hDialog), IDCANCEL), Qt::LeftButton);
        });
    };
    *static_cast<int*>(pResult) = dialog.DoModal();
    return 0;
}

TEST(Dialog, RunsOnAnotherThreadWhileTheMainOneWaits) {
    const std::size_t nBefore = tessara::CountWindows();
    int nResult = 0;
    CWinThread thread(&RunDialog, &nResult);
    thread.m_bAutoDelete = FALSE;
    ASSERT_TRUE(thread.CreateThread());
    EXPECT_EQ(WaitForSingleObject(thread.m_hThread, LIMIT), WAIT_OBJECT_0);
    EXPECT_EQ(nResult, IDCANCEL);
    EXPECT_EQ(tessara::CountWindows(), nBefore);
}

TEST(Dialog, LeavesNothingBehind) {
    const auto fnRound = [] {
        CSpecimen modeless;
        ASSERT_TRUE(modeless.Open());
        modeless.ShowWindow(SW_SHOW);
        QTimer timer;
        CSpecimen modal(&modeless);
        QObject::connect(&timer, &QTimer::timeout, [&] { modal.EndDialog(IDOK); });
        timer.start(0);
        EXPECT_EQ(modal.DoModal(), IDOK);
    };
    const auto fnRounds = [&](int nRounds) {
        for (int i = 0; i < nRounds; ++i) {
            fnRound();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return mallinfo2().uordblks;
    };
    const std::size_t nWarm = fnRounds(30);
    const auto nWidgets = QApplication::allWidgets().size();
    const std::size_t nWindows = tessara::CountWindows();
    const std::size_t nAfter = fnRounds(100);
    EXPECT_EQ(QApplication::allWidgets().size(), nWidgets);
    EXPECT_EQ(tessara::CountWindows(), nWindows);
    EXPECT_LT(nAfter, nWarm + 16384);
}

} // namespace
