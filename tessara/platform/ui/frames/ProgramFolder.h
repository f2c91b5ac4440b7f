#pragma once

#include <string>

// Where a program keeps files of its own: beside its executable or, as one that was installed cannot, below
// the user's data folder. Folders have a slash at their end and need not be there.

namespace tessara {

std::string FolderOfExecutable();
/// The program's own folder below $XDG_DATA_HOME or ~/.local/share.
std::string UserDataFolder();
/// Whether files can be made and replaced in a folder.
bool CanWriteIn(const std::string& strFolder);

} // namespace tessara
