#pragma once

#include <gtest/gtest.h>

#include <QTest>

#include "tessara/platform/qt/windows/Peer.h"
#include "tests/ui/Specimen.h"

/// An open dialog with every control and the user's hands.
class SpecimenTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_dialog.Open());
        m_dialog.ShowWindow(SW_SHOW);
        Widget().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Widget()));
        m_dialog.TakeHeard();
    }

    QWidget& Widget() { return tessara::CPeer::Find(m_dialog.m_hWnd)->GetWidget(); }
    QWidget* ControlOf(UINT nID) { return Widget().findChild<QWidget*>(QString::number(nID)); }
    /// Where a control takes clicks.
    QWidget* ClientOf(UINT nID) { return &tessara::CPeer::Of(ControlOf(nID))->GetClient(); }
    template <class CONTROL>
    CONTROL& Get(UINT nID) {
        return dynamic_cast<CONTROL&>(*m_dialog.GetDlgItem(static_cast<int>(nID)));
    }
    CString TextOf(UINT nID) {
        CString strText;
        m_dialog.GetDlgItemText(static_cast<int>(nID), strText);
        return strText;
    }
    void Click(UINT nID) { QTest::mouseClick(ClientOf(nID), Qt::LeftButton, {}, QPoint(8, 8)); }
    void Press(UINT nID, Qt::Key eKey) { QTest::keyClick(ControlOf(nID), eKey); }

    CSpecimen m_dialog;
};
