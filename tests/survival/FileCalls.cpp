#include "tests/survival/FileCalls.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include "tessara/platform/files/Descriptor.h"

using tessara::CDescriptor;
using tessara::Uninterrupted;

namespace {

/// Where a call names its file: by a path, by a descriptor, or by the descriptor of a folder and a path in
/// it.
enum class ENaming { path, descriptor, folder };

struct CWatchedCall {
    long nNumber;
    const char* pszName;
    ENaming eNaming;
};

#define CALL(name, naming) {SYS_##name, #name, ENaming::naming},

constexpr CWatchedCall CALLS[] = {
    // clang-format off
    CALL(openat, folder) CALL(newfstatat, folder) CALL(statx, folder) CALL(faccessat, folder)
    CALL(faccessat2, folder) CALL(readlinkat, folder) CALL(mkdirat, folder) CALL(unlinkat, folder)
    CALL(renameat, folder) CALL(renameat2, folder) CALL(linkat, folder) CALL(fchmodat, folder)
    CALL(fchownat, folder) CALL(utimensat, folder) CALL(symlinkat, folder)
    CALL(read, descriptor) CALL(pread64, descriptor) CALL(write, descriptor) CALL(pwrite64, descriptor)
    CALL(writev, descriptor) CALL(lseek, descriptor) CALL(fstat, descriptor) CALL(close, descriptor)
    CALL(fsync, descriptor) CALL(fdatasync, descriptor) CALL(syncfs, descriptor) CALL(flock, descriptor)
    CALL(ftruncate, descriptor) CALL(fallocate, descriptor) CALL(fchmod, descriptor) CALL(fchown, descriptor)
    CALL(getdents64, descriptor) CALL(fsetxattr, descriptor) CALL(fgetxattr, descriptor)
    CALL(fremovexattr, descriptor) CALL(copy_file_range, descriptor) CALL(sendfile, descriptor)
    CALL(truncate, path) CALL(getxattr, path) CALL(lgetxattr, path)
#ifdef SYS_open // the older calls, which newer machines lack
    CALL(open, path) CALL(creat, path) CALL(stat, path) CALL(lstat, path) CALL(access, path)
    CALL(readlink, path) CALL(mkdir, path) CALL(unlink, path) CALL(rmdir, path) CALL(rename, path)
    CALL(link, path) CALL(chmod, path) CALL(chown, path) CALL(lchown, path)
#endif
    // clang-format on
};

#undef CALL

[[noreturn]] void Fail(const char* pszWhat) {
    throw std::system_error(errno, std::generic_category(), pszWhat);
}

/// From now on the calls of this process wait for who reads the descriptor; below 0 where that is refused.
int BeginToAsk() {
    constexpr std::size_t COUNT = std::size(CALLS);
    std::vector<sock_filter> filter{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offsetof(seccomp_data, nr)))};
    for (std::size_t i = 0; i < COUNT; ++i) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(CALLS[i].nNumber),
                                  static_cast<std::uint8_t>(COUNT - i), 0));
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    sock_fprog program = {static_cast<unsigned short>(filter.size()), filter.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    return static_cast<int>(
        syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &program));
}

/// Keeps this process and those that it starts on one processor: each call then costs a fourth of the time.
class COneProcessor {
public:
    COneProcessor() {
        sched_getaffinity(0, sizeof m_old, &m_old);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(static_cast<std::size_t>(sched_getcpu()), &one);
        sched_setaffinity(0, sizeof one, &one);
    }
    ~COneProcessor() { sched_setaffinity(0, sizeof m_old, &m_old); }
    COneProcessor(const COneProcessor&) = delete;
    COneProcessor& operator=(const COneProcessor&) = delete;

private:
    cpu_set_t m_old;
};

/// The message that hands a descriptor to another process.
struct CDescriptorMessage {
    CDescriptorMessage() {
        message.msg_iov = &bytes;
        message.msg_iovlen = 1;
        message.msg_control = control;
        message.msg_controllen = sizeof control;
    }
    char byte = 0;
    iovec bytes{&byte, 1};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
    msghdr message{};
};

void SendDescriptor(int nSocket, int nDescriptor) {
    CDescriptorMessage to;
    if (nDescriptor >= 0) {
        cmsghdr* const pHeader = CMSG_FIRSTHDR(&to.message);
        *pHeader = {CMSG_LEN(sizeof(int)), SOL_SOCKET, SCM_RIGHTS};
        std::memcpy(CMSG_DATA(pHeader), &nDescriptor, sizeof(int));
    } else {
        to.message.msg_controllen = 0;
        to.byte = static_cast<char>(errno);
    }
    sendmsg(nSocket, &to.message, 0);
}

CDescriptor ReceiveDescriptor(int nSocket) {
    CDescriptorMessage from;
    if (recvmsg(nSocket, &from.message, MSG_CMSG_CLOEXEC) <= 0) {
        Fail("the watched process did not begin");
    }
    const cmsghdr* const pHeader = CMSG_FIRSTHDR(&from.message);
    if (!pHeader) {
        errno = from.byte;
        Fail("this machine does not let a process watch another's system calls");
    }
    int nDescriptor = -1;
    std::memcpy(&nDescriptor, CMSG_DATA(pHeader), sizeof(int));
    return CDescriptor(nDescriptor);
}

std::string LinkText(const std::string& strLink) {
    char text[PATH_MAX];
    const ssize_t nLength = readlink(strLink.c_str(), text, sizeof text);
    return {text, static_cast<std::size_t>(std::max<ssize_t>(nLength, 0))};
}

/// The file that a waiting call is about.
class CCallReader {
public:
    explicit CCallReader(const seccomp_notif& request)
        : m_data(request.data), m_strProcess("/proc/" + std::to_string(request.pid) + "/") {}

