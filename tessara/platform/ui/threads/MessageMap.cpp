#include "tessara/platform/ui/threads/MessageMap.h"

#include "tessara/platform/ui/threads/CmdTarget.h"
#include "tessara/platform/ui/windows/Wnd.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

namespace tessara {

namespace {

bool Matches(const AFX_MSGMAP_ENTRY& entry, const CMapQuery& query) {
    return entry.nMessage == query.nMessage && entry.nCode == query.nCode && query.nID >= entry.nID &&
           query.nID <= entry.nLastID;
}

/// The entries that match, those of derived classes first, until the function returns true.
template <class FUNCTION>
bool AnyMatch(const AFX_MSGMAP* pMap, const CMapQuery& query, FUNCTION fnMatch) {
    for (; pMap; pMap = pMap->pfnGetBaseMap ? pMap->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* pEntry = pMap->pEntries; pEntry->pfnInvoke; ++pEntry) {
            if (Matches(*pEntry, query) && fnMatch(*pEntry)) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

BOOL DispatchThroughMap(CCmdTarget& target, const AFX_MSGMAP* pMap, const CMapQuery& query,
                        AFX_MESSAGE& message) {
    return AnyMatch(pMap, query,
                    [&](const AFX_MSGMAP_ENTRY& entry) { return entry.pfnInvoke(target, message) != 0; });
}

bool HasHandler(const AFX_MSGMAP* pMap, const CMapQuery& query) {
    return AnyMatch(pMap, query, [](const AFX_MSGMAP_ENTRY&) { return true; });
}

namespace unpack {

CWnd* ToWindow(std::uintptr_t nHandle) {
    return CWnd::FromHandle(reinterpret_cast<HWND>(nHandle));
}

} // namespace unpack

} // namespace tessara

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY s_entries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP s_map = {nullptr, s_entries};
    return &s_map;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, UINT nCode, void* pExtra) {
    const tessara::CMapQuery query{WM_COMMAND, nCode, nID};
    if (nCode == CN_COMMAND && pExtra) {
        return tessara::HasHandler(GetMessageMap(), query);
    }
    AFX_MESSAGE message{nID, 0, pExtra, 0};
    return tessara::DispatchThroughMap(*this, GetMessageMap(), query, message);
}
