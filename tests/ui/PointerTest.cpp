#include <cstring>

#include "tessara/platform/files/ModulePath.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/windows/System.h"
#include "tests/ui/Frames.h"

namespace {

using PointerTest = FrameFixture;

void Move(QWidget& widget, QPoint at, Qt::MouseButtons buttons = Qt::NoButton) {
    QMouseEvent event(QEvent::MouseMove, at, widget.mapToGlobal(QPointF(at)), Qt::NoButton, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

TEST_F(PointerTest, ShapesAreSetFromTheCursorMessageAndFromMouseMoves) {
    QWidget& widget = WidgetOf(View());
    View().m_hShape = LoadCursor(IDC_HAND);
    Move(widget, {50, 50});
    EXPECT_EQ(widget.cursor().shape(), Qt::PointingHandCursor);
    Move(widget, {5, 50}); // the handler of the move sets another
    EXPECT_EQ(widget.cursor().shape(), Qt::CrossCursor);
    View().m_hShape = nullptr;
    Move(widget, {50, 50});
    EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PointerTest, ResourcesHaveShapesWithActivePoints) {
    static constexpr unsigned char SVG[] =
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" data-hotspot="11 7"><path d="M0 0h32v32z"/></svg>)";
    static const tessara::CFileResource FILES[] = {
        {tessara::EFileResource::cursor, 61001, std::span<const unsigned char>(SVG, sizeof SVG - 1)}};
    tessara::AddResources({{}, FILES});
    EXPECT_NE(LoadCursor(61001), nullptr);
    EXPECT_EQ(LoadCursor(61001), LoadCursor(61001));
    EXPECT_NE(LoadCursor(IDC_CROSS), LoadCursor(IDC_ARROW));
    EXPECT_EQ(LoadCursor(61002), nullptr);
    View().m_hShape = LoadCursor(61001);
    Move(WidgetOf(View()), {50, 50});
    EXPECT_EQ(WidgetOf(View()).cursor().hotSpot(), QPoint(11, 7));
}

TEST_F(PointerTest, TheLibraryHasShapesForReadingZoomingAndWhatCannotBeDone) {
    const std::pair<UINT, QPoint> shapes[] = {{16386, {9, 9}}, {16387, {9, 9}}, {16389, {15, 15}}};
    for (const auto& [nID, hotSpot] : shapes) {
        View().m_hShape = LoadCursor(nID);
        ASSERT_NE(View().m_hShape, nullptr) << nID;
        Move(WidgetOf(View()), {50, 50});
        const QCursor cursor = WidgetOf(View()).cursor();
        EXPECT_EQ(cursor.hotSpot(), hotSpot) << nID;
        EXPECT_EQ(cursor.pixmap().deviceIndependentSize(), QSizeF(32, 32)) << nID;
    }
}

TEST_F(PointerTest, TheViewHearsOfMovesWithoutAButton) {
    QTest::mouseMove(Window().windowHandle(), WidgetOf(View()).mapTo(&Window(), QPoint(70, 60)));
    QApplication::processEvents();
    const int nRatio = static_cast<int>(Window().devicePixelRatio());
    EXPECT_EQ(View().m_last, (POINT{70 * nRatio, 60 * nRatio}));
}

TEST_F(PointerTest, TheWheelTellsItsSmallestStepsAndThePixelOnTheScreen) {
    QWidget& widget = WidgetOf(View());
    const QPointF at(70, 60);
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, -15}, Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
    EXPECT_EQ(View().m_nWheel, -15);
    CPoint point = View().m_last;
    View().ScreenToClient(&point);
    const int nRatio = static_cast<int>(Window().devicePixelRatio());
    EXPECT_EQ(point, (POINT{70 * nRatio, 60 * nRatio}));
}

TEST_F(PointerTest, AConfinedPointerStaysInsideAndSoDoItsMessages) {
    QWidget& widget = WidgetOf(View());
    CRect area(40, 30, 140, 90);
    View().ClientToScreen(&area);
    EXPECT_TRUE(ClipCursor(&area));
    POINT point;
    GetCursorPos(&point);
    EXPECT_TRUE(area.PtInRect(point));
    QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, {50, 50});
    Move(widget, {400, -20}, Qt::LeftButton);
    EXPECT_EQ(View().m_last, (POINT{139, 30}));
    GetCursorPos(&point);
    EXPECT_EQ(point, (POINT{area.right - 1, area.top}));
    QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, {-7, 300});
    EXPECT_EQ(View().m_last, (POINT{40, 89}));
    Move(widget, {100, 60});
    EXPECT_EQ(View().m_last, (POINT{100, 60}));
    const RECT empty{5, 5, 5, 9};
    EXPECT_FALSE(ClipCursor(&empty));
    EXPECT_TRUE(ClipCursor(nullptr));
    Move(widget, {200, 10});
    EXPECT_EQ(View().m_last, (POINT{200, 10}));
}

TEST(Pointer, IsReadAndMovedInPixelsOfTheScreen) {
    EXPECT_TRUE(SetCursorPos(120, 70));
    POINT point;
    EXPECT_TRUE(GetCursorPos(&point));
    EXPECT_EQ(point, (POINT{120, 70}));
}

TEST(System, ColoursFollowThePalette) {
    const QPalette before = QApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::Window, QColor(1, 2, 3));
    palette.setColor(QPalette::Base, QColor(4, 5, 6));
    palette.setColor(QPalette::Shadow, QColor(7, 8, 9));
    QApplication::setPalette(palette);
    EXPECT_EQ(GetSysColor(COLOR_3DFACE), RGB(1, 2, 3));
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), RGB(4, 5, 6));
    EXPECT_EQ(GetSysColor(COLOR_3DDKSHADOW), RGB(7, 8, 9));
    EXPECT_EQ(GetSysColor(-1), RGB(0, 0, 0));
    QApplication::setPalette(before);
    EXPECT_GT(GetSystemMetrics(SM_CXSCREEN), 0);
    EXPECT_GE(GetSystemMetrics(SM_CYSCREEN), GetSystemMetrics(SM_CYFULLSCREEN));
    EXPECT_EQ(GetSystemMetrics(12345), 0);
    EXPECT_LT(tessara::WindowFont(nullptr).lfHeight, 0);
}

TEST(System, TheExecutableKnowsItsPath) {
    char path[4096];
    const DWORD nLength = GetModuleFileName(nullptr, path, sizeof path);
    EXPECT_EQ(nLength, std::strlen(path));
    EXPECT_NE(CString(path).Find("/frame_test"), -1) << path;
    char cut[5];
    EXPECT_EQ(GetModuleFileName(nullptr, cut, sizeof cut), sizeof cut);
    EXPECT_EQ(std::strlen(cut), 4U);
}

TEST(CommandLine, NamesTheFileToOpen) {
    CCommandLineInfo info;
    info.ParseParam("verbose", TRUE, FALSE);
    EXPECT_EQ(info.m_nShellCommand, CCommandLineInfo::FileNew);
    info.ParseParam("/home/a b.txt", FALSE, FALSE);
    info.ParseParam("second.txt", FALSE, TRUE);
    EXPECT_EQ(info.m_nShellCommand, CCommandLineInfo::FileOpen);
    EXPECT_EQ(info.m_strFileName, "/home/a b.txt");
}

} // namespace
