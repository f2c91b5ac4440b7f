#pragma once

#include "tessara/platform/base/Object.h"
#include "tessara/platform/ui/threads/MessageMap.h"

/// Something that commands can be sent to: a window, a document, the application.
class TESSARA_API CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)

public:
    /// Looks for a handler of a command or a notification, here and in what this object passes commands on
    /// to, and calls it. Returns nonzero when one took it.
    ///
    /// nCode is CN_COMMAND, CN_UPDATE_COMMAND_UI (pExtra is a CCmdUI) or the notification code of a control.
    /// With CN_COMMAND a pExtra that is not null only asks whether there is a handler.
    virtual BOOL OnCmdMsg(UINT nID, UINT nCode, void* pExtra);

    /// Shows the wait cursor until EndWaitCursor; calls nest.
    void BeginWaitCursor();
    void EndWaitCursor();

protected:
    CCmdTarget() = default;

    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
    friend class CWnd;
    friend class CWinThread;
};

namespace tessara {

/// Goes with a command whose handler is asked for and not called.
struct CHandlerQuestion {};

/// What a map is searched for.
struct CMapQuery {
    UINT nMessage;
    UINT nCode;
    UINT nID;
};

/// Searches a map and its bases for entries that match, calls them in order and stops at the first that takes
/// the message. Returns nonzero when one did.
BOOL DispatchThroughMap(CCmdTarget& target, const AFX_MSGMAP* pMap, const CMapQuery& query,
                        AFX_MESSAGE& message);

/// Whether a map has an entry for it.
bool HasHandler(const AFX_MSGMAP* pMap, const CMapQuery& query);

} // namespace tessara
