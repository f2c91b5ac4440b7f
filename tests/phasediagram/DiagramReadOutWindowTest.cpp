#include <functional>

#include "tests/phasediagram/DiagramWindow.h"

// The read-out windows as windows: their place, their size, and what is left in them of former data.

namespace tessara {

namespace {

TEST_F(DiagramInteraction, NewDataEmptyTheReadOutsAndTakeTheMarkAway) {
    double d = 3;
    CMultipartCurve curve;
    CCurve line(2);
    for (int i = 0; i < 2; ++i) {
        line.m_pX[i] = line.m_pY[i] = i;
    }
    curve.AddCurve(&line, 0);
    const std::function<void()> setters[] = {
        [&] { Plot().SetBinodalSection(0, 3, 1, &m_section, 0); },
        [&] { Plot().SetSpinodalSection(0, 1, &m_spinodal); },
        [&] { Plot().SetSpinodalSection(&curve); },
        [&] { Plot().SetCriticalPoints(1, &d, &d); },
        [&] { Plot().SetCriticalPoints(0, 1, &m_critical); },
        [&] { Plot().SetLifshitzPoints(1, &d, &d); },
        [&] { Plot().SetMultiphasePoints(0, nullptr, nullptr); },
        [&] { Plot().Reset(); },
    };
    int nSetter = 0;
    for (const auto& fnSet : setters) {
        Plot().SetBinodalSection(0, 3, 1, &m_section, 0);
        Plot().ShowGetValue(1);
        m_window.RedrawWindow();
        Click(GREEN);
        EXPECT_TRUE(IsMarked()) << nSetter;
        EXPECT_EQ(LinesOf(GET_VALUE, LINES).size(), 3U) << nSetter;
        const DWORD nFlags = Plot().m_nFlags;
        fnSet();
        EXPECT_TRUE(LinesOf(GET_VALUE, LINES).empty()) << nSetter;
        EXPECT_EQ(Plot().m_nFlags, nFlags) << nSetter; // the mark is on the screen until the next paint
        m_window.RedrawWindow();
        EXPECT_FALSE(IsMarked()) << nSetter;
        Plot().PickPoint(3, 3, GREEN); // goes on with the new data
        EXPECT_GE(LinesOf(GET_VALUE, LINES).size(), 2U) << nSetter;
        EXPECT_TRUE(IsMarked()) << nSetter;
        m_window.RedrawWindow();
        EXPECT_TRUE(IsMarked()) << nSetter++;
    }
}

TEST_F(DiagramInteraction, NewDataEmptyTheExtendedWindowAndTheSectionWindowToo) {
    Plot().SetElementReadOut(true);
    Plot().AddFormatString(6, -1, "Critical point");
    Plot().ShowExtendedGetValue(1);
    Click(CRITICAL);
    EXPECT_EQ(LinesOf(EXTENDED, LINES).size(), 1U);
    Plot().SetCriticalPoints(0, 1, &m_critical);
    EXPECT_TRUE(LinesOf(EXTENDED, LINES).empty());
    Plot().SetElementReadOut(false);
    Plot().ShowExtendedGetValue(0);
    Plot().ShowCrossSection(1);
    m_window.RedrawWindow();
    Click(GREEN);
    SectionLines().SetCurSel(1);
    Plot().SetBinodalSection(0, 3, 1, &m_section, 0);
    EXPECT_TRUE(LinesOf(CROSS_SECTION, LINES).empty());
    std::string strMessage;
    AnswerMessage(strMessage);
    PressCalculate(); // of a point that is no more
    EXPECT_EQ(strMessage, "You first have to select a parameter from the list.");
    EXPECT_EQ(m_window.m_nSections, 0);
}

class ReadOutWindows : public DiagramInteraction {
protected:
    static constexpr UINT TEMPLATES[] = {GET_VALUE, EXTENDED, CROSS_SECTION};

    QWidget& Show(UINT nTemplate) {
        if (nTemplate == CROSS_SECTION) {
            Plot().ShowCrossSection(1);
        } else {
            nTemplate == GET_VALUE ? Plot().ShowGetValue(1) : Plot().ShowExtendedGetValue(1);
        }
        QWidget& dialog = *DialogOf(nTemplate);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
        QApplication::processEvents();
        return dialog;
    }
    static std::vector<QRect> Places(const QWidget& dialog) {
        std::vector<QRect> places;
        const auto controls = dialog.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget* const pControl : controls) {
            places.push_back(pControl->geometry());
        }
        return places;
    }
};

TEST_F(ReadOutWindows, TheListGrowsAndShrinksWithItsWindow) {
    for (const UINT nTemplate : TEMPLATES) {
        QWidget& dialog = Show(nTemplate);
        const QSize size = dialog.size();
        const auto before = Places(dialog);
        const QRect list = ControlOf(nTemplate, LINES).geometry();
        for (const QSize grown : {QSize(70, 40), QSize(0, 90), QSize(-10, -30), QSize(-900, -900)}) {
            dialog.resize(size + grown);
            QApplication::processEvents();
            const QSize really = dialog.size() - size; // a window may have a smallest size
            const auto after = Places(dialog);
            ASSERT_EQ(after.size(), before.size());
            for (std::size_t i = 0; i < before.size(); ++i) {
                QRect expected = before[i];
                expected.setWidth(std::max(0, expected.width() + really.width()));
                if (before[i] == list) {
                    expected.setHeight(std::max(0, expected.height() + really.height()));
                } else if (before[i].top() > list.top()) {
                    expected.moveTop(before[i].top() + std::max(really.height(), -list.height()));
                }
                EXPECT_EQ(after[i], expected) << nTemplate << " " << i;
            }
        }
        dialog.resize(size);
        QApplication::processEvents();
        EXPECT_EQ(Places(dialog), before) << nTemplate;
    }
}

TEST_F(ReadOutWindows, TheCaptionHasRoomBetweenTheButtonsOfAFrame) {
    constexpr int BUTTONS = 6; // a menu, three buttons and margins
    for (const UINT nTemplate : TEMPLATES) {
        const QWidget& dialog = Show(nTemplate);
        QFont bold = dialog.font();
        bold.setBold(true);
        const QFontMetrics metrics(bold);
        EXPECT_GE(dialog.width(),
                  metrics.horizontalAdvance(dialog.windowTitle()) + BUTTONS * metrics.height())
            << nTemplate;
    }
}

TEST_F(ReadOutWindows, TheirFrameLiesInTheScreensCorner) {
    for (const UINT nTemplate : TEMPLATES) {
        QWidget& dialog = Show(nTemplate);
        const QRect frame = dialog.frameGeometry();
        ASSERT_NE(frame, dialog.geometry()); // the tests' screen puts a frame around windows
        const QSize screen = dialog.screen()->availableSize();
        const int nGap = static_cast<int>(10 / dialog.devicePixelRatio());
        EXPECT_EQ(frame.x() + frame.width(), screen.width() - nGap) << nTemplate;
        EXPECT_EQ(frame.y() + frame.height(), screen.height() - nGap) << nTemplate;
        dialog.move(30, 40); // where the user wants it
        QApplication::processEvents();
        dialog.hide();
        Show(nTemplate);
        EXPECT_EQ(dialog.pos(), QPoint(30, 40)) << nTemplate;
    }
}

} // namespace

} // namespace tessara
