#include "tessara/platform/qt/frames/MenuItems.h"

#include <QFontMetrics>

#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/resources/StandardStrings.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

namespace {

constexpr char GREYED_PROPERTY[] = "tessara_greyed";
constexpr int MAX_PATH_WIDTH = 40; ///< of a recent file's path, in characters of mean width

bool IsRecentFile(const QAction& action) {
    const UINT nID = CommandOf(action);
    return nID >= ID_FILE_MRU_FILE1 && nID <= ID_FILE_MRU_LAST;
}

/// "&1 path", the path shortened in its middle and its ampersands kept.
CString RecentFileText(const QMenu& menu, std::size_t nFile, const CString& strPath) {
    const QFontMetrics metrics = menu.fontMetrics();
    QString strShown = metrics.elidedText(ToQString(strPath.View()), Qt::ElideMiddle,
                                          MAX_PATH_WIDTH * metrics.averageCharWidth());
    strShown.replace(QLatin1Char('&'), QLatin1String("&&"));
    CString strNumber;
    strNumber.Format("&%zu ", nFile + 1);
    return strNumber + ToCString(strShown);
}

/// One item for each recent file in place of the first, which stays, greyed, when there is none.
void UpdateRecentFiles(QMenu& menu) {
    QAction* pFirst = nullptr;
    const auto actions = menu.actions();
    for (QAction* const pAction : actions) {
        if (pFirst && IsRecentFile(*pAction)) {
            delete pAction;
        } else if (CommandOf(*pAction) == ID_FILE_MRU_FILE1) {
            pFirst = pAction;
        }
    }
    const CWinApp* const pApp = AfxGetApp();
    if (!pFirst || !pApp) {
        return;
    }
    const auto& paths = pApp->GetRecentFiles();
    pFirst->setEnabled(!paths.empty());
    const auto following = menu.actions();
    const qsizetype nNext = following.indexOf(pFirst) + 1;
    QAction* const pBefore = nNext < following.size() ? following[nNext] : nullptr;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const CString strText = RecentFileText(menu, i, paths[i]);
        QAction* pItem = pFirst;
        if (i == 0) {
            pFirst->setText(ToQString(strText.View()));
        } else {
            pItem = AddItem(menu, pBefore, MF_STRING, ID_FILE_MRU_FILE1 + static_cast<UINT>(i), strText);
        }
        pItem->setStatusTip(ToQString(paths[i].View()));
    }
}

} // namespace

UINT CommandOf(const QAction& action) {
    return action.data().toUInt();
}

void SetGreyed(QAction& action, bool bGreyed) {
    action.setProperty(GREYED_PROPERTY, bGreyed);
    action.setEnabled(!bGreyed);
}

QAction* AddItem(QWidget& menu, QAction* pBefore, UINT nFlags, UINT nID, const CString& strText) {
    auto* const pAction = new QAction(&menu);
    if (nFlags & MF_SEPARATOR) {
        pAction->setSeparator(true);
    } else {
        pAction->setText(ToQString(strText.View()));
        pAction->setData(nID);
        pAction->setObjectName(QString::number(nID));
        pAction->setStatusTip(ToQString(StandardStringLine(nID, 0).View()));
        pAction->setMenuRole(QAction::NoRole);
        SetGreyed(*pAction, (nFlags & (MF_GRAYED | MF_DISABLED)) != 0);
        if (nFlags & MF_CHECKED) {
            pAction->setCheckable(true);
            pAction->setChecked(true);
        }
    }
    menu.insertAction(pBefore, pAction);
    return pAction;
}

QMenu* NewPopup(QWidget* pParent) {
    auto* const pMenu = new QMenu(pParent);
    QObject::connect(pMenu, &QMenu::aboutToShow, pMenu, [pMenu] {
        const CPeer::CEventScope scope;
        const CPeer* const pPeer = CPeer::Of(pMenu);
        CWnd* const pWnd = pPeer ? CWnd::FromHandle(pPeer->GetHandle()) : nullptr;
        if (pWnd) {
            RunGuarded([&] { UpdateItems(*pMenu, *pWnd); });
        }
    });
    return pMenu;
}

void FillMenu(QWidget& menu, std::span<const CMenuEntry> entries) {
    for (const CMenuEntry& entry : entries) {
        if (!entry.pPopup) {
            AddItem(menu, nullptr, entry.pszText ? MF_STRING : MF_SEPARATOR, entry.nCommand, entry.pszText);
            continue;
        }
        QMenu* const pPopup = NewPopup(&menu);
        pPopup->setTitle(ToQString(entry.pszText));
        menu.addAction(pPopup->menuAction());
        FillMenu(*pPopup, entry.GetPopup());
    }
}

QAction* FindItem(const QWidget& menu, UINT nCommand) {
    const auto actions = menu.actions();
    for (QAction* const pAction : actions) {
        const QMenu* const pPopup = pAction->menu<QMenu*>();
        if (!pPopup && !pAction->isSeparator() && CommandOf(*pAction) == nCommand) {
            return pAction;
        }
        if (QAction* const pFound = pPopup ? FindItem(*pPopup, nCommand) : nullptr) {
            return pFound;
        }
    }
    return nullptr;
}

void CActionUI::Enable(BOOL bOn) {
    CCmdUI::Enable(bOn);
    SetGreyed(m_action, bOn == 0);
}

void CActionUI::EnableByDefault(BOOL bHandled) {
    m_action.setEnabled(bHandled && !m_action.property(GREYED_PROPERTY).toBool());
}

void CActionUI::SetCheck(int nCheck) {
    m_action.setCheckable(nCheck != 0);
    m_action.setChecked(nCheck != 0);
}

void CActionUI::SetText(const char* pszText) {
    m_action.setText(ToQString(pszText));
}

void UpdateItems(QMenu& menu, CCmdTarget& target) {
    UpdateRecentFiles(menu);
    const bool bFrame = target.IsKindOf(RUNTIME_CLASS(CFrameWnd));
    const BOOL bDisable = !bFrame || static_cast<CFrameWnd&>(target).m_bAutoMenuEnable;
    const auto actions = menu.actions();
    for (QAction* const pAction : actions) {
        if (!pAction->menu<QMenu*>() && !pAction->isSeparator() && !IsRecentFile(*pAction)) {
            CActionUI(*pAction).DoUpdate(target, bDisable);
        }
    }
}

} // namespace tessara
