#include "tests/cli/Command.h"

COMMANDRESULT RunCommand(const std::vector<std::string>& arguments, unsigned nMaxFileBytes) {
    PROCESSSTART start{{TESSARA_COMMAND}, {}, nMaxFileBytes, true};
    start.command.insert(start.command.end(), arguments.begin(), arguments.end());
    for (const char* pszVariable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"}) {
        start.environment[pszVariable] = std::nullopt;
    }
    return RunProcess(start);
}
