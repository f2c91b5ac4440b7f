#include "tessara/platform/ui/resources/MenuResources.h"

#include <algorithm>
#include <vector>

namespace tessara {

namespace {

template <class RESOURCE>
std::vector<std::span<const RESOURCE>>& Tables() {
    static std::vector<std::span<const RESOURCE>> s_tables;
    return s_tables;
}

template <class RESOURCE>
const RESOURCE* Find(UINT nID) {
    const auto& tables = Tables<RESOURCE>();
    for (auto it = tables.rbegin(); it != tables.rend(); ++it) {
        const auto itEntry =
            std::find_if(it->begin(), it->end(), [nID](const RESOURCE& entry) { return entry.nID == nID; });
        if (itEntry != it->end()) {
            return &*itEntry;
        }
    }
    return nullptr;
}

} // namespace

void AddMenuResources(std::span<const CMenuResource> table) {
    Tables<CMenuResource>().push_back(table);
}

void AddAcceleratorResources(std::span<const CAcceleratorResource> table) {
    Tables<CAcceleratorResource>().push_back(table);
}

void AddToolBarResources(std::span<const CToolBarResource> table) {
    Tables<CToolBarResource>().push_back(table);
}

const CMenuResource* FindMenuResource(UINT nID) {
    return Find<CMenuResource>(nID);
}

const CAcceleratorResource* FindAcceleratorResource(UINT nID) {
    return Find<CAcceleratorResource>(nID);
}

const CToolBarResource* FindToolBarResource(UINT nID) {
    return Find<CToolBarResource>(nID);
}

} // namespace tessara
