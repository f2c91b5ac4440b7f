#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <memory>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/controls/ControlClasses.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tests/ui/Specimen.h"

// What a style does is seen by the user: in pixels, or by hand.

namespace {

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;
constexpr COLORREF RED = RGB(255, 0, 0);

/// Is red, and colours its controls as it is told.
class CRedWindow : public CWnd {
public:
    std::unique_ptr<CBrush> m_pGround;

protected:
    void OnPaint() {
        CPaintDC dc(this);
        CBrush red(RED);
        const RECT all{0, 0, 1000, 1000};
        dc.FillRect(&all, &red);
    }
    HBRUSH OnCtlColor(CDC* pDC, CWnd* pControl, UINT nKind) {
        return m_pGround ? static_cast<HBRUSH>(*m_pGround) : CWnd::OnCtlColor(pDC, pControl, nKind);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRedWindow, CWnd)
ON_WM_PAINT()
ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

QWidget& WidgetOf(const CWnd& wnd) {
    return tessara::CPeer::Find(wnd.m_hWnd)->GetWidget();
}
QImage PictureOf(const CWnd& wnd) {
    return WidgetOf(wnd).grab().toImage();
}

/// A window with the keyboard on a button, and a control beside it.
class StyleTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(
            m_wnd.Create(nullptr, "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 400, 300), nullptr, 0));
        ASSERT_TRUE(m_button.Create("OK", CHILD | WS_TABSTOP, CRect(300, 250, 380, 280), &m_wnd, 1));
        WidgetOf(m_wnd).activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&WidgetOf(m_wnd)));
        m_button.SetFocus();
    }
    template <class CONTROL>
    std::unique_ptr<CONTROL> Make(const char* pszClass, DWORD dwStyle, const char* pszText = "",
                                  DWORD dwExStyle = 0) {
        auto pControl = std::make_unique<CONTROL>();
        EXPECT_TRUE(pControl->CreateEx(dwExStyle, pszClass, pszText, CHILD | dwStyle, CRect(10, 10, 130, 70),
                                       &m_wnd, 2));
        return pControl;
    }

    CRedWindow m_wnd;
    CButton m_button;
};

TEST_F(StyleTest, AMissingPictureShowsNothing) {
    for (const DWORD dwStyle : {SS_ICON, SS_BITMAP}) {
        const auto pEmpty = Make<CStatic>(tessara::CLASS_STATIC, SS_LEFT);
        const auto pMissing = Make<CStatic>(tessara::CLASS_STATIC, dwStyle, "#64999");
        EXPECT_EQ(PictureOf(*pMissing), PictureOf(*pEmpty));
        pMissing->SetWindowText("#64998");
        EXPECT_EQ(PictureOf(*pMissing), PictureOf(*pEmpty));
    }
}

TEST_F(StyleTest, ABorderAndASunkenEdgeAreThereWhereTheyAreAskedFor) {
    for (const char* const pszClass : {tessara::CLASS_EDIT, tessara::CLASS_LISTBOX, tessara::CLASS_LISTVIEW,
                                       tessara::CLASS_STATIC, "Plain"}) {
        const auto fnMake = [&](DWORD dwStyle, DWORD dwExStyle) {
            const auto pControl = Make<CWnd>(pszClass, dwStyle, "", dwExStyle);
            CRect client;
            pControl->GetClientRect(&client);
            const bool bInside = client.Width() < 120 && client.Height() < 60;
            const bool bOwnClient = pszClass != tessara::CLASS_EDIT && pszClass != tessara::CLASS_STATIC;
            EXPECT_EQ(bInside, bOwnClient && (dwStyle || dwExStyle)) << pszClass;
            return PictureOf(*pControl);
        };
        const QImage bare = fnMake(0, 0);
        for (const QImage& edged : {fnMake(WS_BORDER, 0), fnMake(0, WS_EX_CLIENTEDGE)}) {
            EXPECT_NE(edged.copy(0, 20, 3, 1), bare.copy(0, 20, 3, 1)) << pszClass;
            EXPECT_EQ(edged.copy(20, 40, 60, 10), bare.copy(20, 40, 60, 10)) << pszClass;
        }
    }
}

