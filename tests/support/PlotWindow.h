#pragma once

#include <gtest/gtest.h>

#include <malloc.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/WindowTable.h"
#include "tessara/platform/ui/windows/Wnd.h"

namespace tessara {

/// A window as a program has it around a plot: it paints, and passes the mouse on. Five page units to a
/// pixel.
template <class PLOT>
class CPlotWindow : public CWnd {
public:
    static constexpr int WIDTH = 1024;
    static constexpr int HEIGHT = 736;

    PLOT m_plot;

    void Open() {
        ASSERT_TRUE(Create(nullptr, "Plot", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, WIDTH, HEIGHT),
                           nullptr, 0));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&Widget()));
        UpdateWindow();
    }
    QWidget& Widget() { return CPeer::Find(m_hWnd)->GetClient(); }

    COLORREF PixelAt(CPoint point) { return CClientDC(this).GetPixel(point.x, point.y); }
    /// Every pixel of the client area, row by row.
    std::vector<COLORREF> Pixels() {
        const CClientDC dc(this);
        std::vector<COLORREF> pixels;
        for (int y = 0; y < HEIGHT; ++y) {
            for (int x = 0; x < WIDTH; ++x) {
                pixels.push_back(dc.GetPixel(x, y));
            }
        }
        return pixels;
    }
    /// The first pixel of a colour in a rectangle, column by column from its middle on; fails without one.
    CPoint Find(COLORREF color, const CRect& rect) {
        const CClientDC dc(this);
        for (int i = 0; i < rect.Width(); ++i) {
            const int x = rect.left + (rect.Width() / 2 + i) % rect.Width();
            for (int y = rect.top; y < rect.bottom; ++y) {
                if (dc.GetPixel(x, y) == color) {
                    return {x, y};
                }
            }
        }
        ADD_FAILURE() << "no pixel of colour " << std::hex << color;
        return {};
    }

    // The user's hands

    /// A pointer that is there already does not move, and the pointer's shape is asked for before a window
    /// hears of a move: so it comes from beside.
    void MoveTo(CPoint point) {
        Send(QEvent::MouseMove, {point.x + 1, point.y});
        Send(QEvent::MouseMove, point);
    }
    void Press(CPoint point) {
        m_eHeld = Qt::LeftButton;
        Send(QEvent::MouseButtonPress, point, Qt::LeftButton);
    }
    void Release(CPoint point) {
        m_eHeld = Qt::NoButton;
        Send(QEvent::MouseButtonRelease, point, Qt::LeftButton);
    }
    void Click(CPoint point) {
        MoveTo(point);
        Press(point);
        Release(point);
    }
    void Drag(CPoint from, CPoint to) {
        MoveTo(from);
        Press(from);
        MoveTo({(from.x + to.x) / 2, (from.y + to.y) / 2});
        MoveTo(to);
        Release(to);
    }

protected:
    virtual void OnPlotMessage(UINT nMessage, CPoint point) = 0;
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override {
        if (nMessage == WM_PAINT) {
            CPaintDC dc(this);
            CRect client;
            GetClientRect(&client);
            m_plot.Paint(&dc, client, nullptr);
            return 0;
        }
        if (nMessage == WM_MOUSEMOVE || nMessage == WM_LBUTTONDOWN || nMessage == WM_LBUTTONUP) {
            OnPlotMessage(nMessage, {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
            return 0;
        }
        return CWnd::WindowProc(nMessage, wParam, lParam);
    }

private:
    /// As the screen tells of it: exact also where one of Qt's units is several pixels.
    void Send(QEvent::Type eType, CPoint point, Qt::MouseButton eButton = Qt::NoButton) {
        constexpr int BETWEEN_CLICKS = 1000; // ms; quicker ones would be double clicks
        static int s_nTime = 0;
        QWidget& widget = Widget();
        const QPointF at = QPointF(point.x, point.y) / widget.devicePixelRatio();
        qt_handleMouseEvent(widget.window()->windowHandle(), at + widget.mapTo(widget.window(), QPointF()),
                            widget.mapToGlobal(at), m_eHeld, eButton, eType, Qt::NoModifier,
                            s_nTime += BETWEEN_CLICKS);
        QCoreApplication::processEvents();
    }

    Qt::MouseButton m_eHeld = Qt::NoButton;
};

/// The open window of a dialog template, or null.
inline QWidget* DialogOf(UINT nTemplate) {
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget* const pWidget : widgets) {
        if (pWidget->objectName() == QString::number(nTemplate) && pWidget->isVisible()) {
            return pWidget;
        }
    }
    return nullptr;
}

inline QWidget& ControlOf(UINT nTemplate, UINT nID) {
    return *DialogOf(nTemplate)->findChild<QWidget*>(QString::number(nID));
}

/// The texts that an owner-drawn list shows.
inline std::vector<std::string> LinesOf(UINT nTemplate, UINT nID) {
    std::vector<std::string> lines;
    CPeer* const pPeer = CPeer::Of(&ControlOf(nTemplate, nID));
    const auto* const pList = dynamic_cast<CListBox*>(CWnd::FromHandle(pPeer->GetHandle()));
    for (int i = 0; pList && i < pList->GetCount(); ++i) {
        lines.emplace_back(reinterpret_cast<const char*>(pList->GetItemData(i)));
    }
    return lines;
}

inline std::string TextOf(QWidget& widget) {
    const CPeer* const pPeer = CPeer::Of(&widget);
    CString strText;
    CWnd::FromHandle(pPeer->GetHandle())->GetWindowText(strText);
    return std::string(strText);
}

/// Plays rounds, as many as the variable TESSARA_LEAK_ROUNDS says or 200, and fails when they leave windows,
/// widgets or memory behind.
template <class ROUND>
void CheckRounds(ROUND round) {
    const char* const pszRounds = std::getenv("TESSARA_LEAK_ROUNDS");
    const int nRounds = pszRounds ? std::max(1, std::atoi(pszRounds)) : 200;
    for (int i = 0; i < 20; ++i) {
        round();
    }
    const std::size_t nWindows = CountWindows();
    const auto nWidgets = QApplication::allWidgets().size();
    const auto nHeap = static_cast<long>(mallinfo2().uordblks);
    for (int i = 0; i < nRounds; ++i) {
        round();
    }
    const long nGrowth = static_cast<long>(mallinfo2().uordblks) - nHeap;
    EXPECT_EQ(CountWindows(), nWindows);
    EXPECT_EQ(QApplication::allWidgets().size(), nWidgets);
    constexpr long ALLOWED = 256L << 10; // what the allocator and the system keep for later settles below
    EXPECT_LT(nGrowth, ALLOWED);
    std::printf("%d rounds: heap %+ld bytes\n", nRounds, nGrowth);
}

/// Answers the next message box; its text is in strText then.
inline void AnswerMessage(std::string& strText) {
    QTimer::singleShot(1, qApp, [&strText] {
        auto* const pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!pBox) {
            AnswerMessage(strText);
            return;
        }
        strText = pBox->text().toStdString();
        QTest::mouseClick(pBox->button(QMessageBox::Ok), Qt::LeftButton);
    });
}

} // namespace tessara
