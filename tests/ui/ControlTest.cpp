#include <gtest/gtest.h>

#include <cstring>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolButton>

#include "tessara/platform/base/Exception.h"
#include "tests/ui/SpecimenFixture.h"

namespace {

class ControlTest : public SpecimenTest {};

TEST_F(ControlTest, ClickedButtonsTellAndThoseSetByTheProgramDoNot) {
    auto& unsure = Get<CButton>(ID_UNSURE);
    unsure.SetCheck(2);
    EXPECT_EQ(unsure.GetCheck(), 2);
    Get<CButton>(ID_SMALL).SetCheck(1);
    EXPECT_EQ(Get<CButton>(ID_LARGE).GetCheck(), 0);
    EXPECT_EQ(m_dialog.TakeHeard(), "");
    Click(ID_UNSURE);
    EXPECT_EQ(unsure.GetCheck(), 1);
    Click(ID_HUGE);
    EXPECT_EQ(Get<CButton>(ID_SMALL).GetCheck(), 0);
    Press(ID_LID, Qt::Key_Space);
    EXPECT_EQ(m_dialog.TakeHeard(), "10:512 17:0 15:0 16:0 ");
    EXPECT_FALSE(m_dialog.GetDlgItem(ID_APPLY)->EnableWindow(FALSE));
    Click(ID_APPLY);
    EXPECT_EQ(m_dialog.TakeHeard(), "");
}

TEST_F(ControlTest, EditsTellOfChangesAndOfTheKeyboard) {
    m_dialog.GotoDlgCtrl(m_dialog.GetDlgItem(ID_COUNT));
    EXPECT_EQ(m_dialog.TakeHeard(), "10:512 24:256 ");
    QTest::keyClicks(ControlOf(ID_COUNT), "1a2"); // digits alone
    EXPECT_EQ(m_dialog.TakeHeard(), "24:768 24:768 ");
    EXPECT_EQ(TextOf(ID_COUNT), "12");
    m_dialog.SetDlgItemText(ID_NAME, "x");
    EXPECT_EQ(m_dialog.TakeHeard(), "10:768 ");
    m_dialog.SetDlgItemText(ID_COMMENT, "x");
    EXPECT_EQ(m_dialog.TakeHeard(), "");
    QTest::keyClicks(ControlOf(ID_COMMENT), "y");
    Press(ID_COMMENT, Qt::Key_Return);
    EXPECT_EQ(m_dialog.TakeHeard(), "11:768 11:768 ");
    EXPECT_EQ(TextOf(ID_COMMENT), "y\nx");
    Get<CEdit>(ID_COMMENT).SetReadOnly();
    QTest::keyClicks(ControlOf(ID_COMMENT), "y");
    EXPECT_EQ(TextOf(ID_COMMENT), "y\nx");
}

TEST_F(ControlTest, TypedTextStopsAtTheLimitInBytes) {
    for (const UINT nID : {ID_NAME, ID_COMMENT}) {
        auto& edit = Get<CEdit>(nID);
        edit.LimitText(6);
        edit.SetWindowText("longer than that"); // the program's text is not limited
        EXPECT_EQ(TextOf(nID), "longer than that");
        edit.SetSel(0, -1);
        QTest::keyClicks(ControlOf(nID), "abcdefgh");
        EXPECT_EQ(TextOf(nID), "abcdef");
        edit.SetWindowText("");
        QApplication::clipboard()->setText(QString::fromUtf8("aäöü€"));
        QTest::keyClick(ControlOf(nID), Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(TextOf(nID), "aäö"); // no character is cut
    }
}

TEST_F(ControlTest, SelectionsCountBytes) {
    auto& edit = Get<CEdit>(ID_NAME);
    edit.SetWindowText("äbc");
    edit.SetSel(2, 3);
    EXPECT_EQ(static_cast<QLineEdit*>(ControlOf(ID_NAME))->selectedText(), "b");
    int nStart = 0;
    int nEnd = 0;
    edit.GetSel(nStart, nEnd);
    EXPECT_EQ(std::pair(nStart, nEnd), std::pair(2, 3));
    edit.SetSel(-1, 0);
    EXPECT_FALSE(static_cast<QLineEdit*>(ControlOf(ID_NAME))->hasSelectedText());
}

TEST_F(ControlTest, StaticsKeepTheirTextAndShowItWithoutMark) {
    CStatic label;
    ASSERT_TRUE(label.Create("R&D && more", WS_CHILD | WS_VISIBLE, CRect(0, 0, 90, 20), &m_dialog, 700));
    CString strText;
    label.GetWindowText(strText);
    EXPECT_EQ(strText, "R&D && more");
    EXPECT_EQ(static_cast<QLabel*>(ControlOf(700))->text(), "RD & more");
    CStatic plain;
    ASSERT_TRUE(plain.Create("R&D", WS_CHILD | SS_NOPREFIX, CRect(0, 0, 90, 20), &m_dialog, 701));
    EXPECT_EQ(static_cast<QLabel*>(ControlOf(701))->text(), "R&D");
    label.SetWindowText("a\xE2\x82\xAC!");
    const std::pair<int, const char*> cuts[] = {{6, "a\xE2\x82\xAC!"}, {5, "a\xE2\x82\xAC"}, {4, "a"}, {1, ""}};
    for (const auto& [nRoom, strShown] : cuts) {
        char text[] = "########";
        EXPECT_EQ(m_dialog.GetDlgItemText(700, text, nRoom), static_cast<int>(std::strlen(strShown)));
        EXPECT_STREQ(text, strShown) << "cut before a whole character";
    }
    char text[] = "#";
    EXPECT_EQ(m_dialog.GetDlgItemText(700, text, 0), 0);
    EXPECT_STREQ(text, "#");
    EXPECT_EQ(m_dialog.GetDlgItemText(699, text, 2), 0);
    EXPECT_STREQ(text, "") << "no such control";
    EXPECT_TRUE(label.IsWindowVisible());
    EXPECT_FALSE(plain.IsWindowVisible()); // made without WS_VISIBLE
}

TEST_F(ControlTest, SlidersTellHowTheyAreMoved) {
    m_dialog.m_amount.SetPos(50);
    m_dialog.m_amount.SetLineSize(2);
    m_dialog.m_amount.SetPageSize(10);
    EXPECT_EQ(m_dialog.TakeHeard(), "");
    Press(ID_AMOUNT, Qt::Key_Right);
    Press(ID_AMOUNT, Qt::Key_PageUp);
    Press(ID_AMOUNT, Qt::Key_Home);
    EXPECT_EQ(m_dialog.TakeHeard(), "scroll 1 at 52 scroll 3 at 62 scroll 6 at 0 ");
    QWidget* const pSlider = ControlOf(ID_AMOUNT);
    QTest::mousePress(pSlider, Qt::LeftButton, {}, QPoint(5, pSlider->height() / 3));
    QTest::mouseMove(pSlider, QPoint(pSlider->width() + 50, 5));
    QTest::mouseRelease(pSlider, Qt::LeftButton, {}, QPoint(pSlider->width() + 50, 5));
    EXPECT_EQ(m_dialog.m_amount.GetPos(), 100);
    EXPECT_EQ(m_dialog.TakeHeard(), "10:512 scroll 5 at 100 scroll 4 at 100 scroll 8 at 100 ");
}

TEST_F(ControlTest, ProgressStepsThroughItsRangeAndBeginsAnew) {
    CProgressCtrl& bar = m_dialog.m_progress;
    bar.SetRange(0, 10);
    EXPECT_EQ(bar.SetPos(0), 10); // held in the range
    EXPECT_EQ(bar.SetStep(4), 10);
    EXPECT_EQ(bar.StepIt(), 0);
    bar.StepIt();
    EXPECT_EQ(bar.StepIt(), 8);
    EXPECT_EQ(bar.GetPos(), 2);
    bar.SetRange(0, 0);
    EXPECT_EQ(bar.StepIt(), 0);
    EXPECT_EQ(bar.GetPos(), 0);
}

TEST_F(ControlTest, ASpinButtonReadsAndWritesItsBuddyUnlessItIsForbidden) {
    auto& spin = Get<CSpinButtonCtrl>(ID_SPIN);
    EXPECT_EQ(spin.GetBuddy(), m_dialog.GetDlgItem(ID_COUNT));
    spin.SetRange(0, 14);
    const auto buttons = ControlOf(ID_SPIN)->findChildren<QToolButton*>();
    ASSERT_EQ(buttons.size(), 2);
    m_dialog.SetDlgItemText(ID_COUNT, "11");
    m_dialog.TakeHeard();
    QTest::mouseClick(buttons[0], Qt::LeftButton);
    EXPECT_EQ(TextOf(ID_COUNT), "12");
    Press(ID_COUNT, Qt::Key_Up);
    EXPECT_EQ(TextOf(ID_COUNT), "13");
    EXPECT_EQ(m_dialog.TakeHeard(), "spin 11+1 24:768 spin 12+1 24:768 ");
    Press(ID_COUNT, Qt::Key_Up); // the dialog forbids it
    EXPECT_EQ(spin.GetPos(), 13);
}

TEST_F(ControlTest, AnAnimationMovesWhileItIsSeenAndAMissingOneThrows) {
    const auto fnPicture = [&] { return ControlOf(ID_MOVING)->grab().toImage(); };
    const QImage first = fnPicture();
    EXPECT_TRUE(QTest::qWaitFor([&] { return fnPicture() != first; }));
    m_dialog.m_moving.Stop();
    EXPECT_THROW(m_dialog.m_moving.Open(4711), CResourceException);
    const QImage open = fnPicture();
    m_dialog.m_moving.Close();
    EXPECT_NE(fnPicture(), open);
}

} // namespace
