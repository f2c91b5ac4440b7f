#include "tessara/platform/base/StringResources.h"

#include <algorithm>
#include <vector>

#include "tessara/platform/base/Exception.h"

namespace tessara {

namespace {

std::vector<std::span<const CStringResource>>& Tables() {
    static std::vector<std::span<const CStringResource>> s_tables;
    return s_tables;
}

} // namespace

void AddStringResources(std::span<const CStringResource> table) {
    WithMemoryException([&] { Tables().push_back(table); });
}

const char* FindStringResource(UINT nID) {
    const auto& tables = Tables();
    for (auto itTable = tables.rbegin(); itTable != tables.rend(); ++itTable) {
        const auto itEntry = std::find_if(itTable->begin(), itTable->end(),
                                          [nID](const CStringResource& entry) { return entry.nID == nID; });
        if (itEntry != itTable->end()) {
            return itEntry->pszText;
        }
    }
    return nullptr;
}

} // namespace tessara
