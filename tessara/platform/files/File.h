#pragma once

#include <cstdint>

#include "tessara/platform/base/ByteStream.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/Object.h"
#include "tessara/platform/base/String.h"

/// A binary file on disk, or nothing while it is closed.
///
/// Offsets and lengths are bytes. Reading stops at the end of the file without an error; writing and
/// SetLength extend it, and what was never written reads as zero. Every failure throws CFileException (Open
/// may report it instead): a full disk diskFull, a position before the start badSeek, any operation on a
/// closed file invalidFile. A limit of the size of files (RLIMIT_FSIZE) is a full disk, and the signal that
/// goes with it does not come. After a failed write the position and the bytes from the old position on are
/// undefined.
///
/// The file is closed with the object, without reporting a failure: call Close to learn of one. Child
/// processes do not inherit it. Folders are refused (accessDenied). One thread at a time.
///
///     CFile file("curve.dat", CFile::modeCreate | CFile::modeWrite);
///     file.Write(values, sizeof(values));
///     file.Close();
class TESSARA_API CFile : public CObject, public tessara::CByteStream {
    DECLARE_DYNAMIC(CFile)

public:
    /// Combined with '|'. Sharing is accepted and not enforced; text files are not translated.
    enum OpenFlags {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,     ///< makes the file, or empties it where it exists
        modeNoTruncate = 0x2000, ///< with modeCreate: an existing file keeps its bytes
        typeText = 0x4000,
        typeBinary = 0x8000
    };

    enum SeekPosition { begin = 0, current = 1, end = 2 };

    CFile();
    /// Opens the file or throws.
    CFile(const char* pszFileName, UINT nOpenFlags);
    ~CFile() override;

    /// Opens a file, closing the one that was open. Returns 0 when it cannot, with the reason in pError if
    /// given.
    virtual BOOL Open(const char* pszFileName, UINT nOpenFlags, CFileException* pError = nullptr);
    /// Closes the file; closing again does nothing.
    virtual void Close();
    /// Closes the file and reports nothing.
    virtual void Abort();

    UINT Read(void* pBuffer, UINT nCount) override;
    void Write(const void* pBuffer, UINT nCount) override;
    /// Returns when the bytes are on the disk, as far as the system can tell.
    void Flush() override;
    /// False for pipes and devices.
    bool HasLength() const override;
    std::uint64_t GetRemaining() const override;

    /// Returns the new position, which may lie beyond the end.
    virtual std::int64_t Seek(std::int64_t nOffset, UINT nFrom);
    void SeekToBegin() { Seek(0, begin); }
    /// Returns the file's length.
    std::uint64_t SeekToEnd() { return static_cast<std::uint64_t>(Seek(0, end)); }
    virtual std::uint64_t GetPosition() const;
    virtual std::uint64_t GetLength() const;
    /// Cuts or extends the file; the position stays.
    virtual void SetLength(std::uint64_t nNewLength);

    /// The path as it was opened, made absolute; empty when nothing has been opened or set.
    CString GetFilePath() const { return m_strPath; }
    /// The last component of the path.
    CString GetFileName() const;
    /// Changes what GetFilePath returns, not the file.
    void SetFilePath(const char* pszPath) { m_strPath = pszPath; }

    /// Removes a file, but never a folder.
    static void Remove(const char* pszFileName);

protected:
    [[noreturn]] void Throw(int nCause) const;
    /// What is thrown when the system refuses an operation on the file.
    virtual CFileException Failure(int nErrno) const;
    /// Takes over an open descriptor, as if the file had been opened on that path. REQUIRES: closed.
    void Attach(int nDescriptor, const char* pszFileName);
    /// Throws invalidFile when the file is closed.
    int Descriptor() const;

private:
    [[noreturn]] void ThrowErrno() const;
    [[noreturn]] void ThrowSeekErrno() const;
    void OpenDescriptor(const char* pszFileName, UINT nOpenFlags);

    int m_nDescriptor = -1;
    CString m_strPath;
};
