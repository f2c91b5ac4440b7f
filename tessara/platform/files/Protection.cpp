#include "tessara/platform/files/Protection.h"

#include <cerrno>
#include <optional>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace tessara {

namespace {

constexpr const char* ACCESS_LIST = "system.posix_acl_access";
constexpr std::size_t MAX_LIST_BYTES = 65536; ///< of any extended attribute
constexpr mode_t PERMISSIONS = 0777;

/// For a file of another group: who was in the old one is anybody now, and the new one may have been anybody.
mode_t ForAnyGroup(mode_t nMode) {
    const mode_t nBoth = (nMode >> 3) & nMode & S_IRWXO;
    return (nMode & S_IRWXU) | nBoth << 3 | nBoth;
}

/// The access control list of a file, empty for none; nothing where it cannot be read.
std::optional<std::vector<char>> ListOf(const char* pszPath) {
    std::vector<char> list(MAX_LIST_BYTES);
    const ssize_t nLength = lgetxattr(pszPath, ACCESS_LIST, list.data(), list.size());
    if (nLength < 0 && errno != ENODATA && errno != EOPNOTSUPP) {
        return std::nullopt;
    }
    list.resize(nLength < 0 ? 0 : static_cast<std::size_t>(nLength));
    return list;
}

bool SetList(int nTo, const std::vector<char>& list) {
    if (!list.empty()) {
        return fsetxattr(nTo, ACCESS_LIST, list.data(), list.size(), 0) == 0;
    }
    // A new file may have one from its folder.
    return fremovexattr(nTo, ACCESS_LIST) == 0 || errno == ENODATA || errno == EOPNOTSUPP;
}

/// Returns whether the file has the group then.
bool CopyOwner(const struct stat& from, int nTo) {
    struct stat to;
    if (fstat(nTo, &to) == 0 && to.st_uid == from.st_uid && to.st_gid == from.st_gid) {
        return true;
    }
    return fchown(nTo, from.st_uid, from.st_gid) == 0 ||
           fchown(nTo, static_cast<uid_t>(-1), from.st_gid) == 0;
}

/// The permissions that the new file can have, once it has got what else it can.
mode_t CopyAllButMode(const char* pszFrom, const struct stat& from, int nTo) {
    const bool bGroup = CopyOwner(from, nTo);
    const auto list = ListOf(pszFrom);
    if (list && (bGroup || list->empty()) && SetList(nTo, *list)) {
        const mode_t nMode = from.st_mode & PERMISSIONS;
        return bGroup ? nMode : ForAnyGroup(nMode);
    }
    SetList(nTo, {});
    return from.st_mode & S_IRWXU;
}

} // namespace

int CopyProtection(const char* pszFrom, const struct stat& from, int nTo) {
    // A file system without permissions refuses to change them.
    const bool bDone =
        fchmod(nTo, CopyAllButMode(pszFrom, from, nTo)) == 0 || errno == EPERM || errno == EOPNOTSUPP;
    return bDone ? 0 : errno;
}

} // namespace tessara
