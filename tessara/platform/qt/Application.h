#pragma once

namespace tessara {

/// Makes sure that the process has a Qt application object, which fonts and painting need. Where the program
/// has made none, one is made that lives until the process ends; without a display it uses the offscreen
/// platform. Call from the main thread.
void EnsureApplication();

/// The same with the program's arguments: Qt takes its own options out of them. The arguments live as long as the
/// program.
void StartApplication(int& nArguments, char** ppszArguments);

} // namespace tessara
