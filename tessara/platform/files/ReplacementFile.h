#pragma once

#include "tessara/platform/files/File.h"

namespace tessara {

/// A file that takes the place of another when it is closed, whole or not at all.
///
/// What is written goes into a new file beside the target. Close makes it durable and puts it in the target's
/// place; when it returns, the new content is on the disk. Until then, and whenever something fails, the
/// target is as it was. Abort, or the end of the object without Close, throws what was written away. A
/// symbolic link stays, and the file that it leads to is replaced; an existing file's permissions are kept.
///
/// Throws CFileException as CFile does.
///
///     CReplacementFile file("results.dat");
///     file.Write(values, sizeof values);
///     file.Close();
class TESSARA_API CReplacementFile : public CFile {
public:
    explicit CReplacementFile(const char* pszTarget);
    ~CReplacementFile() override;

    void Close() override;
    void Abort() override;

private:
    void RemoveWritten();

    CString m_strTarget;
    CString m_strWritten; ///< empty once it is in place or gone
};

} // namespace tessara
