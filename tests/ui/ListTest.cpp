#include <gtest/gtest.h>

#include <QHeaderView>
#include <QListView>
#include <QTableView>
#include <QTest>
#include <cstring>

#include "tessara/platform/ui/windows/ClientDC.h"
#include "tests/ui/SpecimenFixture.h"

namespace {

class ListTest : public SpecimenTest {
protected:
    /// The middle of a line of a list box.
    QPoint LineOf(UINT nID, int nLine) {
        const auto* const pView = static_cast<const QListView*>(ControlOf(nID));
        return pView->visualRect(pView->model()->index(nLine, 0)).center();
    }
    void ClickLine(UINT nID, int nLine) {
        QTest::mouseClick(ClientOf(nID), Qt::LeftButton, {}, LineOf(nID, nLine));
    }
    QRect CellOf(int nRow, int nColumn) {
        const auto* const pView = static_cast<const QTableView*>(ControlOf(ID_TABLE));
        return pView->visualRect(pView->model()->index(nRow, nColumn));
    }
};

TEST_F(ListTest, SortedListsAreAlphabeticalWhateverTheCase) {
    auto& list = Get<CListBox>(ID_LINES);
    const char* const sorted[] = {"acrylate", "Butadiene", "ethylene", "isoprene", "styrene", "Vinyl"};
    ASSERT_EQ(list.GetCount(), 6);
    for (int i = 0; i < 6; ++i) {
        CString strText;
        EXPECT_EQ(list.GetText(i, strText), static_cast<int>(std::strlen(sorted[i])));
        EXPECT_EQ(strText, sorted[i]);
    }
    EXPECT_EQ(list.AddString("Carbonate"), 2);
    EXPECT_EQ(list.AddString("carbonate"), 3);
    EXPECT_EQ(list.AddString("CARBONATE"), 2);
    EXPECT_EQ(list.AddString("\xC3\x84ther"), 9); // no locale has a say
    EXPECT_EQ(list.DeleteString(9), 9);
    EXPECT_EQ(list.DeleteString(4), 8);
    EXPECT_EQ(list.DeleteString(2), 7);
    EXPECT_EQ(list.InsertString(0, "zinc"), 0); // where the program says
    EXPECT_EQ(list.InsertString(99, "x"), LB_ERR);
    EXPECT_EQ(list.FindStringExact(-1, "CARBONATE"), 3);
    EXPECT_EQ(list.FindStringExact(3, "carbonate"), 3); // round the end
    EXPECT_EQ(list.FindStringExact(-1, "carbon"), LB_ERR);
    CString strText;
    EXPECT_EQ(list.GetText(99, strText), LB_ERR);
}

TEST_F(ListTest, OnlyTheUsersChoiceIsTold) {
    auto& list = Get<CListBox>(ID_LINES);
    EXPECT_EQ(list.SetCurSel(1), 1);
    list.SetItemData(1, 77);
    EXPECT_EQ(list.InsertString(0, "first"), 0);
    EXPECT_EQ(list.GetCurSel(), 2); // the line stays selected
    EXPECT_EQ(list.GetItemData(2), 77U);
    EXPECT_EQ(list.DeleteString(2), 6);
    EXPECT_EQ(list.GetCurSel(), LB_ERR);
    list.SetCurSel(0);
    list.ResetContent();
    EXPECT_EQ(list.GetCurSel(), LB_ERR);
    list.AddString("a");
    list.AddString("b");
    EXPECT_EQ(m_dialog.TakeHeard(), "");
    ClickLine(ID_LINES, 1);
    EXPECT_EQ(list.GetCurSel(), 1);
    QTest::mouseClick(ClientOf(ID_LINES), Qt::LeftButton, Qt::ControlModifier, LineOf(ID_LINES, 1));
    EXPECT_EQ(list.GetCurSel(), 1);
    Press(ID_LINES, Qt::Key_Up);
    EXPECT_EQ(m_dialog.TakeHeard(), "10:512 18:4 18:1 18:1 ");
    QTest::mouseDClick(ClientOf(ID_LINES), Qt::LeftButton, {}, LineOf(ID_LINES, 0));
    EXPECT_EQ(m_dialog.TakeHeard(), "18:2 ");
    m_dialog.GotoDlgCtrl(m_dialog.GetDlgItem(ID_APPLY));
    EXPECT_EQ(m_dialog.TakeHeard(), "18:5 ");

    list.SetCurSel(LB_ERR); // then an arrow key begins at the first line
    list.SetFocus();
    Press(ID_LINES, Qt::Key_Down);
    EXPECT_EQ(list.GetCurSel(), 0);
    EXPECT_EQ(m_dialog.TakeHeard(), "18:4 18:1 ");
}

TEST_F(ListTest, TheParentMeasuresAndDrawsTheLinesOfAnOwnerDrawnList) {
    auto& list = Get<CListBox>(ID_DRAWN);
    EXPECT_EQ(list.GetItemHeight(0), 22);
    EXPECT_EQ(list.GetItemData(1), reinterpret_cast<std::uintptr_t>(m_dialog.m_drawn[1]));
    EXPECT_EQ(list.GetTextLen(1), 0);
    list.SetCurSel(1);
    const QImage shown = ClientOf(ID_DRAWN)->grab().toImage();
    const auto fnDark = [&](int nLine) { // how much of a line is covered with letters
        int nPixels = 0;
        for (int y = nLine * 22; y < nLine * 22 + 22; ++y) {
            for (int x = 0; x < 60; ++x) {
                nPixels += shown.pixelColor(x, y).lightness() < 100 ? 1 : 0;
            }
        }
        return nPixels;
    };
    const int nBeyond = shown.width() - 3; // the letters
    EXPECT_EQ(shown.pixelColor(nBeyond, 25), QColor(0, 0, 160));
    EXPECT_EQ(shown.pixelColor(nBeyond, 5), QColor(Qt::white));
    EXPECT_GT(fnDark(0), 30);
    EXPECT_LT(fnDark(0), 60 * 22 / 2);
    EXPECT_GT(fnDark(2), 30);
}

/// Measures and draws its lines itself.
class CSelfDrawn : public CListBox {
public:
    void MeasureItem(LPMEASUREITEMSTRUCT pMeasure) override { pMeasure->itemHeight = 31; }
    void DrawItem(LPDRAWITEMSTRUCT pDraw) override {
        CBrush green(RGB(0, 128, 0));
        pDraw->pDC->FillRect(&pDraw->rcItem, &green);
    }
};

TEST(SelfDrawnList, DrawsWhatItsParentDoesNot) {
    CWnd parent;
    ASSERT_TRUE(
        parent.Create(nullptr, "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 200, 200), nullptr, 0));
    CSelfDrawn list;
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_NOSEL, CRect(0, 0, 100, 100),
                            &parent, 5));
    list.AddString("a");
    EXPECT_EQ(list.GetItemHeight(0), 31);
    QWidget& client = tessara::CPeer::Find(list.m_hWnd)->GetClient();
    QTest::qWait(0); // the lines are laid out
    EXPECT_EQ(client.grab().toImage().pixelColor(9, 30), QColor(0, 128, 0));
    QTest::mouseClick(&client, Qt::LeftButton, {}, QPoint(9, 9));
    EXPECT_EQ(list.GetCurSel(), LB_ERR);
}

TEST_F(ListTest, TheParentChoosesTheColoursOfAControl) {
    const QImage shown = ClientOf(ID_LINES)->grab().toImage();
    EXPECT_EQ(shown.pixelColor(shown.width() - 3, shown.height() - 3), QColor(255, 255, 128));
    EXPECT_NE(ClientOf(ID_CHECKS)->grab().toImage().pixelColor(60, 60), QColor(255, 255, 128));
}

TEST_F(ListTest, ChecksAreToldWhenTheUserChangesThem) {
    CCheckListBox& list = m_dialog.m_checks;
    list.SetCheck(1, 0);
    EXPECT_EQ(list.GetCheck(1), 0);
    EXPECT_EQ(m_dialog.TakeHeard(), "");
    const QPoint box(10, LineOf(ID_CHECKS, 2).y());
    QTest::mouseClick(ClientOf(ID_CHECKS), Qt::LeftButton, {}, box);
    EXPECT_EQ(list.GetCheck(2), 0);
    EXPECT_EQ(list.GetCurSel(), 2); // the line is chosen before its check changes
    EXPECT_EQ(m_dialog.TakeHeard(), "10:512 20:4 20:1 20:40 ");
    Press(ID_CHECKS, Qt::Key_Space);
    EXPECT_EQ(list.GetCheck(2), 1);
    EXPECT_EQ(m_dialog.TakeHeard(), "20:40 ");
}

TEST_F(ListTest, AnExtendedListHasAnyNumberOfLinesSelected) {
    auto& single = Get<CListBox>(ID_LINES);
    EXPECT_EQ(std::tuple(single.GetSelCount(), single.SetSel(0), single.GetSelItems(0, nullptr)),
              std::tuple(LB_ERR, LB_ERR, LB_ERR));
    single.SetCurSel(1);
    EXPECT_EQ(std::tuple(single.GetSel(1), single.GetSel(0), single.GetSel(9)), std::tuple(1, 0, LB_ERR));
    CListBox list;
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LBS_NOTIFY | LBS_EXTENDEDSEL, CRect(0, 0, 120, 200),
                            &m_dialog, 700));
    for (const char* pszLine : {"a", "b", "c", "d", "e"}) {
        list.AddString(pszLine);
    }
    const auto fnSelected = [&] {
        std::vector<int> lines(9, -1);
        lines.resize(static_cast<std::size_t>(list.GetSelItems(9, lines.data())));
        EXPECT_EQ(static_cast<int>(lines.size()), list.GetSelCount());
        return lines;
    };
    using Lines = std::vector<int>;
    EXPECT_EQ(list.SetSel(3), 0);
    EXPECT_EQ(list.SetSel(1), 0);
    EXPECT_EQ(list.SetSel(5), LB_ERR);
    EXPECT_EQ(list.SetCurSel(0), LB_ERR); // for lists of one selection
    EXPECT_EQ(fnSelected(), (Lines{1, 3}));
    int nFirst = -1;
    EXPECT_EQ(list.GetSelItems(1, &nFirst), 1);
    EXPECT_EQ(nFirst, 1);
    EXPECT_EQ(list.DeleteString(1), 4); // "c", which comes in its place, is not selected
    EXPECT_EQ(fnSelected(), (Lines{2}));
    EXPECT_EQ(list.SetSel(2, FALSE), 0);
    EXPECT_EQ(fnSelected(), Lines{});
    EXPECT_EQ(list.SetSel(-1), 0);
    EXPECT_EQ(fnSelected(), (Lines{0, 1, 2, 3}));
    EXPECT_EQ(m_dialog.TakeHeard(), "");
    const auto fnClick = [&](int nLine, Qt::KeyboardModifiers held) {
        QTest::mouseClick(ClientOf(700), Qt::LeftButton, held, LineOf(700, nLine));
        return fnSelected();
    };
    EXPECT_EQ(fnClick(1, {}), (Lines{1}));
    EXPECT_EQ(fnClick(3, Qt::ControlModifier), (Lines{1, 3}));
    EXPECT_EQ(list.GetCurSel(), 3);
    EXPECT_EQ(fnClick(1, Qt::ControlModifier), (Lines{3}));
    EXPECT_EQ(list.GetCurSel(), 1); // where the keyboard is, not what is selected
    EXPECT_EQ(fnClick(3, Qt::ShiftModifier), (Lines{1, 2, 3}));
    EXPECT_EQ(m_dialog.TakeHeard(), "10:512 700:4 700:1 700:1 700:1 700:1 ");
    QTest::mouseClick(ClientOf(700), Qt::LeftButton, {}, QPoint(20, 190)); // below the lines
    EXPECT_EQ(fnSelected(), (Lines{1, 2, 3}));
}

