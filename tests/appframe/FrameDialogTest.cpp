#include <gmock/gmock.h>

#include <QRadioButton>

#include "tessara/appframe/BitmapStatic.h"
#include "tessara/appframe/FrameControls.h"
#include "tessara/appframe/LogotypeDialog.h"
#include "tessara/appframe/MathStatic.h"
#include "tessara/appframe/WelcomeDialog.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/windows/System.h"
#include "tests/document/Hands.h"

namespace tessara {

namespace {

constexpr UINT IDB_WIDE = 20100; ///< 40 x 20 pixels: a red half and a blue one
constexpr UINT IDD_STATICS = 20101;
constexpr UINT IDC_FORMULA = 1006;
constexpr UINT IDC_PLAIN_FORMULA = 1007;

constexpr std::string_view WIDE =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="40" height="20"><rect width="20" height="20" fill="#f00"/>)"
    R"(<rect x="20" width="20" height="20" fill="#00f"/></svg>)";
const CFileResource FILES[] = {
    {EFileResource::bitmap, IDB_WIDE, {reinterpret_cast<const unsigned char*>(WIDE.data()), WIDE.size()}}};
constexpr CDialogItem STATICS[] = {
    {"CPMathStaticControl", IDC_FORMULA, "c~G", 7, 7, 160, 40, WS_VISIBLE},
    {"CPMathStaticControl", IDC_PLAIN_FORMULA, "F~G", 7, 50, 160, 40, WS_VISIBLE}};
constexpr CDialogTemplate DIALOGS[] = {
    {IDD_STATICS, "Statics", 0, 0, 180, 100, WS_POPUP | WS_CAPTION, STATICS}};

class FrameDialog : public ::testing::Test {
protected:
    static void SetUpTestSuite() { AddResources({DIALOGS, FILES}); }
    void SetUp() override {
        m_owner.CreateEx(0, nullptr, "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 600, 400),
                         nullptr, 0);
    }
    void TearDown() override { m_owner.DestroyWindow(); }

