#pragma once

#include <span>

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

namespace tessara {

/// One entry of a string table: a number and a text, which live as long as the program.
struct CStringResource {
    UINT nID;
    const char* pszText;
};

/// Adds a string table to the chain that look-ups go through; a later table hides entries of the same number
/// in earlier ones. The table must live as long as the program. Main thread.
TESSARA_API void AddStringResources(std::span<const CStringResource> table);

/// The text of a string resource, or null when no table has it.
TESSARA_API const char* FindStringResource(UINT nID);

} // namespace tessara