TEST_F(ListTest, ATablesRowsHaveCheckBoxes) {
    CListCtrl& table = m_dialog.m_table;
    EXPECT_FALSE(table.SetCheck(0));
    EXPECT_EQ(table.GetItemState(0, LVIS_STATEIMAGEMASK), 0U);
    table.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
    EXPECT_TRUE(table.SetCheck(1));
    EXPECT_FALSE(table.SetCheck(9));
    EXPECT_EQ(std::pair(table.GetCheck(0), table.GetCheck(1)), std::pair(FALSE, TRUE));
    EXPECT_EQ(m_dialog.TakeHeard(), "table 101:1,0 8192 ");
    table.InsertItem(0, "new");
    EXPECT_EQ(std::tuple(table.GetCheck(0), table.GetCheck(1), table.GetCheck(2)),
              std::tuple(FALSE, FALSE, TRUE));
    QTest::mouseClick(ClientOf(ID_TABLE), Qt::LeftButton, {},
                      CellOf(2, 0).topLeft() + QPoint(9, CellOf(2, 0).height() / 2));
    EXPECT_FALSE(table.GetCheck(2));
    EXPECT_NE(m_dialog.TakeHeard().Find("table 101:2,0 4096 "), -1);
    QTest::mouseClick(ClientOf(ID_TABLE), Qt::LeftButton, {}, CellOf(1, 1).center());
    EXPECT_FALSE(table.GetCheck(1)); // not by a click beside the box
    Press(ID_TABLE, Qt::Key_Space);
    EXPECT_TRUE(table.GetCheck(1));
    EXPECT_TRUE(table.SetItemState(1, LVIS_UNCHECKED, LVIS_STATEIMAGEMASK));
    EXPECT_EQ(table.GetItemState(1, LVIS_STATEIMAGEMASK), UINT{LVIS_UNCHECKED});
    table.SetExtendedStyle(0);
    EXPECT_FALSE(table.GetCheck(1));
}

