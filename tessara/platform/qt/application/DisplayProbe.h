#pragma once

#include <chrono>

namespace tessara {

/// Whether the X server that DISPLAY names can only be reached over a network, where an answer may never
/// come.
bool IsDisplayRemote();

/// Whether that server answers within the time. Where it does not, one thread goes on waiting for it.
bool DisplayAnswers(std::chrono::milliseconds limit);

} // namespace tessara
