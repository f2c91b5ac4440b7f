#include "tessara/platform/ui/windows/WindowTable.h"

#include <algorithm>
#include <utility>

#include "tessara/platform/ui/windows/Wnd.h"

namespace tessara {

namespace {

constexpr int INDEX_BITS = 24;

/// A place of the table. Its generation grows with every window that leaves it.
struct CPlace {
    std::uint64_t nGeneration = 1;
    std::uint64_t nAge = 0; ///< orders windows by their making
    bool bUsed = false;
    CWindowRecord record;
    std::unique_ptr<CWnd> pKept;
};

struct CTable {
    std::vector<CPlace> places;
    std::vector<std::size_t> free;
    std::uint64_t nMade = 0;
    std::uint64_t nEnds = 0;
};

CTable& Table() {
    static auto* const s_pTable = new CTable;
    return *s_pTable;
}

HWND ToHandle(std::size_t nPlace) {
    const std::uint64_t nBits = Table().places[nPlace].nGeneration << INDEX_BITS | nPlace;
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(nBits));
}

/// The place of a handle whose window exists, or null. The caller holds the lock.
CPlace* PlaceOf(HWND hWnd) {
    const auto nBits = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(hWnd));
    const auto nPlace = static_cast<std::size_t>(nBits & ((1U << INDEX_BITS) - 1));
    auto& places = Table().places;
    if (nPlace >= places.size() || !places[nPlace].bUsed ||
        places[nPlace].nGeneration != nBits >> INDEX_BITS) {
        return nullptr;
    }
    return &places[nPlace];
}

/// The handles of the records that satisfy a condition, oldest first.
template <class CONDITION>
std::vector<HWND> Select(CONDITION fnCondition) {
    const std::lock_guard lock(SharedLock());
    std::vector<std::size_t> found;
    const auto& places = Table().places;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i].bUsed && fnCondition(places[i].record)) {
            found.push_back(i);
        }
    }
    std::sort(found.begin(), found.end(),
              [&](std::size_t a, std::size_t b) { return places[a].nAge < places[b].nAge; });
    std::vector<HWND> handles(found.size());
    std::transform(found.begin(), found.end(), handles.begin(), ToHandle);
    return handles;
}

/// Whether a window may be made so. The caller holds the lock.
bool MayBeMade(const CWindowRecord& record) {
    const CPlace* const pParent = PlaceOf(record.hParent);
    const bool bNeedsParent = record.hParent || (record.dwStyle & WS_CHILD);
    return record.pOwner->TakesWindows() && (!bNeedsParent || (pParent && !pParent->record.bTakenAway));
}

} // namespace

void SetObject(CWindowRecord& record, CWnd* pWnd, const AFX_MSGMAP* pMap) {
    record.pWnd = pWnd;
    record.bPaints = HasHandler(pMap, {WM_PAINT, 0, 0});
    record.bColors = HasHandler(pMap, {WM_CTLCOLOR, 0, 0});
}

HWND AddWindow(const CWindowRecord& record) {
    const std::lock_guard lock(SharedLock());
    if (!MayBeMade(record)) {
        return nullptr;
    }
    CTable& table = Table();
    if (table.free.empty()) {
        table.free.push_back(table.places.size());
        table.places.emplace_back();
    }
    const std::size_t nPlace = table.free.back();
    table.free.pop_back();
    CPlace& place = table.places[nPlace];
    place.bUsed = true;
    place.nAge = table.nMade++;
    place.record = record;
    return ToHandle(nPlace);
}

std::optional<CWindowRecord> FindWindow(HWND hWnd) {
    const std::lock_guard lock(SharedLock());
    const CPlace* pPlace = PlaceOf(hWnd);
    return pPlace ? std::optional(pPlace->record) : std::nullopt;
}

bool ChangeWindow(HWND hWnd, const std::function<void(CWindowRecord&)>& fnChange) {
    const std::lock_guard lock(SharedLock());
    CPlace* pPlace = PlaceOf(hWnd);
    if (pPlace) {
        fnChange(pPlace->record);
    }
    return pPlace != nullptr;
}

