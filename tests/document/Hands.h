#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <vector>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/qt/windows/WindowBlock.h"
#include "tessara/platform/ui/windows/System.h"
#include "tests/support/PlotWindow.h"

namespace tessara {

/// A user of modal dialogs, who does one thing after the other, each when the window is there in which to do
/// it. With the object's end everything must have been done.
class CHands {
public:
    CHands() {
        RequireWindows(); // there are no timers before
        Wait();
    }
    ~CHands() { EXPECT_EQ(m_nNext, m_steps.size()) << "not everything was done"; }

    CHands& Select(UINT nTemplate, UINT nList, int nLine) {
        return In(nTemplate, [=] {
            auto& list = ListOf(nTemplate, nList);
            const QModelIndex line = list.model()->index(nLine, 0);
            list.scrollTo(line);
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(line).center());
        });
    }
    CHands& Press(UINT nTemplate, UINT nButton) {
        return In(nTemplate, [=] { QTest::mouseClick(&ControlOf(nTemplate, nButton), Qt::LeftButton); });
    }
    CHands& Type(UINT nTemplate, UINT nEdit, const char* pszText) {
        return In(nTemplate, [=] {
            QWidget& edit = ControlOf(nTemplate, nEdit);
            QTest::keySequence(&edit, QKeySequence::SelectAll);
            QTest::keyClick(&edit, Qt::Key_Delete);
            QTest::keyClicks(&edit, pszText);
        });
    }
    CHands& Look(UINT nTemplate, std::function<void()> look) { return In(nTemplate, std::move(look)); }
    /// Expects a message box with that caption (null for any) and text and presses the button.
    CHands& Answer(const char* pszCaption, const std::string& strText, QMessageBox::StandardButton eButton) {
        m_steps.push_back([=] {
            auto* const pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (pBox) {
                if (pszCaption) {
                    EXPECT_EQ(pBox->windowTitle().toStdString(), pszCaption);
                }
                EXPECT_EQ(pBox->text().toStdString(), strText);
                QTest::mouseClick(pBox->button(eButton), Qt::LeftButton);
            }
            return pBox != nullptr;
        });
        return *this;
    }
    /// Does something while a message box is open.
    CHands& Meanwhile(std::function<void()> act) {
        m_steps.push_back([=] {
            const bool bBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (bBox) {
                act();
            }
            return bBox;
        });
        return *this;
    }

    static QAbstractItemView& ListOf(UINT nTemplate, UINT nList) {
        QWidget& control = ControlOf(nTemplate, nList);
        auto* const pView = dynamic_cast<QAbstractItemView*>(&control);
        return pView ? *pView : *control.findChild<QAbstractItemView*>();
    }
    static std::vector<std::string> Lines(UINT nTemplate, UINT nList) {
        std::vector<std::string> lines;
        const QAbstractItemModel& model = *ListOf(nTemplate, nList).model();
        for (int i = 0; i < model.rowCount(); ++i) {
            lines.push_back(model.index(i, 0).data().toString().toStdString());
        }
        return lines;
    }
    static int Selected(UINT nTemplate, UINT nList) {
        const auto lines = ListOf(nTemplate, nList).selectionModel()->selectedRows();
        return lines.isEmpty() ? -1 : lines.front().row();
    }

private:
    CHands& In(UINT nTemplate, std::function<void()> act) {
        m_steps.push_back([=] {
            const QWidget* const pDialog = DialogOf(nTemplate);
            const bool bThere = pDialog && IsReachable(*pDialog) &&
                                !qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (bThere) {
                act();
            }
            return bThere;
        });
        return *this;
    }

    /// A step that opens a dialog comes back late; meanwhile the next one is due, with a timer of its own.
    void Wait() {
        QTimer::singleShot(1, &m_context, [this] {
            Wait();
            DoNext();
        });
    }

    void DoNext() {
        if (m_nNext == m_steps.size()) {
            return;
        }
        TakePicture();
        const std::size_t nStep = m_nNext++;
        if (!m_steps[nStep]()) {
            m_nNext = nStep;
        }
    }

    /// For a person to look at: TESSARA_PICTURES names a folder.
    static void TakePicture() {
        static int s_nPicture = 0;
        QWidget* const pWindow = QApplication::activeModalWidget() ? QApplication::activeModalWidget()
                                                                   : QApplication::activeWindow();
        if (const char* const pszFolder = std::getenv("TESSARA_PICTURES"); pszFolder && pWindow) {
            pWindow->grab().save(QString("%1/%2.png").arg(pszFolder).arg(++s_nPicture, 3, 10, QChar('0')));
        }
    }

    QObject m_context;
    std::vector<std::function<bool()>> m_steps;
    std::size_t m_nNext = 0;
};

} // namespace tessara
