#include "tests/support/PlainUser.h"

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

void BecomePlainUser() {
    // What is no longer in the bounding set does not come back when root executes a program.
    for (unsigned long nPower = 0; nPower <= CAP_LAST_CAP; ++nPower) {
        prctl(PR_CAPBSET_DROP, nPower);
    }
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct none[2] = {};
    syscall(SYS_capset, &header, none);
}

std::string AsPlainUser(const std::function<std::string()>& action) {
    int ends[2];
    if (pipe(ends) != 0) {
        return "no pipe";
    }
    const pid_t nChild = fork();
    if (nChild == 0) {
        BecomePlainUser();
        const std::string strSaid = action();
        _exit(write(ends[1], strSaid.data(), strSaid.size()) < 0);
    }
    close(ends[1]);
    std::string strSaid;
    char bytes[512];
    for (ssize_t nRead; (nRead = read(ends[0], bytes, sizeof(bytes))) > 0;) {
        strSaid.append(bytes, static_cast<std::size_t>(nRead));
    }
    close(ends[0]);
    waitpid(nChild, nullptr, 0);
    return strSaid;
}
