#include "tessara/platform/files/StdioFile.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <string_view>
#include <unistd.h>

#include "tessara/platform/files/Descriptor.h"

IMPLEMENT_DYNAMIC(CStdioFile, CFile)

namespace {

constexpr std::size_t READ_BYTES = 65536;
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

} // namespace

CStdioFile::CStdioFile() = default;

CStdioFile::CStdioFile(const char* pszFileName, UINT nOpenFlags) : CFile(pszFileName, nOpenFlags) {
    Begin(nOpenFlags);
}

CStdioFile::~CStdioFile() = default;

BOOL CStdioFile::Open(const char* pszFileName, UINT nOpenFlags, CFileException* pError) {
    Begin(nOpenFlags);
    return CFile::Open(pszFileName, nOpenFlags, pError);
}

void CStdioFile::Begin(UINT nOpenFlags) {
    m_bText = !(nOpenFlags & typeBinary);
    m_bytes.clear();
    m_nNext = 0;
}

void CStdioFile::Close() {
    Begin(0);
    CFile::Close();
}

void CStdioFile::Abort() {
    Begin(0);
    CFile::Abort();
}

/// Reads ahead, once all has been given; false at the end of the file. One call to the system, so that a line
/// from a pipe is given when it is there.
bool CStdioFile::Fill() {
    const bool bStart = m_bText && lseek(Descriptor(), 0, SEEK_CUR) == 0;
    m_nNext = 0;
    tessara::WithMemoryException([&] { m_bytes.resize(READ_BYTES); });
    const ssize_t nRead =
        tessara::Uninterrupted([&] { return read(Descriptor(), m_bytes.data(), m_bytes.size()); });
    const int nErrno = errno;
    m_bytes.resize(nRead > 0 ? static_cast<std::size_t>(nRead) : 0);
    if (nRead < 0) {
        throw Failure(nErrno);
    }
    if (bStart && std::string_view(m_bytes.data(), m_bytes.size()).starts_with(BYTE_ORDER_MARK)) {
        m_nNext = BYTE_ORDER_MARK.size();
        return Unread() > 0 || Fill();
    }
    return nRead > 0;
}

/// Puts the system's position where the next byte to be given is.
void CStdioFile::GiveBack() {
    if (Unread() > 0) {
        CFile::Seek(-static_cast<std::int64_t>(Unread()), current);
    }
    m_bytes.clear();
    m_nNext = 0;
}

BOOL CStdioFile::ReadString(CString& strLine) {
    std::string strText;
    bool bAny = false;
    for (bool bEnd = false; !bEnd && (Unread() > 0 || Fill());) {
        const char* const pBegin = m_bytes.data() + m_nNext;
        const void* const pEnd = std::memchr(pBegin, '\n', Unread());
        const auto nCount =
            pEnd ? static_cast<std::size_t>(static_cast<const char*>(pEnd) - pBegin) : Unread();
        if (strText.size() + nCount > INT_MAX) {
            AfxThrowMemoryException(); // more than a CString can count
        }
        tessara::WithMemoryException([&] { strText.append(pBegin, nCount); });
        bEnd = pEnd != nullptr;
        m_nNext += nCount + (bEnd ? 1 : 0);
        bAny = true;
        if (bEnd && m_bText && strText.ends_with('\r')) {
            strText.pop_back();
        }
    }
    strLine = std::move(strText);
    return bAny;
}

/// The next byte, which is LF for a whole line end of text.
std::optional<char> CStdioFile::Next() {
    if (Unread() == 0 && !Fill()) {
        return std::nullopt;
    }
    const char ch = m_bytes[m_nNext++];
    if (ch == '\r' && m_bText && (Unread() > 0 || Fill()) && m_bytes[m_nNext] == '\n') {
        return m_bytes[m_nNext++];
    }
    return ch;
}

char* CStdioFile::ReadString(char* pszBuffer, UINT nMax) {
    if (nMax == 0) {
        return nullptr;
    }
    UINT nCount = 0;
    while (nCount + 1 < nMax && (nCount == 0 || pszBuffer[nCount - 1] != '\n')) {
        const auto ch = Next();
        if (!ch) {
            break;
        }
        pszBuffer[nCount++] = *ch;
    }
    if (nCount == 0 && nMax > 1) {
        return nullptr;
    }
    pszBuffer[nCount] = '\0';
    return pszBuffer;
}

void CStdioFile::WriteString(const char* psz) {
    const std::string_view str = psz ? psz : "";
    for (std::size_t nDone = 0; nDone < str.size();) {
        const auto nCount = static_cast<UINT>(std::min<std::size_t>(str.size() - nDone, INT_MAX));
        Write(str.data() + nDone, nCount);
        nDone += nCount;
    }
}

UINT CStdioFile::Read(void* pBuffer, UINT nCount) {
    const auto nAhead = static_cast<UINT>(std::min<std::size_t>(Unread(), nCount));
    std::copy_n(m_bytes.data() + m_nNext, nAhead, static_cast<char*>(pBuffer));
    m_nNext += nAhead;
    return nAhead +
           (nAhead < nCount ? CFile::Read(static_cast<char*>(pBuffer) + nAhead, nCount - nAhead) : 0);
}

void CStdioFile::Write(const void* pBuffer, UINT nCount) {
    GiveBack();
    CFile::Write(pBuffer, nCount);
}

std::int64_t CStdioFile::Seek(std::int64_t nOffset, UINT nFrom) {
    GiveBack();
    return CFile::Seek(nOffset, nFrom);
}

std::uint64_t CStdioFile::GetPosition() const {
    return CFile::GetPosition() - Unread();
}

void CStdioFile::SetLength(std::uint64_t nNewLength) {
    GiveBack();
    CFile::SetLength(nNewLength);
}
