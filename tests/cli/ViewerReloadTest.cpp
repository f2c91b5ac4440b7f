#include <QApplication>

#include "tests/cli/ViewerFixture.h"
#include "tests/support/PlotWindow.h"

using namespace tessara;

namespace {

constexpr UINT CURVE_VALUE = 16391;
constexpr UINT DIAGRAM_VALUE = 16406;
constexpr UINT ELEMENT_VALUE = 16451;
constexpr UINT VALUES = 183;
constexpr UINT ARGUMENT = 144;
constexpr UINT LIST = 1008;
constexpr COLORREF BLUE = 0xFF0000;
constexpr COLORREF WHITE = 0xFFFFFF;

constexpr const char* CURVE = "x f\n0 0\n1 1\n2 2\n3 3\n";
constexpr const char* CHANGED_CURVE = "x f\n0 0\n1 5\n2 6\n3 3\n";
constexpr const char* DIAGRAM_FILE = R"({"format":"tessara-diagram","version":1,
    "binodal":[{"x":[1,2,3],"shadow":[7,6,5],"y":[1,2,1]}],"x":{"symbol":"f~G"}})";
constexpr const char* CHANGED_DIAGRAM = R"({"format":"tessara-diagram","version":1,
    "binodal":[{"x":[1,2,3],"shadow":[8,7,6],"y":[1,2,1]}],"x":{"symbol":"f~G"}})";

/// The viewer around the program's own plots.
class ViewerReload : public CViewerFixture {
protected:
    explicit ViewerReload(const std::string& strFile = CURVE) : CViewerFixture(strFile, &OpenShownPlot) {}

    CShownPlot& Shown() { return *View().GetPlot(); }
    /// Every pixel of the view.
    std::vector<COLORREF> Pixels() {
        const CClientDC dc(&View());
        std::vector<COLORREF> pixels;
        for (int y = 0; y < Paper().height(); ++y) {
            for (int x = 0; x < Paper().width(); ++x) {
                pixels.push_back(dc.GetPixel(x, y));
            }
        }
        return pixels;
    }
    std::vector<COLORREF> Painted() {
        View().RedrawWindow();
        return Pixels();
    }
    void Reload(const std::string& strFile) {
        m_folder.Write("plot.txt", strFile);
        Frame().SendMessage(WM_COMMAND, ID_FILE_RELOAD);
    }
    /// Opens a read-out, moves it and marks the second point; the keyboard goes to the view or stays there.
    QWidget& ReadOut(Qt::Key eKey, UINT nWindow, bool bKeyboard) {
        Key(eKey);
        QWidget& window = *DialogOf(nWindow);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        window.move(123, 87);
        Key(Qt::Key_Right);
        Key(Qt::Key_Right);
        if (!bKeyboard) {
            QTest::keyClick(&window, Qt::Key_F6);
        }
        // What was asked of the desktop meanwhile has happened then.
        QApplication::processEvents();
        QWidget& wanted = bKeyboard ? window : Window();
        wanted.activateWindow();
        EXPECT_TRUE(HasKeyboard(wanted));
        return window;
    }
    static bool HasKeyboard(const QWidget& window) {
        return QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; });
    }
    void Press(double dX, double dY) {
        const POINT at = Shown().GetPixelMap().GetPixel(dX, dY);
        QTest::mousePress(&Paper(), Qt::LeftButton, {}, QPoint(at.x, at.y));
    }
    void MoveTo(double dX, double dY) {
        const POINT at = Shown().GetPixelMap().GetPixel(dX, dY);
        QTest::mouseMove(&Paper(), QPoint(at.x + 1, at.y));
        QTest::mouseMove(&Paper(), QPoint(at.x, at.y));
    }
    /// A drag that a new file cuts short leaves nothing of its rectangle, and the pointer is free.
    void CheckDragOver(const std::string& strChanged) {
        Key(Qt::Key_Z);
        Press(1.2, 1.2);
        MoveTo(2.2, 1.8);
        Reload(strChanged);
        EXPECT_TRUE(Shown().IsZoomInModeEnabled());
        QTest::mouseMove(&Paper(), QPoint(2, 3));
        EXPECT_EQ(StatusText(), "Drag a rectangle to enlarge it; Escape ends this") << "beside the plot";
        QTest::mouseRelease(&Paper(), Qt::LeftButton, {}, QPoint(2, 3));
        View().UpdateWindow();
        const auto left = Pixels();
        EXPECT_TRUE(left == Painted());
        EXPECT_FALSE(Shown().GetZoom());
    }
};

