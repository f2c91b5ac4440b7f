#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/ui/resources/LibraryResources.h"

/// The dialogs of this folder, and its files as the build embeds them.
std::span<const tessara::CDialogTemplate> LibraryDialogs();
std::span<const tessara::CFileResource> LibraryFiles();
std::span<const tessara::CStringResource> LibraryStrings();

namespace {

// Before anything of the program's: tables that come later hide those that came before.
[[maybe_unused]] const bool STRINGS_ADDED = (tessara::AddStringResources(LibraryStrings()), true);

} // namespace

namespace tessara {

const CResourceModule& LibraryResources() {
    static const CResourceModule s_module = {LibraryDialogs(), LibraryFiles()};
    return s_module;
}

} // namespace tessara
