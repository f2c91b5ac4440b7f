#pragma once

#include <functional>
#include <string>

namespace tessara {

/// A text file of moderate size that several programs, threads and people change.
///
/// A change reads the whole file, changes the bytes and replaces the file (CReplacementFile) under a lock
/// (CFileLock), so no change is lost and the file is whole at any time. Nothing is kept in between, so what
/// an editor wrote counts. Reading takes no lock. Failures throw CFileException and leave the file as it was.
/// Any thread.
class CSharedFile {
public:
    explicit CSharedFile(std::string strPath) : m_strPath(std::move(strPath)) {}

    /// The file's bytes; none where there is no file. What is no plain file is refused (accessDenied), and so
    /// is one in UTF-16, which bytes would spoil (invalidFile).
    std::string Read() const;
    /// Lets an action change the bytes. A file that it leaves as it was is not touched, and one that does not
    /// exist is not made for no bytes.
    void Update(const std::function<void(std::string& strBytes)>& change) const;

private:
    std::string m_strPath;
};

} // namespace tessara