std::unique_ptr<CWnd> RemoveWindow(HWND hWnd) {
    const std::lock_guard lock(SharedLock());
    CPlace* pPlace = PlaceOf(hWnd);
    if (!pPlace) {
        return nullptr;
    }
    pPlace->record = {};
    pPlace->bUsed = false;
    ++pPlace->nGeneration;
    Table().free.push_back(static_cast<std::size_t>(pPlace - Table().places.data()));
    return std::move(pPlace->pKept);
}

std::vector<HWND> ChildrenOf(HWND hWnd) {
    return Select([hWnd](const CWindowRecord& record) { return record.hParent == hWnd && hWnd; });
}

std::vector<HWND> OwnedBy(HWND hWnd) {
    return Select([hWnd](const CWindowRecord& record) {
        return record.hParent == hWnd && hWnd && !(record.dwStyle & WS_CHILD);
    });
}

std::vector<HWND> WindowsOf(const CMailbox& owner) {
    return Select([&](const CWindowRecord& record) {
        const CPlace* const pParent = PlaceOf(record.hParent);
        return record.pOwner.get() == &owner && !(pParent && pParent->record.pOwner.get() == &owner);
    });
}

HWND TopLevelOf(HWND hWnd) {
    const std::lock_guard lock(SharedLock());
    const CPlace* pPlace = PlaceOf(hWnd);
    while (pPlace && (pPlace->record.dwStyle & WS_CHILD)) {
        hWnd = pPlace->record.hParent;
        pPlace = PlaceOf(hWnd);
    }
    return pPlace ? hWnd : nullptr;
}

std::uint64_t NewWindowEnd() {
    const std::lock_guard lock(SharedLock());
    return ++Table().nEnds;
}

bool BeginWindowEnd(HWND hWnd, std::uint64_t nEnd) {
    const std::lock_guard lock(SharedLock());
    CPlace* const pPlace = PlaceOf(hWnd);
    if (!pPlace || pPlace->record.nEnd) {
        return false;
    }
    pPlace->record.nEnd = nEnd;
    return true;
}

bool BeginTakingAway(HWND hWnd, std::uint64_t nEnd) {
    const std::lock_guard lock(SharedLock());
    CPlace* const pPlace = PlaceOf(hWnd);
    return pPlace && pPlace->record.nEnd == nEnd && !std::exchange(pPlace->record.bTakenAway, true);
}

bool AttachPeer(HWND hWnd, CPeer* pPeer) {
    const std::lock_guard lock(SharedLock());
    CPlace* const pPlace = PlaceOf(hWnd);
    if (!pPlace || pPlace->record.bTakenAway) {
        return false;
    }
    pPlace->record.pPeer = pPeer;
    return true;
}

void GiveWindowsTo(const CMailbox& ended, const std::shared_ptr<CMailbox>& pHeir) {
    const std::lock_guard lock(SharedLock());
    for (CPlace& place : Table().places) {
        if (place.record.pOwner.get() == &ended) {
            place.record.pOwner = pHeir;
        }
    }
}

std::size_t CountWindows() {
    const std::lock_guard lock(SharedLock());
    return Table().places.size() - Table().free.size();
}

void GiveBackWindow(HWND hWnd) {
    const std::lock_guard lock(SharedLock());
    if (CPlace* const pPlace = PlaceOf(hWnd)) {
        pPlace->record.pWnd = pPlace->pKept.get();
    }
}

bool HasOwnObject(HWND hWnd) {
    const std::lock_guard lock(SharedLock());
    const CPlace* pPlace = PlaceOf(hWnd);
    return pPlace && pPlace->record.pWnd && pPlace->record.pWnd != pPlace->pKept.get();
}

CWnd* KeepForWindow(HWND hWnd, std::unique_ptr<CWnd> pWnd) {
    const std::lock_guard lock(SharedLock());
    CPlace* pPlace = PlaceOf(hWnd);
    if (!pPlace) {
        return nullptr;
    }
    pPlace->pKept = std::move(pWnd);
    return pPlace->pKept.get();
}

} // namespace tessara
