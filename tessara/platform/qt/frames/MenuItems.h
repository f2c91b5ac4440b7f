#pragma once

#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <map>
#include <memory>
#include <span>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/frames/CmdUI.h"
#include "tessara/platform/ui/frames/Menu.h"
#include "tessara/platform/ui/resources/MenuResources.h"

class CFrameWnd;

/// A Qt menu or menu bar behind a menu.
struct CMenu::CBody {
    explicit CBody(QWidget* pMenu, bool bMine) : pWidget(pMenu), bOwned(bMine) {}

    QPointer<QWidget> pWidget;
    bool bOwned;                                           ///< the widget goes with this object
    std::map<const QMenu*, std::unique_ptr<CMenu>> popups; ///< objects given out by GetSubMenu
};

namespace tessara {

// Items are Qt's actions; an action's data is its command. Menus are filled in the same way from resources
// and by programs.

UINT CommandOf(const QAction& action);
/// A new item before another, or at the end.
QAction* AddItem(QWidget& menu, QAction* pBefore, UINT nFlags, UINT nID, const CString& strText);
void FillMenu(QWidget& menu, std::span<const CMenuEntry> entries);
/// The item of a command, in popups as well, or null.
QAction* FindItem(const QWidget& menu, UINT nCommand);
/// A popup of its own that is always up to date when it opens over a frame.
QMenu* NewPopup(QWidget* pParent);

/// What a program said of an item itself, which lasts until it says otherwise.
void SetGreyed(QAction& action, bool bGreyed);

/// One menu item or button, for handlers of ON_UPDATE_COMMAND_UI.
class CActionUI : public CCmdUI {
public:
    explicit CActionUI(QAction& action) : CCmdUI(CommandOf(action)), m_action(action) {}
    void Enable(BOOL bOn) override;
    void SetCheck(int nCheck) override;
    void SetText(const char* pszText) override;

protected:
    void EnableByDefault(BOOL bHandled) override;

private:
    QAction& m_action;
};

/// Asks a target what the items of a menu look like, and puts the recent files where they belong.
void UpdateItems(QMenu& menu, CCmdTarget& target);

} // namespace tessara
