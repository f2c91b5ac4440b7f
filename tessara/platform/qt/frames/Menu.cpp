#include "tessara/platform/ui/frames/Menu.h"

#include <utility>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/qt/frames/FrameWidget.h"
#include "tessara/platform/qt/frames/MenuItems.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/threads/Dispatch.h"

// Menus on Qt's: the widget holds all there is to know.

namespace tessara {

namespace {

constexpr UINT NO_ITEM = 0xFFFFFFFF;

QWidget* WidgetOf(const std::unique_ptr<CMenu::CBody>& pBody) {
    return pBody ? pBody->pWidget.data() : nullptr;
}

QAction* ItemAt(const std::unique_ptr<CMenu::CBody>& pBody, UINT nItem, UINT nFlags) {
    const QWidget* const pWidget = WidgetOf(pBody);
    if (!pWidget) {
        return nullptr;
    }
    return nFlags & MF_BYPOSITION ? pWidget->actions().value(static_cast<qsizetype>(nItem))
                                  : FindItem(*pWidget, nItem);
}

UINT StateOf(const QAction& action) {
    UINT nState = action.isEnabled() ? MF_ENABLED : MF_GRAYED;
    nState |= action.isChecked() ? MF_CHECKED : 0U;
    nState |= action.isSeparator() ? MF_SEPARATOR : 0U;
    nState |= action.menu<QMenu*>() ? MF_POPUP : 0U;
    return nState;
}

void Check(QAction& action, bool bChecked) {
    action.setCheckable(bChecked);
    action.setChecked(bChecked);
}

/// Removes an item and, with a popup's, the popup.
void RemoveItem(QAction* pAction) {
    QObject* const pPopup = pAction->menu<QMenu*>();
    QObject* const pGone = pPopup ? pPopup : pAction;
    delete pGone;
}

/// The object of a frame's menu bar, which lives as long as the bar.
class CMenuOfBar : public QObject {
public:
    explicit CMenuOfBar(QMenuBar* pBar)
        : QObject(pBar), m_menu(std::make_unique<CMenu::CBody>(pBar, false)) {}
    CMenu m_menu;
};

} // namespace

} // namespace tessara

using tessara::ItemAt;
using tessara::WidgetOf;

CMenu::CMenu() = default;

CMenu::CMenu(std::unique_ptr<CBody> pBody) : m_pBody(std::move(pBody)) {}

CMenu::~CMenu() {
    DestroyMenu();
}

BOOL CMenu::CreatePopupMenu() {
    if (m_pBody) {
        return FALSE;
    }
    tessara::EnsureMainPump();
    m_pBody = std::make_unique<CBody>(tessara::NewPopup(nullptr), true);
    return TRUE;
}

BOOL CMenu::LoadMenu(UINT nID) {
    const tessara::CMenuResource* const pResource = tessara::FindMenuResource(nID);
    if (!pResource) {
        AfxThrowResourceException();
    }
    if (!CreatePopupMenu()) {
        return FALSE;
    }
    tessara::FillMenu(*m_pBody->pWidget, pResource->entries);
    return TRUE;
}

BOOL CMenu::DestroyMenu() {
    const std::unique_ptr<CBody> pBody = std::move(m_pBody);
    if (pBody && pBody->bOwned) {
        delete pBody->pWidget;
    }
    return pBody != nullptr;
}

UINT CMenu::GetMenuItemCount() const {
    const QWidget* const pWidget = WidgetOf(m_pBody);
    return pWidget ? static_cast<UINT>(pWidget->actions().size()) : 0;
}

UINT CMenu::GetMenuItemID(int nPosition) const {
    const QAction* const pAction = ItemAt(m_pBody, static_cast<UINT>(nPosition), MF_BYPOSITION);
    return !pAction || pAction->menu<QMenu*>() ? tessara::NO_ITEM : tessara::CommandOf(*pAction);
}

CMenu* CMenu::GetSubMenu(int nPosition) const {
    const QAction* const pAction = ItemAt(m_pBody, static_cast<UINT>(nPosition), MF_BYPOSITION);
    QMenu* const pPopup = pAction ? pAction->menu<QMenu*>() : nullptr;
    if (!pPopup) {
        return nullptr;
    }
    auto& pMenu = m_pBody->popups[pPopup];
    if (!pMenu || WidgetOf(pMenu->m_pBody) != pPopup) {
        pMenu = std::make_unique<CMenu>(std::make_unique<CBody>(pPopup, false));
    }
    return pMenu.get();
}

int CMenu::GetMenuString(UINT nItem, CString& strText, UINT nFlags) const {
    const QAction* const pAction = ItemAt(m_pBody, nItem, nFlags);
    strText = pAction ? tessara::ToCString(pAction->text()) : CString();
    return strText.GetLength();
}