TEST_F(StyleTest, APlainWindowWithAnEdgeDrawsAndHearsInsideIt) {
    const auto pWnd = Make<CRedWindow>("Plain", 0, "", WS_EX_CLIENTEDGE);
    CRect client;
    pWnd->GetClientRect(&client);
    const QImage shown = PictureOf(*pWnd);
    const int nEdge = (120 - static_cast<int>(client.Width())) / 2;
    EXPECT_EQ(shown.pixelColor(nEdge, nEdge), QColor(Qt::red));
    EXPECT_NE(shown.pixelColor(0, 30), QColor(Qt::red));
    CPoint origin;
    pWnd->ClientToScreen(&origin);
    m_wnd.ScreenToClient(&origin);
    EXPECT_EQ(origin, CPoint(10 + nEdge, 10 + nEdge));
}

TEST_F(StyleTest, ATableShowsItsSelectionWithoutTheKeyboardOnlyIfItIsTo) {
    for (const DWORD dwStyle : {DWORD{0}, DWORD{LVS_SHOWSELALWAYS}}) {
        const auto pTable = Make<CListCtrl>(tessara::CLASS_LISTVIEW, LVS_REPORT | dwStyle);
        pTable->InsertColumn(0, "A", LVCFMT_LEFT, 100);
        pTable->InsertItem(0, "a");
        pTable->SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
        const auto fnMarked = [&] {
            const auto& view = static_cast<const QTableView&>(WidgetOf(*pTable));
            const QRect cell = view.visualRect(view.model()->index(0, 0));
            const QColor ground =
                view.viewport()->grab().toImage().pixelColor(cell.right() - 3, cell.center().y());
            return ground != QApplication::palette().color(QPalette::Base);
        };
        EXPECT_EQ(fnMarked(), dwStyle != 0);
        pTable->SetFocus();
        EXPECT_TRUE(fnMarked());
        m_button.SetFocus();
        EXPECT_EQ(fnMarked(), dwStyle != 0);
        const auto pList = Make<CListBox>(tessara::CLASS_LISTBOX, 0); // a list box always does
        pList->AddString("a");
        const QImage before = PictureOf(*pList);
        pList->SetCurSel(0);
        EXPECT_NE(PictureOf(*pList), before);
    }
}

TEST_F(StyleTest, ARowIsChosenByItsFirstCellOrAsAWhole) {
    for (const DWORD dwStyle : {DWORD{0}, DWORD{LVS_EX_FULLROWSELECT}}) {
        const auto pTable = Make<CListCtrl>(tessara::CLASS_LISTVIEW, LVS_REPORT | LVS_SINGLESEL);
        pTable->SetExtendedStyle(dwStyle);
        for (const int nColumn : {0, 1}) {
            pTable->InsertColumn(nColumn, "A", LVCFMT_LEFT, 50);
        }
        pTable->InsertItem(0, "a");
        auto& view = static_cast<QTableView&>(WidgetOf(*pTable));
        const auto fnClick = [&](int nColumn) {
            const QPoint place = view.visualRect(view.model()->index(0, nColumn)).center();
            QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
            return pTable->GetItemState(0, LVIS_SELECTED) != 0;
        };
        EXPECT_EQ(fnClick(1), dwStyle != 0);
        EXPECT_TRUE(fnClick(0));
        EXPECT_EQ(view.selectionModel()->isSelected(view.model()->index(0, 1)), dwStyle != 0);
    }
}

TEST_F(StyleTest, AnAnimationHasItsOwnGroundOrItsParents) {
    for (const DWORD dwStyle : {DWORD{0}, DWORD{ACS_TRANSPARENT}}) {
        const auto pMoving = Make<CAnimateCtrl>(tessara::CLASS_ANIMATION, ACS_CENTER | dwStyle);
        pMoving->Open(134);
        const QColor corner = PictureOf(m_wnd).pixelColor(12, 12);
        EXPECT_EQ(corner, dwStyle ? QColor(Qt::red) : QApplication::palette().color(QPalette::Window));
    }
}

TEST_F(StyleTest, AnAnimationStandsInTheMiddleOrInTheCorner) {
    for (const DWORD dwStyle : {DWORD{0}, DWORD{ACS_CENTER}}) { // 120 wide, 60 high
        const auto pMoving = Make<CAnimateCtrl>(tessara::CLASS_ANIMATION, dwStyle);
        const QImage ground = PictureOf(*pMoving);
        pMoving->Open(134);
        const QImage shown = PictureOf(*pMoving);
        EXPECT_EQ(shown.copy(0, 0, 29, 60) == ground.copy(0, 0, 29, 60), dwStyle != 0);
        EXPECT_EQ(shown.copy(91, 0, 29, 60), ground.copy(91, 0, 29, 60));
    }
}

