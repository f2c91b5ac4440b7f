#include "tessara/platform/files/MemFile.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

IMPLEMENT_DYNAMIC(CMemFile, CFile)

CMemFile::CMemFile(UINT nGrowBytes) : m_nGrowBytes(nGrowBytes) {}
CMemFile::~CMemFile() = default;

BOOL CMemFile::Open(const char* pszFileName, UINT, CFileException* pError) {
    if (pError) {
        *pError = CFileException(CFileException::invalidFile, -1, pszFileName);
    }
    return FALSE;
}

void CMemFile::Close() {
    Abort();
}

void CMemFile::Abort() {
    m_bytes = {};
    m_nPosition = 0;
}

UINT CMemFile::Read(void* pBuffer, UINT nCount) {
    const auto nRead = static_cast<UINT>(std::min<std::uint64_t>(nCount, GetRemaining()));
    if (nRead > 0) {
        std::memcpy(pBuffer, m_bytes.data() + m_nPosition, nRead);
        m_nPosition += nRead;
    }
    return nRead;
}

void CMemFile::Write(const void* pBuffer, UINT nCount) {
    if (nCount == 0) {
        return;
    }
    SetLength(std::max(GetLength(), m_nPosition + nCount));
    std::memcpy(m_bytes.data() + m_nPosition, pBuffer, nCount);
    m_nPosition += nCount;
}

void CMemFile::Flush() {}

std::int64_t CMemFile::Seek(std::int64_t nOffset, UINT nFrom) {
    const std::uint64_t origins[] = {0, m_nPosition, GetLength()};
    std::int64_t nPosition = -1;
    if (nFrom > end ||
        __builtin_add_overflow(nOffset, static_cast<std::int64_t>(origins[nFrom]), &nPosition) ||
        nPosition < 0) {
        Throw(CFileException::badSeek);
    }
    m_nPosition = static_cast<std::uint64_t>(nPosition);
    return nPosition;
}

std::uint64_t CMemFile::GetPosition() const {
    return m_nPosition;
}

std::uint64_t CMemFile::GetLength() const {
    return m_bytes.size();
}

void CMemFile::SetLength(std::uint64_t nNewLength) {
    try {
        if (m_bytes.empty() && nNewLength > 0) {
            m_bytes.reserve(m_nGrowBytes);
        }
        m_bytes.resize(nNewLength);
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    } catch (const std::length_error&) {
        AfxThrowMemoryException();
    }
}