class ViewerReloadDiagram : public ViewerReload {
protected:
    ViewerReloadDiagram() : ViewerReload(DIAGRAM_FILE) {}
};

TEST_F(ViewerReload, LeavesMarkValuesPlaceAndKeyboard) {
    for (const bool bKeyboard : {false, true}) {
        Reload(CURVE);
        QWidget& window = ReadOut(Qt::Key_F2, CURVE_VALUE, bKeyboard);
        const CPlotMark mark = *Shown().GetMark();
        const QPoint place = window.pos();
        m_folder.Write("plot.txt", CHANGED_CURVE);
        ASSERT_TRUE(QTest::qWaitFor(
            [] { return LinesOf(CURVE_VALUE, VALUES) == std::vector<std::string>{"f~N = 5~N"}; }));
        EXPECT_EQ(DialogOf(CURVE_VALUE)->pos(), place);
        EXPECT_TRUE(HasKeyboard(bKeyboard ? window : Window()));
        ASSERT_TRUE(Shown().GetMark());
        EXPECT_EQ(Shown().GetMark()->dX, mark.dX);
        Key(Qt::Key_F2);
        EXPECT_EQ(DialogOf(CURVE_VALUE), nullptr);
    }
}

TEST_F(ViewerReloadDiagram, LeavesMarkValuesPlaceAndKeyboard) {
    for (const bool bKeyboard : {false, true}) {
        Reload(DIAGRAM_FILE);
        QWidget& window = ReadOut(Qt::Key_F2, DIAGRAM_VALUE, bKeyboard);
        const CPlotMark mark = *Shown().GetMark();
        const QPoint place = window.pos();
        EXPECT_EQ(LinesOf(DIAGRAM_VALUE, LIST).back(), "F~G' = 6~N");
        m_folder.Write("plot.txt", CHANGED_DIAGRAM);
        ASSERT_TRUE(QTest::qWaitFor([] { return LinesOf(DIAGRAM_VALUE, LIST).back() == "F~G' = 7~N"; }));
        EXPECT_EQ(DialogOf(DIAGRAM_VALUE)->pos(), place);
        EXPECT_TRUE(HasKeyboard(bKeyboard ? window : Window()));
        ASSERT_TRUE(Shown().GetMark());
        EXPECT_EQ(Shown().GetMark()->dX, mark.dX);
        Key(Qt::Key_F2);
        EXPECT_EQ(DialogOf(DIAGRAM_VALUE), nullptr);
    }
}

