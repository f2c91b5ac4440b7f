#include "tessara/document/BaseFile.h"

#include <algorithm>
#include <vector>

#include "tessara/document/ArchiveFolder.h"
#include "tessara/document/PendingVariant.h"
#include "tessara/document/VariantHeader.h"

IMPLEMENT_DYNAMIC(CBaseFile, CFile)

using tessara::CArchiveFolder;
using tessara::CPendingVariant;
using tessara::CReplacementFile;
using tessara::CVariantHeader;

CBaseFile::CBaseFile() = default;

CBaseFile::CBaseFile(const char* lpszArchiveDirectory, const char* lpszExtension, const char* lpszBaseName,
                     const char* lpszBaseTag)
    : m_pszBaseName(lpszBaseName), m_pszBaseTag(lpszBaseTag), m_pszArchiveDirectory(lpszArchiveDirectory),
      m_pszExtension(lpszExtension) {}

CBaseFile::~CBaseFile() {
    CBaseFile::Abort();
}

int CBaseFile::Open(const char* lpszPathName, int nMode, int bCreate) {
    constexpr int READING = 1;
    constexpr int WRITING = 2;
    CBaseFile::Abort();
    m_dwDataOffset = 0;
    try {
        if (nMode == READING) {
            if (!CFile::Open(lpszPathName, modeRead | typeBinary)) {
                return FALSE;
            }
            FindData();
            return TRUE;
        }
        return nMode == WRITING && OpenForWriting(lpszPathName, bCreate);
    } catch (const CFileException&) {
        CBaseFile::Abort();
        return FALSE;
    }
}

/// What is written goes into a file beside the old one, so that one begins as its copy.
bool CBaseFile::OpenForWriting(const char* lpszPathName, int bCreate) {
    CPendingVariant* const pPending = bCreate ? nullptr : CPendingVariant::Find(lpszPathName);
    CFile old;
    if (!bCreate && !pPending && !old.Open(lpszPathName, modeRead | typeBinary)) {
        return false;
    }
    if (!CReplacementFile::Open(lpszPathName)) {
        return false;
    }
    m_bWriting = true;
    if (bCreate) {
        return true;
    }
    if (pPending) {
        pPending->Write(*this);
        m_pSaving = pPending;
    } else {
        CopyFrom(old);
    }
    FindData();
    return true;
}

void CBaseFile::CopyFrom(CFile& source) {
    std::vector<BYTE> buffer(1 << 16);
    while (const UINT nRead = source.Read(buffer.data(), static_cast<UINT>(buffer.size()))) {
        Write(buffer.data(), nRead);
    }
}

/// A file that is shorter than a header holds nothing yet: it has no comment.
void CBaseFile::FindData() {
    CVariantHeader::CBytes bytes{};
    CFile::Seek(0, begin);
    Read(bytes.data(), static_cast<UINT>(bytes.size()));
    const int nComment = CVariantHeader::CommentLength(bytes);
    const std::uint64_t nOffset = CVariantHeader::SIZE + static_cast<std::uint64_t>(std::max(nComment, 0));
    if (nComment < 0 || (nComment > 0 && nOffset > GetLength())) {
        Throw(CFileException::genericException);
    }
    m_dwDataOffset = static_cast<DWORD>(nOffset);
    CFile::Seek(static_cast<std::int64_t>(nOffset), begin);
}

void CBaseFile::Close() {
    if (m_pSaving && m_pSaving->GetKind() == CPendingVariant::EKind::creating) {
        CloseNew();
    } else if (m_bWriting) {
        CReplacementFile::Close();
    } else {
        CFile::Close();
    }
    m_bWriting = false;
    m_pSaving = nullptr;
}

/// The title that the wizard has found may be somebody else's by now. Titles are five digits: a hundred
/// thousand refusals mean that all are taken.
void CBaseFile::CloseNew() {
    constexpr int TITLES = 100000;
    for (int nAttempt = 0; !CloseAsNew(m_pSaving->GetFileName().c_str()); ++nAttempt) {
        if (nAttempt == TITLES) {
            Throw(CFileException::directoryFull);
        }
        m_pSaving->TakeNextTitle();
    }
}

void CBaseFile::Abort() {
    m_bWriting = false;
    m_pSaving = nullptr;
    CReplacementFile::Abort();
}

CString CBaseFile::GetFilePath() const {
    return m_pPending ? CString(m_pPending->GetPath()) : CFile::GetFilePath();
}

int CBaseFile::GetNumber() {
    try {
        const auto nPosition = static_cast<std::int64_t>(GetPosition());
        CVariantHeader::CBytes bytes;
        CFile::Seek(0, begin);
        const UINT nRead = Read(bytes.data(), static_cast<UINT>(bytes.size()));
        CFile::Seek(nPosition, begin);
        return nRead == bytes.size() ? CVariantHeader::VariantNumber(bytes) : -1;
    } catch (const CFileException&) {
        return -1;
    }
}

std::int64_t CBaseFile::Seek(std::int64_t nOffset, UINT nFrom) {
    const std::int64_t nPosition = CReplacementFile::Seek(nOffset, nFrom);
    return nPosition < m_dwDataOffset ? CReplacementFile::Seek(m_dwDataOffset, begin) : nPosition;
}

void CBaseFile::SetLength(std::uint64_t nNewLength) {
    CReplacementFile::SetLength(std::max<std::uint64_t>(nNewLength, m_dwDataOffset));
}

int CBaseFile::IsArchiveEmpty(const char* lpszArchiveDirectory, const char* lpszExtension) {
    return CArchiveFolder(lpszArchiveDirectory, lpszExtension).IsEmpty();
}
