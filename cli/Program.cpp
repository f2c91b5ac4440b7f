#include "cli/Program.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "cli/EndSignals.h"
#include "cli/InputError.h"

namespace tessara {

void Complain(const char* pszProgram, const char* pszMessage) {
    std::fprintf(stderr, "%s: %s\n", pszProgram, OneLine(pszMessage).c_str());
}

int RunProgram(const char* pszProgram, const std::function<int()>& fnRun) {
    // Pictures need no display, whatever the environment says, and Qt's advice about it is no message of
    // ours.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_LOGGING_RULES", "*.warning=false", 0);
    std::signal(SIGXFSZ, SIG_IGN); // a limit of file sizes is an error like a full disk
    RemoveUnfinishedOnEndSignals();
    try {
        return fnRun();
    } catch (const std::bad_alloc&) {
        Complain(pszProgram, "out of memory");
    } catch (const std::exception& error) {
        Complain(pszProgram, error.what());
    }
    return EXIT_BAD_INPUT;
}

} // namespace tessara