TEST_F(ViewerReload, GivesTheKeyboardBackToTheViewWhenTheFileBecomesOneOfAnotherKind) {
    ReadOut(Qt::Key_F2, CURVE_VALUE, false);
    Reload(DIAGRAM_FILE);
    EXPECT_EQ(DialogOf(CURVE_VALUE), nullptr);
    ASSERT_NE(DialogOf(DIAGRAM_VALUE), nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    EXPECT_EQ(CWnd::GetFocus(), &View());
    QTest::mouseMove(&Paper(), QPoint(10, 10)); // forgets the plot before
    EXPECT_TRUE(Shown().IsReadOutVisible(EReadOut::getValue));
}

TEST_F(ViewerReload, EndsADragOfTheZoomRectangle) {
    CheckDragOver(CHANGED_CURVE);
}

TEST_F(ViewerReload, EndsADragInAPlotOfAnotherKind) {
    CheckDragOver(DIAGRAM_FILE);
}

TEST_F(ViewerReloadDiagram, EndsADragOfTheZoomRectangle) {
    CheckDragOver(CHANGED_DIAGRAM);
}

TEST_F(ViewerReload, ASwitchDuringADragLeavesNoTrace) {
    Key(Qt::Key_Z);
    Press(1.2, 1.2);
    MoveTo(2.2, 1.8);
    Key(Qt::Key_C);
    MoveTo(2.4, 1.6);
    Key(Qt::Key_Escape);
    View().UpdateWindow();
    const auto left = Pixels();
    EXPECT_TRUE(left == Painted());
}

TEST_F(ViewerReloadDiagram, ASwitchDuringADragLeavesNoTrace) {
    Key(Qt::Key_Z);
    Press(1.2, 1.2);
    MoveTo(2.2, 1.8);
    Key(Qt::Key_L);
    MoveTo(2.4, 1.6);
    Key(Qt::Key_L);
    Key(Qt::Key_Escape);
    View().UpdateWindow();
    const auto left = Pixels();
    EXPECT_TRUE(left == Painted());
}

TEST_F(ViewerReloadDiagram, ChecksTheReadOutThatIsShown) {
    for (const auto& [eKey, nCommand, nOther] : {std::tuple{Qt::Key_F2, ID_READ_VALUE, ID_READ_EXTENDED},
                                                 std::tuple{Qt::Key_F3, ID_READ_EXTENDED, ID_READ_VALUE}}) {
        Key(eKey);
        EXPECT_TRUE(IsEnabled(nCommand) && IsEnabled(nOther));
        EXPECT_TRUE(Item(nCommand).isChecked());
        EXPECT_FALSE(Item(nOther).isChecked());
    }
    EXPECT_EQ(DialogOf(DIAGRAM_VALUE), nullptr);
    EXPECT_NE(DialogOf(ELEMENT_VALUE), nullptr);
}

TEST_F(ViewerReloadDiagram, ReturnClosesAReadOutThatHasNoButtonAsClosingDoes) {
    for (const auto& [eKey, nWindow] :
         {std::pair{Qt::Key_F2, DIAGRAM_VALUE}, std::pair{Qt::Key_F3, ELEMENT_VALUE}}) {
        QWidget& window = ReadOut(eKey, nWindow, true);
        ASSERT_TRUE(Shown().GetMark());
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_EQ(DialogOf(nWindow), nullptr);
        EXPECT_FALSE(Shown().GetMark());
        View().UpdateWindow();
        const auto left = Pixels();
        EXPECT_TRUE(left == Painted());
        Key(Qt::Key_Right);
        EXPECT_FALSE(Shown().GetMark()) << "nothing reads out";
    }
}

TEST_F(ViewerReload, ReturnInTheFieldOfAReadOutReadsOut) {
    QWidget& window = ReadOut(Qt::Key_F2, CURVE_VALUE, true);
    auto& field = dynamic_cast<QLineEdit&>(ControlOf(CURVE_VALUE, ARGUMENT));
    field.setText("2.5");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(LinesOf(CURVE_VALUE, VALUES), std::vector<std::string>{"f~N = 2.5~N"});
    EXPECT_EQ(Shown().GetMark()->dX, 2.5);
}

TEST_F(ViewerReload, PaperIsWhiteAndCurvesKeepTheirColoursUnderADarkPalette) {
    const auto light = Painted();
    QPalette dark;
    for (const auto eRole : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        dark.setColor(eRole, QColor(30, 30, 30));
    }
    for (const auto eRole : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(eRole, Qt::white);
    }
    const QPalette before = QApplication::palette();
    QApplication::setPalette(dark);
    const auto darkened = Painted();
    QApplication::setPalette(before);
    EXPECT_EQ(darkened.front(), WHITE);
    EXPECT_EQ(darkened.back(), WHITE);
    EXPECT_GT(std::count(darkened.begin(), darkened.end(), BLUE) +
                  std::count(darkened.begin(), darkened.end(), COLORREF{0x0000FF}),
              50)
        << "the curve";
    EXPECT_TRUE(darkened == light);
}

} // namespace
