#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>

#include "tessara/platform/base/Archive.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/frames/CmdUI.h"
#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/frames/StatusBar.h"
#include "tessara/platform/ui/frames/ToolBar.h"
#include "tessara/platform/ui/frames/View.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/resources/MenuResources.h"
#include "tessara/platform/ui/threads/Loop.h"

// A small program with one document, for tests of frames and documents.

constexpr UINT IDR_MAINFRAME = 128;
constexpr UINT ID_MARK = 32771;    ///< counted by the view
constexpr UINT ID_GREYED = 32772;  ///< greyed by its update handler
constexpr UINT ID_CHECKED = 32773; ///< checked by its update handler
constexpr UINT ID_NOBODYS = 32774;
constexpr UINT ID_COMPUTE = 17920; ///< enabled and greyed by EnableMenuItem

/// A text in a file.
class CTextDocument : public CDocument {
    DECLARE_DYNCREATE(CTextDocument)
public:
    CString m_strText;
    void Serialize(CArchive& ar) override;
    void DeleteContents() override { m_strText.Empty(); }
};

/// Fills its middle with red and writes down what it is asked.
class CMarkView : public CView {
    DECLARE_DYNCREATE(CMarkView)
public:
    int m_nMarks = 0;
    int m_nUpdates = 0;
    BOOL m_bCheck = TRUE;
    std::vector<BOOL> m_activations;
    CString m_strPrintFile; ///< printed into without a dialog
    bool m_bPrinted = false;
    std::vector<int> m_backModes; ///< of the surfaces that it was given
    HCURSOR m_hShape = nullptr;
    CPoint m_last; ///< of the last mouse message
    short m_nWheel = 0;
    std::vector<UINT> m_keys;

protected:
    void OnDraw(CDC* pDC) override;
    void OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint) override;
    void OnActivateView(BOOL bActivate, CView* pActivate, CView* pDeactive) override;
    BOOL OnPreparePrinting(CPrintInfo* pInfo) override;
    void OnPrint(CDC* pDC, CPrintInfo* pInfo) override;
    void OnMark() { ++m_nMarks; }
    void OnUpdateGreyed(CCmdUI* pCmdUI) { pCmdUI->Enable(FALSE); }
    void OnUpdateChecked(CCmdUI* pCmdUI) { pCmdUI->SetCheck(m_bCheck); }
    BOOL OnSetCursor(CWnd* pWnd, UINT nHit, UINT nMessage);
    void OnMouseMove(UINT nFlags, CPoint point);
    void OnLButtonUp(UINT nFlags, CPoint point);
    BOOL OnMouseWheel(UINT nFlags, short nDelta, CPoint point);
    void OnKeyDown(UINT nKey, UINT, UINT) { m_keys.push_back(nKey); }
    DECLARE_MESSAGE_MAP()
};

class CTestFrame : public CFrameWnd {
    DECLARE_DYNCREATE(CTestFrame)
public:
    CToolBar m_toolBar;
    CStatusBar m_statusBar;

protected:
    int OnCreate(LPCREATESTRUCT pCreate);
    DECLARE_MESSAGE_MAP()
};

class CTestApp : public CWinApp {
public:
    CTestApp();
    int m_nAbout = 0;

protected:
    void OnAbout() { ++m_nAbout; }
    DECLARE_MESSAGE_MAP()
};

/// A program whose settings lie in a folder of the test's own, with a new document in its frame.
class FrameFixture : public ::testing::Test {
protected:
    FrameFixture();
    ~FrameFixture() override;

    CTestFrame& Frame() { return *static_cast<CTestFrame*>(m_app.m_pMainWnd); }
    CMarkView& View() { return *static_cast<CMarkView*>(Frame().GetActiveView()); }
    CTextDocument& Document() { return *static_cast<CTextDocument*>(View().GetDocument()); }
    QMainWindow& Window();
    CString Title();
    /// Opens a menu of the bar with the mouse and returns it.
    QMenu& OpenMenu(int nMenu);
    static QAction* ItemOf(const QMenu& menu, UINT nID);
    /// Chooses an item of a menu with the mouse.
    void Choose(int nMenu, UINT nID);
    CString PathOf(const char* pszName) const { return m_strFolder + "/" + pszName; }

    CString m_strFolder; ///< empty at the start of each test
    CTestApp m_app;
};

QWidget& WidgetOf(const CWnd& wnd);
/// Runs a function on the next modal dialog, as soon as that is there.
void WhenModal(const std::function<void(QWidget&)>& fnAct);
/// Types a path into the next file dialog and accepts it.
void AnswerPath(const CString& strPath);
/// Presses a button of the next message box; its text is kept.
void Answer(QMessageBox::StandardButton eButton, QString* pText = nullptr);
