#include "tessara/platform/base/StringResources.h"

// The library's texts that are string resources. A program hides one by a text of its own under that number.

namespace {

constexpr tessara::CStringResource STRINGS[] = {
    {16384, "You did not save current Base Variant to archive. Save it ?"},
};

} // namespace

std::span<const tessara::CStringResource> LibraryStrings();
std::span<const tessara::CStringResource> LibraryStrings() {
    return STRINGS;
}
