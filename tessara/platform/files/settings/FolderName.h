#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessara {

/// The name of the folder of a key: the same, but with %XX for what a folder's name cannot have or should not
/// (a slash, control characters, bytes that are not UTF-8, a dot in front, and the percent sign itself).
std::string FolderNameOf(std::string_view strKey);

/// The name of the key; nothing for a folder that FolderNameOf gives no key.
std::optional<std::string> KeyOfFolder(std::string_view strFolder);

} // namespace tessara
