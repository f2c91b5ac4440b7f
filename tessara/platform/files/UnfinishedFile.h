#pragma once

#include <memory>
#include <sys/types.h>

#include "tessara/platform/files/Descriptor.h"
#include "tessara/platform/files/TemporaryName.h"

namespace tessara {

class CReplacementTarget;
class CUnfinishedEntry;

/// A new file beside the one that it is to replace, under a name that nobody guesses. It is removed with the
/// object unless it was put in place.
///
/// It is locked (flock) from its creation until its descriptor is closed, so that RemoveStrays can tell it
/// from what a killed process left. The target outlives it.
class CUnfinishedFile {
public:
    /// nMode as for open: the kernel takes the process's umask from it. Throws the target's CFileException.
    CUnfinishedFile(const CReplacementTarget& target, mode_t nMode);
    ~CUnfinishedFile();
    CUnfinishedFile(const CUnfinishedFile&) = delete;
    CUnfinishedFile& operator=(const CUnfinishedFile&) = delete;

    /// The descriptor, open for reading and writing; the caller's to close from now on.
    int ReleaseDescriptor() { return m_descriptor.Release(); }
    int GetDescriptor() const { return m_descriptor.Get(); }

    /// Takes the target's name, and with it the target's place.
    void PutInPlace();
    /// Takes a name in the target's folder that nothing has. Returns false when something has it.
    bool PutInPlaceAsNew(const char* pszName);

    /// Removes the unfinished files of all objects of the process. Safe inside a signal handler.
    static void RemoveAll() noexcept;

private:
    bool Create(mode_t nMode);
    [[noreturn]] void ThrowRefusal(int nErrno) const;
    CTemporaryName GetName() const;

    const CReplacementTarget& m_target;
    CUnfinishedEntry& m_entry;
    CDescriptor m_descriptor;
};

/// Removes the files in a folder that a process of this user has left unfinished and no process holds.
/// Whatever cannot be done is left alone.
void RemoveStrays(int nFolder) noexcept;

} // namespace tessara
