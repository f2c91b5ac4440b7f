#pragma once

#include "cli/DiagramFile.h"
#include "cli/JsonSlot.h"

namespace tessara {

/// Takes a whole diagram file. The diagram must outlive the slot.
JSONSLOT MakeDiagramSlot(DIAGRAM& diagram);

/// Takes any object that says that it is a diagram file of a version that can be read.
JSONSLOT MakeHeaderSlot();

} // namespace tessara
