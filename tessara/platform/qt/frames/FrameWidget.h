#pragma once

#include <QMainWindow>
#include <QPointer>

#include "tessara/platform/qt/controls/PeerFactory.h"

namespace tessara {

/// The widget of a frame: Qt's main window, whose middle is the frame's client area. Files dropped on it are
/// opened. While it fills the screen, whoever has made it do so, its bars are hidden.
class CFrameWidget : public QMainWindow {
public:
    CFrameWidget(QWidget* pParent, Qt::WindowFlags flags);

    void ShowFullScreen(bool bShow);

protected:
    void changeEvent(QEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;
    QMenu* createPopupMenu() override { return nullptr; } // what is shown is the program's choice

private:
    void HideBars();
    void BringBackBars();

    bool m_bFull = false;
    QList<QPointer<QWidget>> m_hiddenBars;
};

CPeer* MakeFramePeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeViewPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeStatusBarPeer(const CWindowDescription& description, QWidget* pParent);
CPeer* MakeToolBarPeer(const CWindowDescription& description, QWidget* pParent);

} // namespace tessara
