#pragma once

#include <dirent.h>
#include <fcntl.h>
#include <memory>

#include "tessara/platform/files/Descriptor.h"

namespace tessara {

struct CFolderCloser {
    void operator()(DIR* pFolder) const { closedir(pFolder); }
};
using CFolderPtr = std::unique_ptr<DIR, CFolderCloser>;

/// The entries of an open folder from the first on, to be read with readdir; null when it cannot be listed.
inline CFolderPtr EntriesOf(int nFolder) {
    CDescriptor descriptor(
        Uninterrupted([&] { return openat(nFolder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    CFolderPtr pFolder(descriptor ? fdopendir(descriptor.Get()) : nullptr);
    if (pFolder) {
        descriptor.Release();
    }
    return pFolder;
}

} // namespace tessara
