#include "tessara/platform/files/settings/KeyTable.h"

#include <utility>

namespace tessara {

CKeyTable& CKeyTable::Get() {
    static auto& s_table = *new CKeyTable; // static objects of programs may close keys at the very end
    return s_table;
}

HKEY CKeyTable::Add(OPENKEY key) {
    const std::lock_guard lock(m_mutex);
    m_nLast += 4; // an even number, as HKEY_CURRENT_USER's is not
    const auto hKey = reinterpret_cast<HKEY>(m_nLast);
    m_keys.emplace(hKey, std::move(key));
    return hKey;
}

bool CKeyTable::Remove(HKEY hKey) {
    const std::lock_guard lock(m_mutex);
    return m_keys.erase(hKey) > 0;
}

std::optional<OPENKEY> CKeyTable::Find(HKEY hKey) const {
    if (hKey == HKEY_CURRENT_USER) {
        return OPENKEY{{}, KEY_ALL_ACCESS};
    }
    const std::lock_guard lock(m_mutex);
    const auto key = m_keys.find(hKey);
    return key == m_keys.end() ? std::nullopt : std::optional(key->second);
}

} // namespace tessara