    CWinApp m_app{"Flory"};
    CWnd m_owner;
};

QRadioButton& Choice(UINT nID) {
    return dynamic_cast<QRadioButton&>(ControlOf(IDD_WELCOME, nID));
}

TEST_F(FrameDialog, WelcomeOffersWhatThereIs) {
    struct CCase {
        unsigned short wOptions;
        int nAction;
        UINT nChosen;
    };
    for (const CCase& entry :
         {CCase{0, 0, IDC_NEW_VARIANT}, {1, 2, IDC_EXISTING_VARIANT}, {3, 1, IDC_LAST_VARIANT}}) {
        CWelcomeDialog dialog(&m_owner);
        CHands hands;
        hands.Look(IDD_WELCOME, [&] {
            EXPECT_EQ(DialogOf(IDD_WELCOME)->windowTitle(), "Welcome to Flory program");
            EXPECT_TRUE(Choice(entry.nChosen).isChecked());
            EXPECT_TRUE(Choice(IDC_NEW_VARIANT).isEnabled());
            EXPECT_EQ(Choice(IDC_LAST_VARIANT).isEnabled(), (entry.wOptions & 2) != 0);
            EXPECT_EQ(Choice(IDC_EXISTING_VARIANT).isEnabled(), (entry.wOptions & 1) != 0);
            EXPECT_FALSE(ControlOf(IDD_WELCOME, 1032).isVisible());
            EXPECT_FALSE(ControlOf(IDD_WELCOME, 1033).isVisible());
            QTest::keyClick(DialogOf(IDD_WELCOME)->focusWidget(), Qt::Key_Return);
        });
        EXPECT_EQ(dialog.DoModal(entry.wOptions), IDOK);
        EXPECT_EQ(dialog.m_nAction, entry.nAction);
        EXPECT_EQ(dialog.m_bDontShow, 0);
    }
}

TEST_F(FrameDialog, WelcomeTellsOfItsCheckBoxAlsoAfterACancel) {
    CWelcomeDialog dialog(&m_owner);
    CHands hands;
    hands.Press(IDD_WELCOME, IDC_NEW_VARIANT).Press(IDD_WELCOME, IDC_DONT_SHOW).Press(IDD_WELCOME, IDCANCEL);
    EXPECT_EQ(dialog.DoModal(3), IDCANCEL);
    EXPECT_EQ(dialog.m_bDontShow, 1);
    EXPECT_EQ(dialog.m_nAction, 0);
}

TEST_F(FrameDialog, LogotypeShowsItsPictureUntilAKeyOrAButton) {
    const std::function<void(QWidget*)> acts[] = {[](QWidget* p) { QTest::mouseClick(p, Qt::LeftButton); },
                                                  [](QWidget* p) { QTest::mouseClick(p, Qt::RightButton); },
                                                  [](QWidget* p) { QTest::keyClick(p, Qt::Key_A); },
                                                  [](QWidget* p) { QTest::keyClick(p, Qt::Key_Space); },
                                                  [](QWidget* p) { QTest::keyClick(p, Qt::Key_Escape); },
                                                  [](QWidget* p) { QTest::keyClick(p, Qt::Key_Return); },
                                                  [](QWidget* p) { QTest::keyClick(p, Qt::Key_Tab); },
                                                  [](QWidget* p) { QTest::keyClick(p, Qt::Key_Down); }};
    for (const auto& act : acts) {
        CLogotypeDialog dialog(IDB_WIDE, &m_owner);
        CHands hands;
        hands.Look(IDD_LOGOTYPE, [&] {
            dialog.UpdateWindow();
            CRect client;
            dialog.GetClientRect(&client);
            const double dScale = WindowScale(&m_owner);
            EXPECT_EQ(client, CRect(0, 0, static_cast<int>(40 * dScale), static_cast<int>(20 * dScale)));
            CClientDC dc(&dialog);
            EXPECT_EQ(dc.GetPixel(0, 0), RGB(255, 0, 0));
            EXPECT_EQ(dc.GetPixel(client.right - 1, client.bottom - 1), RGB(0, 0, 255));
            act(DialogOf(IDD_LOGOTYPE));
        });
        EXPECT_EQ(dialog.DoModal(), IDOK);
        EXPECT_FALSE(dialog.m_bitmap.IsCreated());
    }
    EXPECT_THROW(CLogotypeDialog(1, &m_owner).DoModal(), CResourceException);
}

TEST_F(FrameDialog, ABitmapStaticCentresItsPictureOnWhite) {
    CBitmapStatic picture;
    picture.Create("", WS_CHILD | WS_VISIBLE, CRect(0, 0, 101, 51), &m_owner, 1);
    QApplication::processEvents();
    picture.UpdateWindow();
    const COLORREF ground = GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(CClientDC(&picture).GetPixel(50, 25), ground);
    EXPECT_EQ(picture.m_nBitmapID, 0xFFFFFFFF);
    EXPECT_THROW(picture.LoadBitmapA(1), CResourceException);
    picture.LoadBitmapA(IDB_WIDE);
    picture.UpdateWindow();
    EXPECT_EQ(picture.m_nBitmapID, IDB_WIDE);
    const CClientDC dc(&picture);
    CRect client;
    picture.GetClientRect(&client);
    const int nLeft = (client.Width() - static_cast<int>(picture.m_bitmapInfo.bmWidth)) / 2;
    const int nTop = (client.Height() - static_cast<int>(picture.m_bitmapInfo.bmHeight)) / 2;
    EXPECT_EQ(dc.GetPixel(nLeft, nTop), RGB(255, 0, 0));
    EXPECT_EQ(dc.GetPixel(nLeft - 1, nTop), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetPixel(nLeft, nTop - 1), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetPixel(client.Width() - 1, client.Height() - 1), RGB(255, 255, 255));
}

/// The rectangle of the pixels that are not the ground's.
CRect Inked(CWnd& wnd) {
    wnd.UpdateWindow();
    const CClientDC dc(&wnd);
    CRect client;
    wnd.GetClientRect(&client);
    CRect inked(client.right, client.bottom, 0, 0);
    for (int y = 0; y < client.bottom; ++y) {
        for (int x = 0; x < client.right; ++x) {
            if (dc.GetPixel(x, y) != GetSysColor(COLOR_BTNFACE)) {
                inked = CRect(std::min<int>(inked.left, x), std::min<int>(inked.top, y),
                              std::max<int>(inked.right, x + 1), std::max<int>(inked.bottom, y + 1));
            }
        }
    }
    return inked;
}

TEST_F(FrameDialog, AMathStaticDrawsIndexedText) {
    CMathStatic formula;
    formula.Create("", "H~NM~L", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 100), &m_owner, 1);
    QApplication::processEvents();
    const CRect small = Inked(formula);
    formula.SetFontScale(2);
    const CRect large = Inked(formula);
    EXPECT_LT(small.left, 4);
    EXPECT_NEAR(large.Width(), 2 * small.Width(), 3);
    EXPECT_NEAR(large.Height(), 2 * small.Height(), 3);
    formula.m_nAlignment = CMathStatic::right;
    formula.Invalidate();
    EXPECT_NEAR(Inked(formula).right, 300, 3);
    EXPECT_NEAR(Inked(formula).Width(), large.Width(), 1);
    formula.m_nAlignment = CMathStatic::centred;
    formula.Invalidate();
    EXPECT_NEAR(Inked(formula).left + Inked(formula).right, 300, 4);
    formula.EnableWindow(FALSE);
    EXPECT_NEAR(Inked(formula).Height(), large.Height() + 1, 1); // one more pixel of light
}

TEST_F(FrameDialog, ATemplateMayNameTheClassOfMathStatics) {
    class CStaticsDialog : public CDialog {
    public:
        CMathStatic m_formula;

    protected:
        void DoDataExchange(CDataExchange* pDX) override { DDX_Control(pDX, IDC_FORMULA, m_formula); }
        BOOL OnInitDialog() override { return CDialog::OnInitDialog(); }
    };
    CStaticsDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_STATICS, &m_owner));
    dialog.ShowWindow(SW_SHOW);
    QApplication::processEvents();
    EXPECT_GT(Inked(dialog.m_formula).Width(), 4);
    EXPECT_GT(Inked(*dialog.GetDlgItem(IDC_PLAIN_FORMULA)).Width(), 4);
    dialog.DestroyWindow();
}

TEST_F(FrameDialog, OpeningAndClosingLeavesNothingBehind) {
    CheckRounds([&] {
        CHands hands;
        hands.Press(IDD_WELCOME, IDOK).Look(IDD_LOGOTYPE, [] {
            QTest::keyClick(DialogOf(IDD_LOGOTYPE), Qt::Key_Escape);
        });
        CWelcomeDialog(&m_owner).DoModal(3);
        CLogotypeDialog(IDB_WIDE, &m_owner).DoModal();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
}

} // namespace

} // namespace tessara
