#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/Descriptor.h"

namespace tessara {

/// The place of a file that is to be replaced: a folder and a name in it.
///
/// Symbolic links are followed to their end, where there may be nothing yet. The folder is kept open, so the
/// place stays the same when the process changes its working directory or the folder gets another name.
/// Every failure throws CFileException, which names the path as it was given and says that it cannot be
/// written and why.
class CReplacementTarget {
public:
    explicit CReplacementTarget(const char* pszPath);

    int GetFolder() const { return m_folder.Get(); }
    const char* GetName() const { return m_strName.c_str(); }
    /// Where the links end. Valid while the working directory is the same.
    const char* GetEnd() const { return m_strEnd.c_str(); }

    /// What lies at the place; nothing where nothing does. Throws where writing to it would not go through:
    /// renaming would.
    std::optional<struct stat> CheckedFile() const;
    /// Makes what was renamed in the folder durable. Returns 0, or an error number. nFile is an open file in
    /// it.
    int Sync(int nFile) const;

    /// Removes a name in the folder where it is that of an open file.
    void RemoveIfSame(const char* pszName, int nFile) const;

    CFileException Failure(int nErrno) const;
    CFileException Failure(int nCause, const std::string& strReason) const;

private:
    void CheckEnd() const;
    void CheckKind(const struct stat& status) const;

    std::string m_strPath;
    std::string m_strEnd;
    std::string m_strName;
    CDescriptor m_folder;
};

} // namespace tessara
