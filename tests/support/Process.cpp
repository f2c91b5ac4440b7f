#include "tests/support/Process.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/Folder.h"
#include "tests/support/PlainUser.h"

namespace {

constexpr unsigned MAX_SECONDS = 300; ///< then a program hangs, and a signal ends it

void Redirect(const std::string& strPath, int nTarget) {
    const int nFile = open(strPath.c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(nFile, nTarget);
    close(nFile);
}

[[noreturn]] void Become(const PROCESSSTART& start) {
    for (const auto& [strName, value] : start.environment) {
        value ? setenv(strName.c_str(), value->c_str(), 1) : unsetenv(strName.c_str());
    }
    std::vector<char*> argv;
    for (const std::string& strArgument : start.command) {
        argv.push_back(const_cast<char*>(strArgument.c_str()));
    }
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
}

} // namespace

PROCESSRESULT RunProcess(const PROCESSSTART& start) {
    const CFolder folder;
    const pid_t nChild = fork();
    if (nChild == 0) {
        Redirect(folder.Path("output"), STDOUT_FILENO);
        Redirect(folder.Path("errors"), STDERR_FILENO);
        if (start.nMaxFileBytes > 0) {
            const rlimit limit = {start.nMaxFileBytes, start.nMaxFileBytes};
            setrlimit(RLIMIT_FSIZE, &limit);
        }
        if (start.bPlainUser) {
            BecomePlainUser();
        }
        alarm(MAX_SECONDS);
        Become(start);
    }
    int nStatus = 0;
    waitpid(nChild, &nStatus, 0);
    return {WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1, folder.Read("output"), folder.Read("errors")};
}
