#pragma once

#include <vector>

namespace tessara {

/// What a caller needs of the process's Qt application object; each needs what is before it, too.
enum class ENeed {
    events,  ///< an event loop
    drawing, ///< fonts
    desktop, ///< the display that the environment names, if it names one
    windows  ///< widgets
};

/// Makes sure that the process has a Qt application object that gives what is needed. Where the program has
/// made none, one is made that lives until the process ends; where no display can be reached it uses the
/// offscreen platform. The process's locale, environment and message handler are as before. Throws
/// CGraphicsException.
void EnsureApplication(ENeed eNeed = ENeed::drawing);

/// The same for windows, with the program's arguments, which live as long as the program. Returns those that
/// Qt does not take for its own, the program's name first.
std::vector<char*> StartApplication(std::vector<char*> arguments);

} // namespace tessara