UINT CMenu::GetMenuState(UINT nItem, UINT nFlags) const {
    const QAction* const pAction = ItemAt(m_pBody, nItem, nFlags);
    return pAction ? tessara::StateOf(*pAction) : tessara::NO_ITEM;
}

UINT CMenu::EnableMenuItem(UINT nItem, UINT nFlags) {
    const UINT nPrevious = GetMenuState(nItem, nFlags);
    if (QAction* const pAction = ItemAt(m_pBody, nItem, nFlags)) {
        tessara::SetGreyed(*pAction, (nFlags & (MF_GRAYED | MF_DISABLED)) != 0);
    }
    return nPrevious;
}

UINT CMenu::CheckMenuItem(UINT nItem, UINT nFlags) {
    const UINT nPrevious = GetMenuState(nItem, nFlags);
    if (QAction* const pAction = ItemAt(m_pBody, nItem, nFlags)) {
        tessara::Check(*pAction, (nFlags & MF_CHECKED) != 0);
    }
    return nPrevious;
}

BOOL CMenu::AppendMenu(UINT nFlags, UINT nID, const char* pszText) {
    QWidget* const pWidget = WidgetOf(m_pBody);
    return pWidget && tessara::AddItem(*pWidget, nullptr, nFlags, nID, pszText);
}

BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT nID, const char* pszText) {
    QAction* const pBefore = ItemAt(m_pBody, nPosition, nFlags);
    QWidget* const pOwner =
        pBefore ? qobject_cast<QWidget*>(pBefore->associatedObjects().value(0)) : WidgetOf(m_pBody);
    return pOwner && tessara::AddItem(*pOwner, pBefore, nFlags, nID, pszText);
}

BOOL CMenu::ModifyMenu(UINT nItem, UINT nFlags, UINT nID, const char* pszText) {
    QAction* const pAction = ItemAt(m_pBody, nItem, nFlags);
    return pAction && InsertMenu(nItem, nFlags, nID, pszText) && (tessara::RemoveItem(pAction), TRUE);
}

BOOL CMenu::DeleteMenu(UINT nItem, UINT nFlags) {
    QAction* const pAction = ItemAt(m_pBody, nItem, nFlags);
    if (pAction) {
        tessara::RemoveItem(pAction);
    }
    return pAction != nullptr;
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int nX, int nY, CWnd* pWnd) {
    auto* const pPopup = qobject_cast<QMenu*>(WidgetOf(m_pBody));
    tessara::CPeer* const pPeer = pWnd ? tessara::CPeer::Find(pWnd->GetSafeHwnd()) : nullptr;
    if (!pPopup || !pPeer) {
        return FALSE;
    }
    const tessara::CPeer::CEventScope scope;
    const HWND hWnd = pPeer->GetHandle();
    CFrameWnd* const pFrame = pWnd->GetParentFrame();
    CCmdTarget& target = pFrame ? static_cast<CCmdTarget&>(*pFrame) : *pWnd;
    tessara::UpdateItems(*pPopup, target);
    const auto deeper = pPopup->findChildren<QMenu*>();
    for (QMenu* const pMenu : deeper) {
        tessara::UpdateItems(*pMenu, target);
    }
    const QPoint at = (QPointF(nX, nY) / pPeer->GetRatio()).toPoint();
    const QAction* const pChosen = pPopup->exec(at);
    const UINT nCommand = pChosen ? tessara::CommandOf(*pChosen) : 0;
    if (nFlags & TPM_RETURNCMD) {
        return static_cast<BOOL>(nCommand);
    }
    if (nCommand) {
        tessara::Tell(hWnd, WM_COMMAND, nCommand);
    }
    return TRUE;
}

CMenu* CWnd::GetMenu() const {
    return tessara::OnPeer(*this, [](tessara::CPeer& peer) -> CMenu* {
        auto* const pFrame = dynamic_cast<tessara::CFrameWidget*>(&peer.GetWidget());
        auto* const pBar = pFrame ? qobject_cast<QMenuBar*>(pFrame->menuWidget()) : nullptr;
        if (!pBar) {
            return nullptr;
        }
        for (QObject* const pChild : pBar->children()) {
            if (auto* const pMenu = dynamic_cast<tessara::CMenuOfBar*>(pChild)) {
                return &pMenu->m_menu;
            }
        }
        return &(new tessara::CMenuOfBar(pBar))->m_menu;
    });
}

void CWnd::DrawMenuBar() {
    tessara::OnPeer(*this, [](tessara::CPeer& peer) {
        if (auto* const pFrame = dynamic_cast<tessara::CFrameWidget*>(&peer.GetWidget())) {
            pFrame->menuBar()->update();
        }
    });
}
