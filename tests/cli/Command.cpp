#include "tests/cli/Command.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/Folder.h"
#include "tests/support/PlainUser.h"

namespace {

void Redirect(const std::string& strPath, int nTarget) {
    const int nFile = open(strPath.c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(nFile, nTarget);
    close(nFile);
}

[[noreturn]] void Become(const std::vector<std::string>& arguments) {
    std::vector<char*> argv = {const_cast<char*>(TESSARA_COMMAND)};
    for (const std::string& strArgument : arguments) {
        argv.push_back(const_cast<char*>(strArgument.c_str()));
    }
    argv.push_back(nullptr);
    for (const char* pszVariable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"}) {
        unsetenv(pszVariable);
    }
    execv(TESSARA_COMMAND, argv.data());
    _exit(127);
}

} // namespace

COMMANDRESULT RunCommand(const std::vector<std::string>& arguments, unsigned nMaxFileBytes) {
    const CFolder folder;
    const pid_t nChild = fork();
    if (nChild == 0) {
        Redirect(folder.Path("output"), STDOUT_FILENO);
        Redirect(folder.Path("errors"), STDERR_FILENO);
        if (nMaxFileBytes > 0) {
            const rlimit limit = {nMaxFileBytes, nMaxFileBytes};
            setrlimit(RLIMIT_FSIZE, &limit);
        }
        BecomePlainUser();
        Become(arguments);
    }
    int nStatus = 0;
    waitpid(nChild, &nStatus, 0);
    return {WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1, folder.Read("output"), folder.Read("errors")};
}
