#include "tests/host/Programs.h"

#include <sstream>

PROCESSRESULT CPrograms::Run(const std::vector<std::string>& command, const VARIABLES& environment) const {
    VARIABLES all = environment;
    for (const char* pszVariable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_LOGGING_RULES",
                                    "XDG_RUNTIME_DIR", "XDG_SESSION_TYPE", "XAUTHORITY", "LC_ALL", "LANG"}) {
        all.try_emplace(pszVariable, std::nullopt);
    }
    all["TMPDIR"] = m_temporary.Path("");
    return RunProcess({command, all});
}

std::string CPrograms::Host(const std::string& strActions, const VARIABLES& environment) const {
    std::vector<std::string> command = {TESSARA_HOST_PROGRAM};
    std::istringstream text(strActions);
    for (std::string strAction; text >> strAction;) {
        command.push_back(strAction);
    }
    const PROCESSRESULT result = Run(command, environment);
    return (result.nExitCode == 0 ? "" : "(failed) ") + result.strOutput + result.strErrors;
}
