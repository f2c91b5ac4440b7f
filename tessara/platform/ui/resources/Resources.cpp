#include "tessara/platform/ui/resources/Resources.h"

#include <algorithm>
#include <vector>

#include "tessara/platform/ui/resources/LibraryResources.h"

namespace tessara {

namespace {

std::vector<CResourceModule>& Modules() {
    static std::vector<CResourceModule> s_modules = {LibraryResources()};
    return s_modules;
}

/// The first entry of the newest module that satisfies a condition, or null.
template <class ENTRY, class CONDITION>
const ENTRY* FindNewest(std::span<const ENTRY> CResourceModule::*pTable, CONDITION fnCondition) {
    const auto& modules = Modules();
    for (auto itModule = modules.rbegin(); itModule != modules.rend(); ++itModule) {
        const std::span<const ENTRY> table = (*itModule).*pTable;
        const auto itEntry = std::find_if(table.begin(), table.end(), fnCondition);
        if (itEntry != table.end()) {
            return &*itEntry;
        }
    }
    return nullptr;
}

} // namespace

void AddResources(const CResourceModule& module) {
    Modules().push_back(module);
}

const CDialogTemplate* FindDialogTemplate(UINT nID) {
    return FindNewest(&CResourceModule::dialogs,
                      [nID](const CDialogTemplate& entry) { return entry.nID == nID; });
}

const CFileResource* FindFileResource(EFileResource eKind, UINT nID) {
    return FindNewest(&CResourceModule::files,
                      [=](const CFileResource& entry) { return entry.eKind == eKind && entry.nID == nID; });
}

} // namespace tessara
