#include "tessara/platform/ui/resources/LibraryResources.h"

/// The dialogs of this folder, and its files as the build embeds them.
std::span<const tessara::CDialogTemplate> LibraryDialogs();
std::span<const tessara::CFileResource> LibraryFiles();

namespace tessara {

const CResourceModule& LibraryResources() {
    static const CResourceModule s_module = {LibraryDialogs(), LibraryFiles()};
    return s_module;
}

} // namespace tessara
