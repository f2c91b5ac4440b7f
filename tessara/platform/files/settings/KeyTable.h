#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "tessara/platform/files/settings/Registry.h"

namespace tessara {

struct OPENKEY {
    std::string strPath;
    DWORD nRights;
};

/// The open keys of the process. Handles are numbers that are not used again. Any thread.
class CKeyTable {
public:
    static CKeyTable& Get();

    HKEY Add(OPENKEY key);
    bool Remove(HKEY hKey);
    /// The key of a handle, HKEY_CURRENT_USER's too; nothing for what is no handle.
    std::optional<OPENKEY> Find(HKEY hKey) const;

private:
    mutable std::mutex m_mutex;
    std::map<HKEY, OPENKEY> m_keys;
    std::uintptr_t m_nLast = 0;
};

} // namespace tessara
