#pragma once

#include <sys/stat.h>

namespace tessara {

/// Gives an open new file the owner, group, permissions and access control list of another, as far as the
/// process may. Where the group cannot be kept, group and others are allowed what both were; where the list
/// cannot, the owner alone: so the new owner apart nobody can read the new file who could not read the old
/// one. Setuid, setgid and other extended attributes are left behind. Returns 0, or an error number.
int CopyProtection(const char* pszFrom, const struct stat& from, int nTo);

} // namespace tessara
