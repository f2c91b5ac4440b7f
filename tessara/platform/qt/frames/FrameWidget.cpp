#include "tessara/platform/qt/frames/FrameWidget.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>
#include <utility>

#include "tessara/platform/qt/drawing/Pictures.h"
#include "tessara/platform/qt/frames/MenuItems.h"
#include "tessara/platform/qt/windows/WindowBlock.h"
#include "tessara/platform/ui/frames/FrameSeam.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

namespace {

/// A frame's size before a program or its user chooses one, in parts of the screen, and the most of it.
constexpr double DEFAULT_PART = 0.7;
constexpr QSize MAX_DEFAULT(1100, 800);

CFrameWidget* FrameOf(HWND hFrame) {
    CPeer* const pPeer = CPeer::Find(hFrame);
    return pPeer ? dynamic_cast<CFrameWidget*>(&pPeer->GetWidget()) : nullptr;
}

} // namespace

CFrameWidget::CFrameWidget(QWidget* pParent, Qt::WindowFlags flags) : QMainWindow(pParent, flags) {
    setCentralWidget(new QWidget(this));
    centralWidget()->setMouseTracking(true);
    const QSize available = screen()->availableSize();
    resize((QSizeF(available) * DEFAULT_PART).toSize().boundedTo(MAX_DEFAULT));
}

void CFrameWidget::ShowFullScreen(bool bShow) {
    const Qt::WindowStates eStates = windowState() & ~Qt::WindowMinimized;
    setWindowState(bShow ? eStates | Qt::WindowFullScreen : eStates & ~Qt::WindowFullScreen);
}

void CFrameWidget::changeEvent(QEvent* pEvent) {
    QMainWindow::changeEvent(pEvent);
    if (pEvent->type() != QEvent::WindowStateChange || m_bFull == isFullScreen()) {
        return;
    }
    m_bFull = isFullScreen();
    if (m_bFull) {
        HideBars();
    } else {
        BringBackBars();
    }
}

void CFrameWidget::HideBars() {
    QWidgetList bars{menuWidget(), findChild<QStatusBar*>(QString(), Qt::FindDirectChildrenOnly)};
    const auto toolBars = findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly);
    bars << QWidgetList(toolBars.begin(), toolBars.end());
    for (QWidget* const pBar : bars) {
        if (pBar && !pBar->isHidden()) {
            pBar->hide();
            m_hiddenBars << pBar;
        }
    }
}

void CFrameWidget::BringBackBars() {
    for (const QPointer<QWidget>& pBar : std::exchange(m_hiddenBars, {})) {
        if (pBar) {
            pBar->show();
        }
    }
}

void CFrameWidget::dragEnterEvent(QDragEnterEvent* pEvent) {
    if (pEvent->mimeData()->hasUrls()) {
        pEvent->acceptProposedAction();
    }
}

void CFrameWidget::dropEvent(QDropEvent* pEvent) {
    const CPeer::CEventScope scope;
    const auto urls = pEvent->mimeData()->urls();
    for (const QUrl& url : urls) {
        CWinApp* const pApp = AfxGetApp();
        if (pApp && url.isLocalFile()) {
            RunGuarded([&] { pApp->OpenDocumentFile(QFile::encodeName(url.toLocalFile())); });
        }
    }
    pEvent->acceptProposedAction();
}

CPeer* MakeFramePeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pFrame = new CFrameWidget(pParent, ToWindowFlags(description.dwStyle));
    return new CPeer(description, pFrame, pFrame->centralWidget());
}

CPeer* MakeViewPeer(const CWindowDescription& description, QWidget* pParent) {
    CPeer* const pPeer = MakePlainPeer(description, pParent);
    pPeer->GetWidget().setFocusPolicy(Qt::StrongFocus);
    pPeer->GetImage().SetGround(Qt::white); // paper, whatever the desktop's colours
    return pPeer;
}

void SetFrameMenu(HWND hFrame, const CMenuResource& resource) {
    CFrameWidget* const pFrame = FrameOf(hFrame);
    if (!pFrame) {
        return;
    }
    auto* const pBar = new QMenuBar(pFrame);
    FillMenu(*pBar, resource.entries);
    QObject::connect(pBar, &QMenuBar::triggered, pFrame, [hFrame](QAction* pAction) {
        const CPeer::CEventScope scope;
        Tell(hFrame, WM_COMMAND, CommandOf(*pAction));
    });
    pFrame->setMenuBar(pBar);
}

EItemState UpdateMenuItem(HWND hFrame, UINT nCommand) {
    const CFrameWidget* const pFrame = FrameOf(hFrame);
    const QWidget* const pBar = pFrame ? pFrame->menuWidget() : nullptr;
    QAction* const pItem = pBar ? FindItem(*pBar, nCommand) : nullptr;
    auto* const pWnd = static_cast<CFrameWnd*>(CWnd::FromHandle(hFrame));
    if (!pItem || !pWnd) {
        return EItemState::none;
    }
    CActionUI(*pItem).DoUpdate(*pWnd, pWnd->m_bAutoMenuEnable);
    return pItem->isEnabled() ? EItemState::enabled : EItemState::greyed;
}

bool IsBlocked(HWND hWnd) {
    const CPeer* const pPeer = CPeer::Find(hWnd);
    const QWidget* const pModal = QApplication::activeModalWidget();
    return !pPeer || !IsReachable(pPeer->GetWidget()) || (pModal && pModal != pPeer->GetWidget().window());
}

UINT HeldAcceleratorKeys() {
    const Qt::KeyboardModifiers modifiers = CPeer::KeyModifiers();
    UINT nKeys = FNONE;
    nKeys |= modifiers & Qt::ShiftModifier ? FSHIFT : 0U;
    nKeys |= modifiers & Qt::ControlModifier ? FCONTROL : 0U;
    nKeys |= modifiers & Qt::AltModifier ? FALT : 0U;
    return nKeys;
}

} // namespace tessara

void CFrameWnd::ShowFullScreen(BOOL bShow) {
    tessara::OnWidget<tessara::CFrameWidget>(*this, [&](tessara::CFrameWidget& frame) {
        const tessara::CPeer::CEventScope scope;
        frame.ShowFullScreen(bShow != 0);
    });
}

BOOL CFrameWnd::IsFullScreen() const {
    return tessara::OnPeer(*this,
                           [](tessara::CPeer& peer) -> BOOL { return peer.GetWidget().isFullScreen(); });
}

void CWnd::DragAcceptFiles(BOOL bAccept) {
    tessara::OnPeer(*this, [&](tessara::CPeer& peer) { peer.GetWidget().setAcceptDrops(bAccept != 0); });
}

void CWnd::SetIcon(UINT nIconID) {
    tessara::OnPeer(*this, [&](tessara::CPeer& peer) {
        const QPixmap picture = tessara::LoadPicture(tessara::EFileResource::icon, nIconID, peer.GetRatio());
        if (!picture.isNull()) {
            peer.GetWidget().setWindowIcon(picture);
        }
    });
}
