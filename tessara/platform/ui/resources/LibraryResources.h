#pragma once

#include "tessara/platform/ui/resources/Resources.h"

namespace tessara {

/// What the library itself brings. Written in tessara/resources.
const CResourceModule& LibraryResources();

} // namespace tessara