/// A palette of the desktop while it lives.
class CPaletteOf {
public:
    explicit CPaletteOf(const QPalette& palette) : m_old(QApplication::palette()) {
        QApplication::setPalette(palette);
    }
    ~CPaletteOf() { QApplication::setPalette(m_old); }
    CPaletteOf(const CPaletteOf&) = delete;
    CPaletteOf& operator=(const CPaletteOf&) = delete;

private:
    QPalette m_old;
};

TEST_F(StyleTest, TextIsReadableOnAGroundThatTheProgramHasFixed) {
    struct {
        QColor window;
        COLORREF ground;
        bool bDarkText;
    } const cases[] = {{QColor(40, 40, 40), RGB(255, 255, 128), true},
                       {QColor(40, 40, 40), RGB(128, 255, 255), true},
                       {QColor(40, 40, 40), RGB(255, 128, 128), true},
                       {QColor(240, 240, 240), RGB(255, 255, 128), true},
                       {QColor(240, 240, 240), RGB(0, 0, 90), false}};
    for (const auto& [window, ground, bDarkText] : cases) {
        const CPaletteOf palette(QPalette(window, window));
        m_wnd.m_pGround = std::make_unique<CBrush>(ground);
        for (const char* const pszClass :
             {tessara::CLASS_STATIC, tessara::CLASS_EDIT, tessara::CLASS_LISTBOX}) {
            const auto pControl = Make<CListBox>(pszClass, 0, "Wg");
            pControl->AddString("Wg");     // does nothing to others
            QApplication::processEvents(); // lines are laid out
            const QImage shown = PictureOf(*pControl);
            int nLeast = 255;
            int nMost = 0;
            for (int y = 0; y < shown.height(); ++y) {
                for (int x = 0; x < shown.width(); ++x) {
                    const int nGrey = qGray(shown.pixel(x, y));
                    nLeast = std::min(nLeast, nGrey);
                    nMost = std::max(nMost, nGrey);
                }
            }
            const int nGround = qGray(tessara::ToQColor(ground).rgb());
            EXPECT_NEAR(bDarkText ? nMost : nLeast, nGround, 3) << pszClass;
            EXPECT_GT(bDarkText ? nGround - nLeast : nMost - nGround, 90) << pszClass << " on " << ground;
        }
    }
}

