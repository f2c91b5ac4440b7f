#include "tessara/platform/ui/frames/CmdUI.h"

#include "tessara/platform/ui/threads/CmdTarget.h"

namespace tessara {

bool IsCommandHandled(CCmdTarget& target, UINT nID) {
    static CHandlerQuestion s_question;
    return target.OnCmdMsg(nID, CN_COMMAND, &s_question) != 0;
}

} // namespace tessara

void CCmdUI::Enable(BOOL) {
    m_bAnswered = true;
}

void CCmdUI::SetCheck(int) {}

void CCmdUI::SetText(const char*) {}

void CCmdUI::DoUpdate(CCmdTarget& target, BOOL bDisableIfNoHandler) {
    m_bAnswered = false;
    target.OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this);
    if (!m_bAnswered && bDisableIfNoHandler) {
        EnableByDefault(tessara::IsCommandHandled(target, m_nID));
    }
}
