#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/ui/WindowTypes.h"

class CCmdTarget;

/// One menu item or tool button that a handler of ON_UPDATE_COMMAND_UI is asked about.
class TESSARA_API CCmdUI {
public:
    explicit CCmdUI(UINT nID) : m_nID(nID) {}
    virtual ~CCmdUI() = default;

    UINT m_nID;

    virtual void Enable(BOOL bOn = TRUE);
    virtual void SetCheck(int nCheck = 1);
    virtual void SetText(const char* pszText);

    /// Asks the target. Where nobody answers, the item is enabled exactly when somebody handles the command.
    void DoUpdate(CCmdTarget& target);

protected:
    bool m_bAnswered = false;
};