TEST_F(ListTest, ATableHoldsTextsDataAndStates) {
    CListCtrl& table = m_dialog.m_table;
    EXPECT_EQ(table.InsertItem(1, "Is"), 1);
    EXPECT_EQ(table.GetItemText(2, 0), "Bu");
    EXPECT_EQ(table.GetItemText(2, 1), "butadiene");
    EXPECT_EQ(table.GetItemText(1, 1), "");
    EXPECT_FALSE(table.SetItemText(9, 0, "x"));
    EXPECT_TRUE(table.SetItemData(2, 5));
    EXPECT_TRUE(table.DeleteItem(1));
    EXPECT_EQ(table.GetItemData(1), 5U);
    EXPECT_EQ(table.SetExtendedStyle(0), DWORD{LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT});
    CRect client;
    table.GetClientRect(&client);
    EXPECT_EQ(table.GetColumnWidth(1), client.Width() / 2); // measured before the dialog was shown
    EXPECT_EQ(m_dialog.TakeHeard(), "");
    table.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(m_dialog.TakeHeard(), "table 101:1,0 2 ");
    EXPECT_EQ(table.GetNextItem(-1, LVNI_SELECTED), 1);
    EXPECT_EQ(table.GetNextItem(1, LVNI_SELECTED), -1);
    EXPECT_EQ(table.GetItemState(1, LVIS_SELECTED), UINT{LVIS_SELECTED});
    table.DeleteAllItems();
    EXPECT_EQ(table.GetItemCount(), 0);
    EXPECT_EQ(table.GetNextItem(-1, LVNI_SELECTED), -1);
}

