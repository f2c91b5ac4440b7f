#pragma once

namespace tessara {

/// Makes sure that the process has a Qt application object, which fonts and painting need. Where the program
/// has made none, one is made that lives until the process ends; without a display it uses the offscreen
/// platform. Call from the main thread.
void EnsureApplication();

} // namespace tessara
