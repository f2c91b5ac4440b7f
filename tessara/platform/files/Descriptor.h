#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace tessara {

/// Repeats a system call while a signal interrupts it.
template <class CALL>
auto Uninterrupted(CALL call) {
    auto nResult = call();
    while (nResult < 0 && errno == EINTR) {
        nResult = call();
    }
    return nResult;
}

/// A file descriptor that is closed with the object; below 0 for none. errno survives the closing.
class CDescriptor {
public:
    explicit CDescriptor(int nDescriptor = -1) : m_nDescriptor(nDescriptor) {}
    ~CDescriptor() { Close(); }
    CDescriptor(CDescriptor&& other) noexcept : m_nDescriptor(other.Release()) {}
    CDescriptor& operator=(CDescriptor&& other) noexcept {
        Close();
        m_nDescriptor = other.Release();
        return *this;
    }

    explicit operator bool() const { return m_nDescriptor >= 0; }
    int Get() const { return m_nDescriptor; }
    int Release() { return std::exchange(m_nDescriptor, -1); }

private:
    void Close() {
        if (m_nDescriptor >= 0) {
            const int nErrno = errno;
            close(m_nDescriptor);
            errno = nErrno;
        }
    }

    int m_nDescriptor;
};

} // namespace tessara
