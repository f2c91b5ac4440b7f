#pragma once

#include <functional>

namespace flory {

/// Called between the rows of a long calculation with the rows done and all rows; false aborts it. Empty: no
/// one is asked.
using CRowProgress = std::function<bool(int nDone, int nRows)>;

} // namespace flory
