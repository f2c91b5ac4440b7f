#pragma once

#include <string>

namespace tessara {

/// Where the program keeps its archive of Bases, with a slash at the end: the folder "Archive" beside its
/// executable, if that is there or can be made; otherwise, as for a program that was installed, below the
/// user's data folder ($XDG_DATA_HOME or ~/.local/share), in the program's own. The folder need not be there.
std::string ArchiveDirectory();

} // namespace tessara
