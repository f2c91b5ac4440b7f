#pragma once

#include <memory>

#include "tessara/platform/base/String.h"
#include "tessara/platform/ui/windows/Styles.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

class CWnd;

enum TrackFlag : UINT { TPM_LEFTBUTTON = 0, TPM_RIGHTBUTTON = 2, TPM_LEFTALIGN = 0, TPM_RETURNCMD = 0x100 };

/// A menu: that of a frame, one of its popups, or one that a program tracks itself. Changes show at once.
///
/// Items are found by position (MF_BYPOSITION, from 0, separators included) or by command, in popups as well.
/// Of a menu that does not exist or an item that is not found every operation returns what its line says,
/// changes nothing. Objects that GetSubMenu and CWnd::GetMenu return live as long as the menu. Main thread.
class TESSARA_API CMenu {
public:
    struct CBody;

    CMenu();
    explicit CMenu(std::unique_ptr<CBody> pBody);
    ~CMenu(); ///< a menu made or loaded here goes with the object
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    BOOL CreatePopupMenu();
    /// Makes the menu of a resource: its popups are reached by GetSubMenu. Throws CResourceException.
    BOOL LoadMenu(UINT nID);
    BOOL DestroyMenu();

    UINT GetMenuItemCount() const;
    UINT GetMenuItemID(int nPosition) const; ///< 0 for a separator, 0xFFFFFFFF for a popup
    CMenu* GetSubMenu(int nPosition) const;  ///< null where there is no popup
    /// Returns the length; the text is as it was written, with '&' and tab.
    int GetMenuString(UINT nItem, CString& strText, UINT nFlags) const;
    UINT GetMenuState(UINT nItem, UINT nFlags) const; ///< MenuFlag bits; 0xFFFFFFFF where there is no item

    /// Greys or enables an item; a greyed one stays so until it is enabled here or by ON_UPDATE_COMMAND_UI.
    /// Returns the previous MenuFlag bits, or 0xFFFFFFFF.
    UINT EnableMenuItem(UINT nItem, UINT nFlags);
    UINT CheckMenuItem(UINT nItem, UINT nFlags); ///< returns as EnableMenuItem
    BOOL AppendMenu(UINT nFlags, UINT nID = 0, const char* pszText = nullptr);
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT nID = 0, const char* pszText = nullptr);
    BOOL ModifyMenu(UINT nItem, UINT nFlags, UINT nID, const char* pszText);
    BOOL DeleteMenu(UINT nItem, UINT nFlags);

    /// Shows a popup with its corner at a point of the screen until the user has chosen. The command is sent
    /// to the window, which is also asked what the items look like; with TPM_RETURNCMD it is returned
    /// instead.
    BOOL TrackPopupMenu(UINT nFlags, int nX, int nY, CWnd* pWnd);

private:
    std::unique_ptr<CBody> m_pBody;
};
