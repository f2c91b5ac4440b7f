#include "tessara/platform/base/Archive.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <type_traits>
#include <utility>

#include "tessara/platform/base/Exception.h"

namespace {

constexpr int MIN_BUFFER = 128;

template <class TYPE>
using BitsOf = std::conditional_t<
    sizeof(TYPE) == 1, BYTE,
    std::conditional_t<sizeof(TYPE) == 2, WORD, std::conditional_t<sizeof(TYPE) == 4, DWORD, std::uint64_t>>>;

template <class TYPE>
CArchive& Store(CArchive& ar, TYPE value) {
    const auto nBits = std::bit_cast<BitsOf<TYPE>>(value);
    std::array<BYTE, sizeof(TYPE)> bytes;
    for (std::size_t i = 0; i < sizeof(TYPE); ++i) {
        bytes[i] = static_cast<BYTE>(nBits >> (8 * i));
    }
    ar.Write(bytes.data(), sizeof(TYPE));
    return ar;
}

template <class TYPE>
CArchive& Load(CArchive& ar, TYPE& value) {
    std::array<BYTE, sizeof(TYPE)> bytes;
    if (ar.Read(bytes.data(), sizeof(TYPE)) != sizeof(TYPE)) {
        AfxThrowArchiveException(CArchiveException::endOfFile);
    }
    BitsOf<TYPE> nBits = 0;
    for (std::size_t i = 0; i < sizeof(TYPE); ++i) {
        nBits = static_cast<BitsOf<TYPE>>(nBits | static_cast<BitsOf<TYPE>>(bytes[i]) << (8 * i));
    }
    value = std::bit_cast<TYPE>(nBits);
    return ar;
}

} // namespace

CArchive::CArchive(tessara::CByteStream* pFile, UINT nMode, int nBufSize)
    : m_pFile(pFile), m_bLoading((nMode & load) != 0) {
    if (!pFile) {
        AfxThrowInvalidArgException();
    }
    tessara::WithMemoryException(
        [&] { m_buffer.resize(static_cast<std::size_t>(std::max(nBufSize, MIN_BUFFER))); });
}

CArchive::~CArchive() {
    try {
        Close();
    } catch (const std::exception&) {
        // Whoever wants to know calls Close.
    }
}

CArchive& CArchive::operator<<(BYTE nValue) {
    return Store(*this, nValue);
}

CArchive& CArchive::operator<<(WORD nValue) {
    return Store(*this, nValue);
}

CArchive& CArchive::operator<<(LONG nValue) {
    return Store(*this, nValue);
}

CArchive& CArchive::operator<<(DWORD nValue) {
    return Store(*this, nValue);
}

CArchive& CArchive::operator<<(float fValue) {
    return Store(*this, fValue);
}

CArchive& CArchive::operator<<(double dValue) {
    return Store(*this, dValue);
}

CArchive& CArchive::operator>>(BYTE& nValue) {
    return Load(*this, nValue);
}

CArchive& CArchive::operator>>(WORD& nValue) {
    return Load(*this, nValue);
}

CArchive& CArchive::operator>>(LONG& nValue) {
    return Load(*this, nValue);
}

CArchive& CArchive::operator>>(DWORD& nValue) {
    return Load(*this, nValue);
}

CArchive& CArchive::operator>>(float& fValue) {
    return Load(*this, fValue);
}

CArchive& CArchive::operator>>(double& dValue) {
    return Load(*this, dValue);
}

UINT CArchive::Read(void* pBuffer, UINT nCount) {
    CheckMode(true);
    auto* pBytes = static_cast<BYTE*>(pBuffer);
    std::size_t nDone = TakeBuffered(pBytes, nCount);
    if (nCount - nDone >= m_buffer.size()) {
        nDone += m_pFile->Read(pBytes + nDone, static_cast<UINT>(nCount - nDone));
    } else if (nDone < nCount) {
        m_nPosition = m_nEnd = 0;
        m_nEnd = m_pFile->Read(m_buffer.data(), static_cast<UINT>(m_buffer.size()));
        nDone += TakeBuffered(pBytes + nDone, nCount - nDone);
    }
    return static_cast<UINT>(nDone);
}

void CArchive::Write(const void* pBuffer, UINT nCount) {
    CheckMode(false);
    if (nCount > m_buffer.size() - m_nPosition) {
        WriteBuffer();
    }
    if (nCount > m_buffer.size()) {
        m_pFile->Write(pBuffer, nCount);
    } else if (nCount > 0) {
        std::memcpy(m_buffer.data() + m_nPosition, pBuffer, nCount);
        m_nPosition += nCount;
    }
}

std::uint64_t CArchive::GetRemaining() const {
    return m_pFile && m_bLoading ? m_nEnd - m_nPosition + m_pFile->GetRemaining() : 0;
}

void CArchive::Flush() {
    if (m_pFile && !m_bLoading) {
        WriteBuffer();
        m_pFile->Flush();
    }
}

void CArchive::Close() {
    if (m_pFile && !m_bLoading) {
        WriteBuffer();
    }
    m_pFile = nullptr;
}

void CArchive::CheckMode(bool bLoading) const {
    if (!m_pFile) {
        AfxThrowArchiveException(CArchiveException::genericException);
    }
    if (bLoading != m_bLoading) {
        AfxThrowArchiveException(m_bLoading ? CArchiveException::readOnly : CArchiveException::writeOnly);
    }
}

void CArchive::WriteBuffer() {
    if (const auto nPending = static_cast<UINT>(std::exchange(m_nPosition, 0)); nPending > 0) {
        m_pFile->Write(m_buffer.data(), nPending);
    }
}

std::size_t CArchive::TakeBuffered(BYTE* pBuffer, std::size_t nCount) {
    const std::size_t nTaken = std::min(nCount, m_nEnd - m_nPosition);
    if (nTaken > 0) {
        std::memcpy(pBuffer, m_buffer.data() + m_nPosition, nTaken);
        m_nPosition += nTaken;
    }
    return nTaken;
}
