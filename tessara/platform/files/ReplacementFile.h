#pragma once

#include <memory>

#include "tessara/platform/files/File.h"

namespace tessara {

class CReplacementTarget;
class CUnfinishedFile;

/// A file that takes the place of another when it is closed, whole or not at all.
///
/// What is written goes into a new, unfinished file beside the target. Close makes it durable and puts it in
/// the target's place; when it returns, the new content is on the disk. Until then, and whenever something
/// fails, the target is as it was, with one exception that its message tells: when the folder cannot be
/// synchronised, the new content is in place but may be lost with the power. Abort, or the end of the object
/// without Close, throws what was written away. Of several that replace one target at once, the last to close
/// wins, whole.
///
/// A symbolic link stays, and the file that it leads to is replaced, or made. What is no plain file is
/// refused and never opened, and so is a file that may not be written and a link that leads nowhere a file
/// can be.
///
/// A new file gets what the umask leaves; one that replaces another gets its owner, group, permissions and
/// access control list where the process may give them, and less where it may not (never setuid and setgid,
/// never other extended attributes). The unfinished file has the same from the start, so that it is never
/// more readable. Another name (hard link) of the target keeps the old content.
///
/// An unfinished file is named ".tessara-" and 16 hexadecimal digits. One that a killed process left is
/// removed when the same user next replaces a file in that folder; a lock (flock) that lives as long as the
/// process tells which. On file systems without locks it stays.
///
/// Throws CFileException that names the target as it was given. Several objects may live at once, each used
/// by one thread at a time.
///
///     CReplacementFile file("results.dat");
///     file.Write(values, sizeof values);
///     file.Close();
class TESSARA_API CReplacementFile : public CFile {
public:
    CReplacementFile();
    /// Begins to replace a file or throws.
    explicit CReplacementFile(const char* pszTarget);
    ~CReplacementFile() override;

    /// Begins to replace a file, throwing away what was not closed. The new file is empty and open for
    /// reading and writing whatever the flags. Returns 0 when it cannot, with the reason in pError if given.
    BOOL Open(const char* pszTarget, UINT nOpenFlags = modeCreate | modeReadWrite,
              CFileException* pError = nullptr) override;
    void Close() override;
    void Abort() override;
    /// The same as Close for a file that is to be a new one: it gets a name in the target's folder that
    /// nothing has. Returns false when something has that name; the file is then as it was, and another name
    /// can be tried. Whenever it throws there is no new file.
    bool CloseAsNew(const char* pszName);

    /// Removes the unfinished files of all objects of the process. For a signal handler (it is safe there)
    /// that ends the process then: what is written afterwards cannot be put in place.
    static void RemoveUnfinished() noexcept;

protected:
    CFileException Failure(int nErrno) const override;

private:
    void Begin(const char* pszTarget);
    template <class STEP, class UNDO>
    bool Finish(STEP putInPlace, UNDO undo);

    std::unique_ptr<CReplacementTarget> m_pTarget; ///< null while closed
    std::unique_ptr<CUnfinishedFile> m_pUnfinished;
};

} // namespace tessara
