#include "tessara/platform/ui/LibraryResources.h"

/// The files of this folder, embedded by the build.
std::span<const tessara::CFileResource> LibraryFiles();

namespace tessara {

const CResourceModule& LibraryResources() {
    static const CResourceModule s_module = {{}, LibraryFiles()};
    return s_module;
}

} // namespace tessara
