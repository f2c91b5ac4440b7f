#include "tessara/platform/base/Exception.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <system_error>
#include <utility>

namespace {

const char* FileCauseText(int nCause) {
    switch (nCause) {
    case CFileException::fileNotFound:
        return "no such file";
    case CFileException::badPath:
        return "no such folder";
    case CFileException::tooManyOpenFiles:
        return "too many open files";
    case CFileException::accessDenied:
        return "permission denied";
    case CFileException::diskFull:
        return "no space left on the disk";
    case CFileException::badSeek:
        return "bad position in the file";
    case CFileException::endOfFile:
        return "unexpected end of file";
    default:
        return "the file operation failed";
    }
}

/// Several error numbers share a cause; the cause's text is true of the usual ones alone.
bool IsUsual(LONG lOsError) {
    constexpr int USUAL[] = {ENOENT, ENOTDIR, EMFILE, ENFILE, EACCES, EPERM, ENOSPC};
    return std::find(std::begin(USUAL), std::end(USUAL), lOsError) != std::end(USUAL);
}

std::string FileReason(int nCause, LONG lOsError) {
    const bool bSystem = lOsError > 0 && (nCause == CFileException::genericException || !IsUsual(lOsError));
    return bSystem ? std::generic_category().message(lOsError) : FileCauseText(nCause);
}

std::string FileText(int nCause, LONG lOsError, const char* pszFileName) {
    const std::string strReason = FileReason(nCause, lOsError);
    return pszFileName && *pszFileName ? std::string(pszFileName) + ": " + strReason : strReason;
}

int FileCauseFromErrno(int nErrno) {
    switch (nErrno) {
    case ENOENT:
        return CFileException::fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return CFileException::badPath;
    case EMFILE:
    case ENFILE:
        return CFileException::tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return CFileException::accessDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return CFileException::diskFull;
    case EIO:
        return CFileException::hardIO;
    default:
        return CFileException::genericException;
    }
}

const char* ArchiveText(int nCause) {
    switch (nCause) {
    case CArchiveException::endOfFile:
        return "the archive ends before its data does";
    case CArchiveException::readOnly:
        return "the archive is open for reading only";
    case CArchiveException::writeOnly:
        return "the archive is open for writing only";
    case CArchiveException::badIndex:
        return "the archive holds an invalid count";
    case CArchiveException::badClass:
        return "the archive holds an object of another class";
    case CArchiveException::badSchema:
        return "the archive was written in another version of its format";
    default:
        return "the archive cannot be used";
    }
}

} // namespace

CException::CException(std::string strMessage) : m_strMessage(std::move(strMessage)) {}
CException::~CException() = default;

CMemoryException::CMemoryException() : CException("out of memory") {}
CMemoryException::~CMemoryException() = default;

CResourceException::CResourceException() : CException("a resource is missing") {}
CResourceException::~CResourceException() = default;

CNotSupportedException::CNotSupportedException() : CException("the operation is not supported") {}
CNotSupportedException::~CNotSupportedException() = default;

CInvalidArgException::CInvalidArgException() : CException("an argument is invalid") {}
CInvalidArgException::~CInvalidArgException() = default;

CFileException::CFileException(int nCause, LONG lOsError, const char* pszFileName)
    : CException(FileText(nCause, lOsError, pszFileName)), m_cause(nCause), m_lOsError(lOsError),
      m_strFileName(pszFileName ? pszFileName : "") {}
CFileException::~CFileException() = default;

CFileException CFileException::FromErrno(int nErrno, const char* pszFileName) {
    return tessara::WithMemoryException(
        [&] { return CFileException(FileCauseFromErrno(nErrno), nErrno, pszFileName); });
}

CArchiveException::CArchiveException(int nCause) : CException(ArchiveText(nCause)), m_cause(nCause) {}
CArchiveException::~CArchiveException() = default;

void AfxThrowMemoryException() {
    throw CMemoryException();
}

void AfxThrowResourceException() {
    throw CResourceException();
}

void AfxThrowNotSupportedException() {
    throw CNotSupportedException();
}

void AfxThrowInvalidArgException() {
    throw CInvalidArgException();
}

void AfxThrowFileException(int nCause, LONG lOsError, const char* pszFileName) {
    throw tessara::WithMemoryException([&] { return CFileException(nCause, lOsError, pszFileName); });
}

void AfxThrowArchiveException(int nCause) {
    throw tessara::WithMemoryException([&] { return CArchiveException(nCause); });
}
