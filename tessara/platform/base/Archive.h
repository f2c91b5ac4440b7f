#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/ByteStream.h"
#include "tessara/platform/base/Types.h"

class CDocument;

/// A buffered binary stream over a file, for either storing or loading.
///
/// Numbers are little-endian and reals IEEE 754, whatever the machine. Nothing marks where a value begins or
/// what it is: the reader asks for what the writer wrote.
///
/// What is inserted can be extracted: numbers of these types alone. Others, which would be widened, do not
/// compile.
///
/// Storing with a loading archive throws CArchiveException readOnly, loading with a storing one writeOnly,
/// using a closed one genericException. Extracting a number past the end throws endOfFile. Exceptions of the
/// file pass through; bytes that it refused are dropped, so that closing does not try them again.
///
/// The file belongs to the caller and outlives the archive. A loading archive reads ahead: when it is closed,
/// the file's position is past what was taken from the archive.
///
///     CArchive ar(&file, CArchive::store);
///     ar << nCount;
///     ar.Close(); // reports a full disk; the destructor does not
class TESSARA_API CArchive {
public:
    enum Mode { store = 0, load = 1 };

    /// Throws CMemoryException when there is no memory for the buffer.
    /// REQUIRES: pFile is not null (CInvalidArgException).
    CArchive(tessara::CByteStream* pFile, UINT nMode, int nBufSize = 4096);
    /// Closes the archive; a failure is not reported.
    ~CArchive();
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    BOOL IsStoring() const { return !m_bLoading; }
    BOOL IsLoading() const { return m_bLoading; }

    CArchive& operator<<(BYTE nValue);
    CArchive& operator<<(WORD nValue);
    CArchive& operator<<(LONG nValue);
    CArchive& operator<<(DWORD nValue);
    CArchive& operator<<(float fValue);
    CArchive& operator<<(double dValue);
    template <class NUMBER>
    requires std::is_arithmetic_v<NUMBER> CArchive& operator<<(NUMBER nValue) = delete;
    CArchive& operator>>(BYTE& nValue);
    CArchive& operator>>(WORD& nValue);
    CArchive& operator>>(LONG& nValue);
    CArchive& operator>>(DWORD& nValue);
    CArchive& operator>>(float& fValue);
    CArchive& operator>>(double& dValue);

    /// Reads raw bytes and returns how many there were: fewer than asked for only at the end of the file.
    UINT Read(void* pBuffer, UINT nCount);
    void Write(const void* pBuffer, UINT nCount);

    /// Bytes that a loading archive can still deliver; 0 for a storing or a closed one.
    /// REQUIRES: HasLength()
    std::uint64_t GetRemaining() const;
    /// False when the file's end is known only when it is reached, that of a pipe for example. True for a
    /// closed archive.
    bool HasLength() const { return !m_pFile || m_pFile->HasLength(); }

    /// Passes what is buffered to the file and flushes the file. Does nothing when loading.
    void Flush();
    /// Passes what is buffered to the file and lets go of the file. Closing again does nothing.
    void Close();

    CDocument* m_pDocument = nullptr; ///< the document being stored or loaded, if any; not used here

private:
    void CheckMode(bool bLoading) const;
    void WriteBuffer();
    std::size_t TakeBuffered(BYTE* pBuffer, std::size_t nCount);

    tessara::CByteStream* m_pFile; ///< null once closed
    bool m_bLoading;
    std::vector<BYTE> m_buffer;
    std::size_t m_nPosition = 0; ///< storing: bytes not yet written; loading: bytes already taken
    std::size_t m_nEnd = 0;      ///< loading: bytes in the buffer
};