    std::string PathOf(ENaming eNaming) const {
        switch (eNaming) {
        case ENaming::path:
            return Joined(AT_FDCWD, Text(m_data.args[0]));
        case ENaming::folder:
            return Joined(static_cast<int>(m_data.args[0]), Text(m_data.args[1]));
        default:
            return FileOf(static_cast<int>(m_data.args[0]));
        }
    }

private:
    std::string Text(std::uint64_t nAddress) const {
        const CDescriptor memory(open((m_strProcess + "mem").c_str(), O_RDONLY | O_CLOEXEC));
        char text[PATH_MAX];
        const ssize_t nRead = pread(memory.Get(), text, sizeof text, static_cast<off_t>(nAddress));
        return {text, strnlen(text, static_cast<std::size_t>(std::max<ssize_t>(nRead, 0)))};
    }
    std::string FileOf(int nDescriptor) const {
        return LinkText(m_strProcess +
                        (nDescriptor == AT_FDCWD ? "cwd" : "fd/" + std::to_string(nDescriptor)));
    }
    std::string Joined(int nFolder, const std::string& strPath) const {
        return strPath.starts_with('/') ? strPath
               : strPath.empty()        ? FileOf(nFolder)
                                        : FileOf(nFolder) + "/" + strPath;
    }

    const seccomp_data& m_data;
    std::string m_strProcess;
};

bool IsUnder(const std::string& strPath, const std::string& strFolder) {
    return strPath.starts_with(strFolder) &&
           (strPath.size() == strFolder.size() || strPath[strFolder.size()] == '/');
}

/// A process that asks, and what it is answered.
class CWatch {
public:
    CWatch(pid_t nProcess, CDescriptor listener, int nReport)
        : m_nProcess(nProcess), m_listener(std::move(listener)), m_nReport(nReport) {}

    CWatchedEnd Run(const std::vector<std::string>& folders,
                    const std::function<CVerdict(const FILECALL&)>& decide) {
        for (bool bRunning = true; bRunning;) {
            std::array<pollfd, 2> ready = {{{m_listener.Get(), POLLIN, 0}, {m_nReport, POLLIN, 0}}};
            Uninterrupted([&] { return poll(ready.data(), ready.size(), -1); });
            if (ready[0].revents & POLLIN) {
                Answer(folders, decide);
            }
            if (ready[1].revents) {
                bRunning = ReadReport();
            }
        }
        int nStatus = 0;
        Uninterrupted([&] { return waitpid(m_nProcess, &nStatus, 0); });
        m_end.bKilled = WIFSIGNALED(nStatus);
        m_end.nSignal = m_end.bKilled ? WTERMSIG(nStatus) : 0;
        return std::move(m_end);
    }

private:
    /// Whether there may be more.
    bool ReadReport() {
        char bytes[512];
        const ssize_t nRead = Uninterrupted([&] { return read(m_nReport, bytes, sizeof bytes); });
        m_end.strReported.append(bytes, static_cast<std::size_t>(std::max<ssize_t>(nRead, 0)));
        return nRead > 0;
    }

    void Answer(const std::vector<std::string>& folders,
                const std::function<CVerdict(const FILECALL&)>& decide) {
        seccomp_notif request{};
        if (ioctl(m_listener.Get(), SECCOMP_IOCTL_NOTIF_RECV, &request) != 0) {
            return; // the process has died meanwhile
        }
        const auto* const pCall =
            std::find_if(std::begin(CALLS), std::end(CALLS),
                         [&](const CWatchedCall& call) { return call.nNumber == request.data.nr; });
        const std::string strPath = CCallReader(request).PathOf(pCall->eNaming);
        CVerdict verdict;
        if (std::any_of(folders.begin(), folders.end(),
                        [&](const std::string& strFolder) { return IsUnder(strPath, strFolder); })) {
            const int nNumber = static_cast<int>(m_end.calls.size());
            m_end.calls.emplace_back(pCall->pszName);
            verdict = decide({pCall->pszName, strPath, nNumber});
        }
        Carry(verdict, request.id);
    }

    void Carry(const CVerdict& verdict, std::uint64_t nId) const {
        if (verdict.eKind == CVerdict::EKind::kills) {
            kill(m_nProcess, SIGKILL);
            return;
        }
        seccomp_notif_resp response{};
        response.id = nId;
        response.error = verdict.eKind == CVerdict::EKind::fails ? -verdict.nErrno : 0;
        response.flags = verdict.eKind == CVerdict::EKind::happens ? SECCOMP_USER_NOTIF_FLAG_CONTINUE : 0;
        ioctl(m_listener.Get(), SECCOMP_IOCTL_NOTIF_SEND, &response);
    }

    pid_t m_nProcess;
    CDescriptor m_listener;
    int m_nReport;
    CWatchedEnd m_end;
};

} // namespace

CWatchedEnd RunWatched(const std::vector<std::string>& folders, const std::function<void(int)>& action,
                       const std::function<CVerdict(const FILECALL&)>& decide) {
    int report[2];
    int sockets[2];
    if (pipe2(report, O_CLOEXEC) != 0 || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0) {
        Fail("no pipe");
    }
    const CDescriptor reading(report[0]);
    CDescriptor writing(report[1]);
    const CDescriptor here(sockets[0]);
    CDescriptor there(sockets[1]);
    const COneProcessor quick;
    const pid_t nProcess = fork();
    if (nProcess == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int nListener = BeginToAsk();
        SendDescriptor(there.Get(), nListener);
        if (nListener >= 0) {
            action(writing.Get());
        }
        _exit(0);
    }
    writing = CDescriptor();
    there = CDescriptor();
    return CWatch(nProcess, ReceiveDescriptor(here.Get()), reading.Get()).Run(folders, decide);
}
