#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

class CCmdTarget;

/// One menu item, tool button or pane that a handler of ON_UPDATE_COMMAND_UI is asked about.
class TESSARA_API CCmdUI {
public:
    explicit CCmdUI(UINT nID) : m_nID(nID) {}
    virtual ~CCmdUI() = default;

    UINT m_nID;

    virtual void Enable(BOOL bOn = TRUE);
    virtual void SetCheck(int nCheck = 1);
    /// Puts a bullet before one of several items that exclude each other.
    void SetRadio(BOOL bOn = TRUE) { SetCheck(bOn); }
    virtual void SetText(const char* pszText);

    /// Asks the target. Where nobody answers, the item is enabled exactly when somebody handles the command;
    /// with bDisableIfNoHandler zero it stays as it is.
    void DoUpdate(CCmdTarget& target, BOOL bDisableIfNoHandler = TRUE);

protected:
    /// Called when no handler enabled or disabled the item.
    virtual void EnableByDefault(BOOL bHandled) { Enable(bHandled); }

    bool m_bAnswered = false; ///< a handler has enabled or disabled the item
};

namespace tessara {

/// Whether somebody whom the target passes commands on to handles a command.
bool IsCommandHandled(CCmdTarget& target, UINT nID);

} // namespace tessara