TEST_F(StyleTest, ASpinButtonWritesCommasUnlessItIsNotTo) {
    for (const DWORD dwStyle : {DWORD{0}, DWORD{UDS_NOTHOUSANDS}}) {
        const auto pEdit = Make<CEdit>(tessara::CLASS_EDIT, ES_NUMBER);
        const auto pSpin =
            Make<CSpinButtonCtrl>(tessara::CLASS_SPIN, UDS_SETBUDDYINT | UDS_AUTOBUDDY | dwStyle);
        EXPECT_EQ(pSpin->GetBuddy(), pEdit.get());
        pSpin->SetRange(-2'000'000, 2'000'000);
        for (const auto& [nPosition, pszWith] : {std::pair{999, "999"},
                                                 {1000, "1,000"},
                                                 {-999, "-999"},
                                                 {-123'456, "-123,456"},
                                                 {1'234'567, "1,234,567"}}) {
            pSpin->SetPos(nPosition);
            CString strText;
            pEdit->GetWindowText(strText);
            EXPECT_EQ(strText, dwStyle ? CString(std::to_string(nPosition)) : CString(pszWith));
            EXPECT_EQ(pSpin->GetPos(), nPosition);
        }
        QTest::mouseClick(WidgetOf(*pSpin).findChildren<QToolButton*>()[0], Qt::LeftButton);
        EXPECT_EQ(pSpin->GetPos(), 1'234'568);
    }
}

TEST_F(StyleTest, EditsOfSeveralLinesAlignTheirTextTakeDigitsAndHaveTheBarsTheyAreGiven) {
    const auto fnDark = [](const QImage& shown) {
        int nSum = 0;
        for (int x = 0; x < 50; ++x) {
            for (int y = 0; y < 20; ++y) {
                nSum += qGray(shown.pixel(x, y)) < 100;
            }
        }
        return nSum > 0;
    };
    for (const DWORD dwStyle : {ES_LEFT, ES_CENTER, ES_RIGHT}) {
        const auto pEdit = Make<CEdit>(tessara::CLASS_EDIT, ES_MULTILINE | dwStyle | WS_BORDER, "7");
        EXPECT_EQ(fnDark(PictureOf(*pEdit)), dwStyle == ES_LEFT);
    }
    for (const DWORD dwStyle : {DWORD{0}, DWORD{WS_VSCROLL}}) {
        const auto pEdit = Make<CEdit>(tessara::CLASS_EDIT, ES_MULTILINE | dwStyle, "1\n2\n3\n4\n5\n6\n7");
        const auto& view = static_cast<const QAbstractScrollArea&>(WidgetOf(*pEdit));
        QApplication::processEvents(); // lines are laid out
        EXPECT_EQ(view.verticalScrollBar()->isVisible(), dwStyle != 0);
    }
    for (const DWORD dwStyle : {DWORD{0}, DWORD{ES_MULTILINE}}) {
        const auto pEdit = Make<CEdit>(tessara::CLASS_EDIT, ES_NUMBER | dwStyle);
        pEdit->SetWindowText("-5"); // the program's own text is free
        pEdit->SetSel(2, 2);
        QTest::keyClicks(&WidgetOf(*pEdit), "a7-");
        CString strText;
        pEdit->GetWindowText(strText);
        EXPECT_EQ(strText, "-57");
    }
}

TEST_F(StyleTest, ASliderHasTicksAtItsEndsOrAtEveryStep) {
    for (const DWORD dwStyle : {DWORD{0}, DWORD{TBS_AUTOTICKS}}) {
        const auto pSlider = Make<CSliderCtrl>(tessara::CLASS_SLIDER, dwStyle);
        pSlider->SetTicFreq(10);
        pSlider->SetRange(0, 50);
        EXPECT_EQ(static_cast<const QSlider&>(WidgetOf(*pSlider)).tickInterval(), dwStyle ? 10 : 50);
    }
}

TEST(WindowStyle, AWindowStartsDisabledMinimisedOrMaximised) {
    CWnd wnd;
    ASSERT_TRUE(wnd.Create(nullptr, "", WS_OVERLAPPEDWINDOW | WS_DISABLED, CRect(0, 0, 90, 90), nullptr, 0));
    EXPECT_FALSE(wnd.IsWindowEnabled());
    EXPECT_TRUE(WidgetOf(wnd).isEnabled()); // it is not greyed
    EXPECT_TRUE(wnd.EnableWindow(TRUE));
    EXPECT_TRUE(wnd.IsWindowEnabled());
    for (const DWORD dwStyle : {WS_MINIMIZE, WS_MAXIMIZE}) {
        wnd.DestroyWindow();
        ASSERT_TRUE(wnd.Create(nullptr, "", WS_OVERLAPPEDWINDOW | WS_VISIBLE | dwStyle, CRect(0, 0, 90, 90),
                               nullptr, 0));
        EXPECT_EQ(wnd.IsIconic() != 0, dwStyle == WS_MINIMIZE);
        EXPECT_EQ(wnd.IsZoomed() != 0, dwStyle == WS_MAXIMIZE);
    }
}

TEST(WindowStyle, ADialogHasAFrameWithACaptionOrAskedFor) {
    static constexpr tessara::CDialogTemplate DIALOGS[] = {
        {940, "", 0, 0, 50, 20, WS_POPUP, {}},
        {941, "", 0, 0, 50, 20, WS_POPUP | DS_MODALFRAME, {}},
        {942, "", 0, 0, 50, 20, WS_POPUP | WS_CAPTION, {}}};
    tessara::AddResources({DIALOGS, {}});
    for (const UINT nID : {940U, 941U, 942U}) {
        CDialog dialog;
        ASSERT_TRUE(dialog.Create(nID));
        EXPECT_EQ(WidgetOf(dialog).windowFlags().testFlag(Qt::FramelessWindowHint), nID == 940);
    }
}

} // namespace
