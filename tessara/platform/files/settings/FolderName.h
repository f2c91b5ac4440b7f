#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessara::FolderName {

/// The name of the folder of a key: the same, but with %XX for what a folder's name cannot have or should not
/// (a slash, control characters, bytes that are not UTF-8, a dot in front, and the percent sign itself).
std::string From(std::string_view strKey);

/// The name of the key; nothing for a folder that From gives no key.
std::optional<std::string> Read(std::string_view strFolder);

} // namespace tessara::FolderName
