#pragma once

#include <string>
#include <sys/types.h>

/// An X server without a screen to look at, on a display number of its own.
class CDisplayServer {
public:
    CDisplayServer();
    ~CDisplayServer() { Stop(); }
    CDisplayServer(const CDisplayServer&) = delete;
    CDisplayServer& operator=(const CDisplayServer&) = delete;

    /// As in DISPLAY.
    const std::string& GetName() const { return m_strName; }
    void Stop();

private:
    pid_t m_nServer = -1;
    std::string m_strName;
};
