#pragma once

#include <string>

#include <sys/types.h>

namespace tessara {

/// A file that comes into being whole or not at all.
///
/// The constructor makes an empty temporary file beside the target, with the mode of the process's umask; the
/// caller writes there; Commit makes it durable and puts it in the target's place. Without Commit, and when a
/// signal ends the process, the temporary file is removed and the target stays as it was. A target that is a
/// symbolic link is followed. Errors are thrown as CInputError that names the target. One object at a time.
///
///     COutputFile output("chi.png");
///     image.SavePng(output.GetTemporaryPath().c_str());
///     output.Commit();
class COutputFile {
public:
    explicit COutputFile(const std::string& strPath);
    ~COutputFile();
    COutputFile(const COutputFile&) = delete;
    COutputFile& operator=(const COutputFile&) = delete;

    /// Has the target's ending.
    const std::string& GetTemporaryPath() const { return m_strTemporary; }
    void Commit();

    /// Throws the CInputError that the target cannot be written, for the reason that nErrno gives (0: none
    /// known).
    [[noreturn]] void Fail(int nErrno) const;

private:
    void CheckTarget() const;
    void CreateTemporary();
    void Remove();

    std::string m_strPath;   ///< as the user gave it, for messages
    std::string m_strTarget; ///< where it leads to
    std::string m_strTemporary;
    mode_t m_nMode = 0;
};

} // namespace tessara
