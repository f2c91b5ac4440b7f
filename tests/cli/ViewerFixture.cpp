#include "tests/cli/ViewerFixture.h"

#include <QApplication>
#include <QMenuBar>
#include <QTimer>
#include <QWheelEvent>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/threads/Loop.h"

using namespace tessara;

CViewerFixture::CViewerFixture(const std::string& strFile, OPENPLOT fnOpen) : m_fnOpen(std::move(fnOpen)) {
    if (!strFile.empty()) {
        m_folder.Write("plot.txt", strFile);
    }
    CViewerPlot::s_nPlots = 0;
    CViewerPlot::s_nAttached = 0;
    setenv("XDG_CONFIG_HOME", m_folder.Path("").c_str(), 1);
    Start();
}

CViewerFixture::~CViewerFixture() {
    End();
    EXPECT_EQ(CViewerPlot::s_nPlots, 0) << "plots are left";
}

void CViewerFixture::Start() {
    CViewerStart start;
    start.source.strPath = Path();
    start.strVersion = "tessara 1.2.3";
    start.fnOpen = m_fnOpen;
    m_pApp = std::make_unique<CViewerApp>(std::move(start));
    if (!m_pApp->InitInstance() || !QTest::qWaitForWindowExposed(&Window())) {
        throw std::runtime_error("no window");
    }
    View().UpdateWindow();
}

void CViewerFixture::End() {
    while (!m_pApp->GetFrames().empty()) {
        m_pApp->GetFrames().back()->DestroyWindow();
    }
    TakeExitCode();
    m_pApp.reset();
}

void CViewerFixture::Restart() {
    m_pApp->OnCmdMsg(ID_APP_EXIT, CN_COMMAND, nullptr);
    End();
    Start();
}

QMainWindow& CViewerFixture::WindowOf(const CViewerFrame& frame) {
    return dynamic_cast<QMainWindow&>(CPeer::Find(frame.m_hWnd)->GetWidget());
}

QWidget& CViewerFixture::Paper() {
    return CPeer::Find(View().m_hWnd)->GetClient();
}

void CViewerFixture::Key(int nKey, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&Paper(), static_cast<Qt::Key>(nKey), modifiers);
}

void CViewerFixture::Wheel(CPoint at, int nDelta) {
    const QPointF point(at.x, at.y);
    QWheelEvent event(point, Paper().mapToGlobal(point), {}, {0, nDelta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Paper(), &event);
}

QAction& CViewerFixture::Item(UINT nCommand) {
    const auto actions = Window().menuBar()->findChildren<QAction*>(QString::number(nCommand));
    if (actions.isEmpty()) {
        throw std::runtime_error("no menu item " + std::to_string(nCommand));
    }
    return *actions.constFirst();
}

bool CViewerFixture::IsEnabled(UINT nCommand) {
    QAction& item = Item(nCommand);
    auto* const pMenu = qobject_cast<QMenu*>(item.parent());
    emit pMenu->aboutToShow();
    return item.isEnabled();
}

std::string CViewerFixture::Title() const {
    return WindowOf(*m_pApp->GetFrames().front()).windowTitle().toStdString();
}

std::string CViewerFixture::StatusText() {
    const CWnd* const pBar = Frame().GetDlgItem(AFX_IDW_STATUS_BAR);
    return dynamic_cast<const CStatusBar&>(*pBar).GetPaneText(0).View().data();
}

std::string CViewerFixture::BannerText() {
    return std::string(dynamic_cast<const CViewerBanner&>(*Frame().GetDlgItem(ID_BANNER_CLOSE)).GetText());
}

bool CViewerFixture::IsBannerVisible() {
    return Frame().GetDlgItem(ID_BANNER_CLOSE)->IsWindowVisible();
}

/// The layer's own dialogs block their owner without being modal to Qt.
static QWidget* FindDialog() {
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* const pWindow : windows) {
        if (pWindow->isVisible() && (pWindow->windowFlags() & Qt::Dialog) == Qt::Dialog) {
            return pWindow;
        }
    }
    return nullptr;
}

void WhenModal(const std::function<void(QWidget&)>& fnAct) {
    QTimer::singleShot(10, qApp, [fnAct] {
        if (QWidget* const pModal = QApplication::activeModalWidget()) {
            fnAct(*pModal);
        } else if (QWidget* const pDialog = FindDialog()) {
            fnAct(*pDialog);
        } else {
            WhenModal(fnAct);
        }
    });
}
