#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tessara/platform/files/settings/IniText.h"

namespace tessara {

/// A value of a settings file: bytes, or a number of 32 bits.
using SETTING = std::variant<std::string, std::uint32_t>;

/// The bytes of a settings file as a tree of keys with values; docs/settings.md describes them.
///
/// A key is a path of names with backslashes between them, "" the root of the file. A name has 1 to 255
/// bytes, any but backslash, and a path at most 512 names; names of values may be empty and have any bytes.
/// Whatever is not touched stays byte for byte (CIniText). REQUIRES: IsPath of every path that is given.
class CSettingsText {
public:
    /// The bytes live longer than the object.
    explicit CSettingsText(std::string& strBytes);

    static bool IsPath(std::string_view strPath);

    std::optional<SETTING> Read(std::string_view strKey, std::string_view strName) const;
    void Write(std::string_view strKey, std::string_view strName, const SETTING& value);
    /// Returns whether there was such a value.
    bool Remove(std::string_view strKey, std::string_view strName) { return m_text.Remove(strKey, strName); }

    /// Whether the file has the key, or one below it.
    bool HasKey(std::string_view strKey) const;
    void AddKey(std::string_view strKey);
    /// Removes a key's values and the key, but not those below it. The key above it stays.
    void RemoveKey(std::string_view strKey);

    /// The names of the keys right below a key, each once, in the file's order.
    std::vector<std::string> Subkeys(std::string_view strKey) const;
    std::vector<std::string> ValueNames(std::string_view strKey) const { return m_text.Entries(strKey); }

private:
    CIniText m_text;
};

} // namespace tessara
