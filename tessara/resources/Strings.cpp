#include "tessara/platform/base/StringResources.h"

// The library's texts that are string resources. A program hides one by a text of its own under that number.

namespace {

constexpr tessara::CStringResource STRINGS[] = {
    {16384, "You did not save current Base Variant to archive. Save it ?"},
    {16390, "The program is aborting the calculations now. Please wait."},
    {16391, "You have to specify the monomer name.\nPlease try again."},
    {16392, "You have to specify the monomer abbreviation.\nPlease try again."},
    {16393, "First you have to select the abbreviation from the list.\nPlease try again."},
    {16394, "Are you sure you want to delete the abbreviation ?"},
};

} // namespace

std::span<const tessara::CStringResource> LibraryStrings();
std::span<const tessara::CStringResource> LibraryStrings() {
    return STRINGS;
}
