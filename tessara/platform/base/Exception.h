#pragma once

#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

/// The root of everything the library throws. Exceptions are thrown by value and caught by reference;
/// what() is one English line for a user.
class TESSARA_API CException : public std::exception {
public:
    explicit CException(std::string strMessage);
    ~CException() override;
    CException(const CException&) = default;
    CException& operator=(const CException&) = default;
    const char* what() const noexcept override { return m_strMessage.c_str(); }

private:
    std::string m_strMessage;
};

/// An allocation or a resize failed.
class TESSARA_API CMemoryException : public CException {
public:
    CMemoryException();
    ~CMemoryException() override;
};

/// A string, dialog or other resource does not exist.
class TESSARA_API CResourceException : public CException {
public:
    CResourceException();
    ~CResourceException() override;
};

/// The operation is not available on this object.
class TESSARA_API CNotSupportedException : public CException {
public:
    CNotSupportedException();
    ~CNotSupportedException() override;
};

/// An argument, an index for example, is outside what the operation accepts.
class TESSARA_API CInvalidArgException : public CException {
public:
    CInvalidArgException();
    ~CInvalidArgException() override;
};

/// A file operation failed. m_strFileName may be empty (a file in memory).
class TESSARA_API CFileException : public CException {
public:
    enum Cause {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int nCause = none, LONG lOsError = -1, const char* pszFileName = nullptr);
    ~CFileException() override;
    CFileException(const CFileException&) = default;
    CFileException& operator=(const CFileException&) = default;

    /// The exception that describes an errno value.
    static CFileException FromErrno(int nErrno, const char* pszFileName);

    int m_cause;
    LONG m_lOsError; ///< errno, or -1
    std::string m_strFileName;
};

/// An archive ended early or holds what its reader cannot accept.
class TESSARA_API CArchiveException : public CException {
public:
    enum Cause { none, genericException, readOnly, endOfFile, writeOnly, badIndex, badClass, badSchema };

    explicit CArchiveException(int nCause = none);
    ~CArchiveException() override;

    int m_cause;
};

[[noreturn]] TESSARA_API void AfxThrowMemoryException();
[[noreturn]] TESSARA_API void AfxThrowResourceException();
[[noreturn]] TESSARA_API void AfxThrowNotSupportedException();
[[noreturn]] TESSARA_API void AfxThrowInvalidArgException();
[[noreturn]] TESSARA_API void AfxThrowFileException(int nCause, LONG lOsError = -1,
                                                    const char* pszFileName = nullptr);
[[noreturn]] TESSARA_API void AfxThrowArchiveException(int nCause);

namespace tessara {

/// Gives what an action gives; a lack of memory in it, and a size that cannot be, become CMemoryException.
template <class ACTION>
decltype(auto) WithMemoryException(ACTION action) {
    try {
        return action();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    } catch (const std::length_error&) {
        AfxThrowMemoryException();
    }
}

} // namespace tessara
