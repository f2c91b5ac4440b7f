#include "tests/host/DisplayServer.h"

#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

CDisplayServer::CDisplayServer() {
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) {
        throw std::runtime_error("no pipe");
    }
    m_nServer = fork();
    if (m_nServer == 0) {
        dup2(open("/dev/null", O_RDWR), STDERR_FILENO);
        const std::string strEnd = std::to_string(pipeEnds[1]);
        execlp("Xvfb", "Xvfb", "-displayfd", strEnd.c_str(), "-nolisten", "tcp", nullptr);
        _exit(127);
    }
    close(pipeEnds[1]);
    // The server writes its number when it is ready.
    for (char ch = 0; read(pipeEnds[0], &ch, 1) == 1 && ch != '\n';) {
        m_strName += ch;
    }
    close(pipeEnds[0]);
    if (m_strName.empty()) {
        Stop();
        throw std::runtime_error("Xvfb does not start: is the package xvfb installed?");
    }
    m_strName.insert(0, 1, ':');
}

void CDisplayServer::Stop() {
    if (m_nServer > 0) {
        kill(m_nServer, SIGKILL);
        waitpid(m_nServer, nullptr, 0);
        m_nServer = -1;
    }
}
