#include "tessara/platform/files/File.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "tessara/platform/files/Descriptor.h"
#include "tessara/platform/files/SizeSignal.h"

IMPLEMENT_DYNAMIC(CFile, CObject)

namespace {

using tessara::Uninterrupted;

constexpr mode_t NEW_FILE_MODE = 0666; // less the process's umask

int SystemFlags(UINT nOpenFlags) {
    int nFlags = O_CLOEXEC;
    if (nOpenFlags & CFile::modeReadWrite) {
        nFlags |= O_RDWR;
    } else {
        nFlags |= nOpenFlags & CFile::modeWrite ? O_WRONLY : O_RDONLY;
    }
    if (nOpenFlags & CFile::modeCreate) {
        nFlags |= nOpenFlags & CFile::modeNoTruncate ? O_CREAT : O_CREAT | O_TRUNC;
    }
    return nFlags;
}

CString AbsolutePath(const char* pszFileName) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(pszFileName, error);
    return error ? CString(pszFileName) : CString(path.c_str());
}

} // namespace

CFile::CFile() = default;

CFile::CFile(const char* pszFileName, UINT nOpenFlags) {
    OpenDescriptor(pszFileName, nOpenFlags);
}

CFile::~CFile() {
    CFile::Abort();
}

BOOL CFile::Open(const char* pszFileName, UINT nOpenFlags, CFileException* pError) {
    try {
        CFile::Close();
        OpenDescriptor(pszFileName, nOpenFlags);
        return TRUE;
    } catch (const CFileException& error) {
        if (pError) {
            *pError = error;
        }
        return FALSE;
    }
}

void CFile::OpenDescriptor(const char* pszFileName, UINT nOpenFlags) {
    m_strPath = AbsolutePath(pszFileName ? pszFileName : "");
    const int nFlags = SystemFlags(nOpenFlags);
    const int nDescriptor = Uninterrupted([&] { return open(m_strPath, nFlags, NEW_FILE_MODE); });
    if (nDescriptor < 0) {
        ThrowErrno();
    }
    m_nDescriptor = nDescriptor;
    struct stat status;
    const int nErrno = fstat(nDescriptor, &status) != 0 ? errno : 0;
    if (nErrno || S_ISDIR(status.st_mode)) {
        CFile::Abort();
        throw Failure(nErrno ? nErrno : EISDIR);
    }
}

void CFile::Close() {
    const int nDescriptor = std::exchange(m_nDescriptor, -1);
    // The descriptor is gone even when a signal interrupts its closing.
    if (nDescriptor >= 0 && close(nDescriptor) != 0 && errno != EINTR) {
        ThrowErrno();
    }
}

void CFile::Abort() {
    if (const int nDescriptor = std::exchange(m_nDescriptor, -1); nDescriptor >= 0) {
        close(nDescriptor);
    }
}

UINT CFile::Read(void* pBuffer, UINT nCount) {
    UINT nDone = 0;
    while (nDone < nCount) {
        const ssize_t nRead = Uninterrupted(
            [&] { return read(Descriptor(), static_cast<BYTE*>(pBuffer) + nDone, nCount - nDone); });
        if (nRead < 0) {
            ThrowErrno();
        }
        if (nRead == 0) {
            break;
        }
        nDone += static_cast<UINT>(nRead);
    }
    return nDone;
}

void CFile::Write(const void* pBuffer, UINT nCount) {
    const tessara::CSizeSignal spared;
    UINT nDone = 0;
    while (nDone < nCount) {
        const ssize_t nWritten = Uninterrupted(
            [&] { return write(Descriptor(), static_cast<const BYTE*>(pBuffer) + nDone, nCount - nDone); });
        if (nWritten < 0) {
            ThrowErrno();
        }
        if (nWritten == 0) {
            Throw(CFileException::diskFull);
        }
        nDone += static_cast<UINT>(nWritten);
    }
}

void CFile::Flush() {
    // What cannot be synchronised, a pipe for example, has nothing to wait for. But a file whose file system
    // has become read-only after an error has lost what was written.
    if (Uninterrupted([&] { return fsync(Descriptor()); }) != 0) {
        const int nErrno = errno;
        if (nErrno != EINVAL && (nErrno != EROFS || HasLength())) {
            throw Failure(nErrno);
        }
    }
}

bool CFile::HasLength() const {
    struct stat status;
    if (fstat(Descriptor(), &status) != 0) {
        ThrowErrno();
    }
    return S_ISREG(status.st_mode);
}

std::uint64_t CFile::GetRemaining() const {
    const std::uint64_t nLength = GetLength();
    const std::uint64_t nPosition = GetPosition();
    return nLength > nPosition ? nLength - nPosition : 0;
}

std::int64_t CFile::Seek(std::int64_t nOffset, UINT nFrom) {
    constexpr int origins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    if (nFrom > end) {
        Throw(CFileException::badSeek);
    }
    const std::int64_t nPosition = lseek(Descriptor(), nOffset, origins[nFrom]);
    if (nPosition < 0) {
        ThrowSeekErrno();
    }
    return nPosition;
}

std::uint64_t CFile::GetPosition() const {
    const off_t nPosition = lseek(Descriptor(), 0, SEEK_CUR);
    if (nPosition < 0) {
        ThrowSeekErrno();
    }
    return static_cast<std::uint64_t>(nPosition);
}

std::uint64_t CFile::GetLength() const {
    struct stat status;
    if (fstat(Descriptor(), &status) != 0) {
        ThrowErrno();
    }
    return static_cast<std::uint64_t>(status.st_size);
}

void CFile::SetLength(std::uint64_t nNewLength) {
    const tessara::CSizeSignal spared;
    if (Uninterrupted([&] { return ftruncate(Descriptor(), static_cast<off_t>(nNewLength)); }) != 0) {
        ThrowErrno();
    }
}

CString CFile::GetFileName() const {
    return m_strPath.Mid(m_strPath.ReverseFind('/') + 1);
}

void CFile::Remove(const char* pszFileName) {
    const char* pszPath = pszFileName ? pszFileName : "";
    if (unlink(pszPath) != 0) {
        throw CFileException::FromErrno(errno, pszPath);
    }
}

void CFile::Throw(int nCause) const {
    AfxThrowFileException(nCause, -1, m_strPath);
}

CFileException CFile::Failure(int nErrno) const {
    return CFileException::FromErrno(nErrno, m_strPath);
}

void CFile::ThrowErrno() const {
    throw Failure(errno);
}

/// A position that there is not, or a failure of the file.
void CFile::ThrowSeekErrno() const {
    if (errno == EINVAL || errno == EOVERFLOW || errno == ESPIPE) {
        Throw(CFileException::badSeek);
    }
    ThrowErrno();
}

void CFile::Attach(int nDescriptor, const char* pszFileName) {
    m_strPath = AbsolutePath(pszFileName);
    m_nDescriptor = nDescriptor;
}

int CFile::Descriptor() const {
    if (m_nDescriptor < 0) {
        Throw(CFileException::invalidFile);
    }
    return m_nDescriptor;
}
