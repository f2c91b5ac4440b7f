#include "tessara/document/FileStamp.h"

#include <sys/stat.h>

namespace tessara {

namespace {

CFileStamp StampOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

} // namespace

std::optional<CFileStamp> CFileStamp::Of(int nDescriptor) {
    struct stat status;
    return fstat(nDescriptor, &status) == 0 ? std::optional(StampOf(status)) : std::nullopt;
}

std::optional<CFileStamp> CFileStamp::At(const char* pszPath) {
    struct stat status;
    return stat(pszPath, &status) == 0 ? std::optional(StampOf(status)) : std::nullopt;
}

} // namespace tessara