TEST_F(ListTest, ATableTellsOfClicksOnRowsAndHeadings) {
    QTest::mouseClick(ClientOf(ID_TABLE), Qt::LeftButton, {}, CellOf(1, 1).center());
    EXPECT_EQ(m_dialog.TakeHeard(), "10:512 table 101:1,0 2 ");
    Press(ID_TABLE, Qt::Key_Up);
    EXPECT_EQ(m_dialog.TakeHeard(), "table 101:1,0 0 table 101:0,0 2 ");
    QTest::mouseDClick(ClientOf(ID_TABLE), Qt::LeftButton, {}, CellOf(0, 1).center());
    EXPECT_EQ(m_dialog.TakeHeard(), "table 3:0,1 0 ");
    auto* const pHeader = static_cast<QTableView*>(ControlOf(ID_TABLE))->horizontalHeader();
    QTest::mouseClick(pHeader->viewport(), Qt::LeftButton, {}, QPoint(CellOf(0, 1).center().x(), 5));
    EXPECT_EQ(m_dialog.TakeHeard(), "table 108:-1,1 0 ");
}

/// The parent of a table whose rows are its own.
class CRowOwner : public CWnd {
public:
    int m_nAsked = 0;

protected:
    void OnGetDispInfo(NMHDR* pHeader, LRESULT*) {
        ++m_nAsked;
        LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(pHeader)->item;
        const CString strText = CString("row ") + CString(std::to_string(item.iItem));
        item.pszText[strText.View().copy(item.pszText, static_cast<std::size_t>(item.cchTextMax) - 1)] = '\0';
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRowOwner, CWnd)
ON_NOTIFY(LVN_GETDISPINFO, 5, OnGetDispInfo)
END_MESSAGE_MAP()

TEST(OwnerDataTable, AsksForRowsWhenTheyAreSeen) {
    CRowOwner parent;
    ASSERT_TRUE(
        parent.Create(nullptr, "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 300), nullptr, 0));
    CListCtrl table;
    ASSERT_TRUE(
        table.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, CRect(0, 0, 200, 200), &parent, 5));
    table.InsertColumn(0, "Row", LVCFMT_RIGHT, 100);
    EXPECT_TRUE(table.SetItemCount(1'000'000));
    EXPECT_EQ(parent.m_nAsked, 0);
    EXPECT_EQ(table.GetItemText(999'999, 0), "row 999999");
    EXPECT_TRUE(table.EnsureVisible(500'000, FALSE));
    tessara::CPeer::Find(table.m_hWnd)->GetWidget().grab();
    EXPECT_GT(parent.m_nAsked, 5);
    EXPECT_LT(parent.m_nAsked, 200);
    EXPECT_EQ(table.InsertItem(0, "x"), -1);
}

} // namespace
