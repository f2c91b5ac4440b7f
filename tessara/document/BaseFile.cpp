#include "tessara/document/BaseFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <vector>

#include "tessara/document/ArchiveFolder.h"
#include "tessara/document/FileStamp.h"
#include "tessara/document/PendingVariant.h"
#include "tessara/document/VariantHeader.h"
#include "tessara/platform/files/Descriptor.h"

IMPLEMENT_DYNAMIC(CBaseFile, CFile)

using tessara::CArchiveFolder;
using tessara::CFileStamp;
using tessara::CPendingVariant;
using tessara::CReplacementFile;
using tessara::CVariantHeader;

namespace {

constexpr int READING = 1;
constexpr int WRITING = 2;

/// What is wrong with a file that has this header, in a few words; empty for nothing. Names may be any.
std::string FaultOf(const CVariantHeader::CBytes& bytes, std::uint64_t nFileLength) {
    if (!CVariantHeader::HasWholeTexts(bytes)) {
        return "a text of its header has no end";
    }
    const int nComment = CVariantHeader::CommentLength(bytes);
    const bool bWhole =
        nComment >= 0 && CVariantHeader::SIZE + static_cast<std::uint64_t>(nComment) <= nFileLength;
    return bWhole ? "" : "its comment is not whole";
}

std::shared_ptr<const CFileStamp> ShareStamp(const std::optional<CFileStamp>& stamp) {
    return stamp ? std::make_shared<const CFileStamp>(*stamp) : nullptr;
}

} // namespace

CBaseFile::CBaseFile() = default;

CBaseFile::CBaseFile(const char* lpszArchiveDirectory, const char* lpszExtension, const char* lpszBaseName,
                     const char* lpszBaseTag)
    : m_pszBaseName(lpszBaseName), m_pszBaseTag(lpszBaseTag), m_pszArchiveDirectory(lpszArchiveDirectory),
      m_pszExtension(lpszExtension) {}

CBaseFile::~CBaseFile() {
    CBaseFile::Abort();
}

int CBaseFile::Open(const char* lpszPathName, int nMode, int bCreate, CFileException* pError) {
    CBaseFile::Abort();
    m_dwDataOffset = 0;
    try {
        switch (nMode) {
        case READING:
            OpenForReading(lpszPathName ? lpszPathName : "");
            return TRUE;
        case WRITING:
            OpenForWriting(lpszPathName, bCreate);
            return TRUE;
        default:
            return FALSE;
        }
    } catch (const CFileException& error) {
        CBaseFile::Abort();
        if (pError) {
            *pError = error;
        }
        return FALSE;
    }
}

/// The opening of a pipe would wait until somebody writes into it.
void CBaseFile::OpenForReading(const char* lpszPathName) {
    const int nFile =
        tessara::Uninterrupted([&] { return open(lpszPathName, O_RDONLY | O_NONBLOCK | O_CLOEXEC); });
    const int nError = errno;
    Attach(nFile, lpszPathName);
    if (nFile < 0) {
        throw Failure(nError);
    }
    struct stat status;
    if (fstat(nFile, &status) != 0) {
        throw Failure(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        Throw(CFileException::accessDenied);
    }
    m_pStamp = ShareStamp(CFileStamp::Of(nFile));
    FindData();
}

/// What is written goes into a file beside the old one, so that one begins as its copy.
void CBaseFile::OpenForWriting(const char* lpszPathName, int bCreate) {
    CPendingVariant* const pPending = bCreate ? nullptr : CPendingVariant::Find(lpszPathName);
    CBaseFile old;
    CFileException error;
    if (pPending) {
        pPending->MakeFolder();
        m_pReplaced = ShareStamp(pPending->GetReplaced());
    } else if (!bCreate) {
        if (!old.Open(lpszPathName, READING, FALSE, &error)) {
            throw error;
        }
        m_pReplaced = m_pStamp = old.GetStamp();
    }
    if (!CReplacementFile::Open(lpszPathName, modeCreate | modeReadWrite, &error)) {
        throw error;
    }
    m_bWriting = true;
    CheckReplaced();
    if (pPending) {
        pPending->Write(*this);
        m_pSaving = pPending;
    } else if (!bCreate) {
        CopyFrom(old);
    }
    if (!bCreate) {
        FindData();
    }
}

void CBaseFile::CopyFrom(CFile& source) {
    source.CFile::Seek(0, begin);
    std::vector<BYTE> buffer(1 << 16);
    while (const UINT nRead = source.Read(buffer.data(), static_cast<UINT>(buffer.size()))) {
        Write(buffer.data(), nRead);
    }
}

/// An empty file is one that nobody has written to yet: it has no comment.
void CBaseFile::FindData() {
    CVariantHeader::CBytes bytes{};
    CFile::Seek(0, begin);
    const UINT nRead = Read(bytes.data(), static_cast<UINT>(bytes.size()));
    if (nRead != 0) {
        const std::string strFault =
            nRead < bytes.size() ? "its header is not whole" : FaultOf(bytes, GetLength());
        if (!strFault.empty()) {
            CFileException error(CFileException::genericException, -1, GetFilePath());
            static_cast<CException&>(error) = CException(std::string(GetFilePath()) + ": " + strFault);
            throw error;
        }
    }
    m_dwDataOffset =
        static_cast<DWORD>(CVariantHeader::SIZE) + static_cast<DWORD>(CVariantHeader::CommentLength(bytes));
    CFile::Seek(m_dwDataOffset, begin);
}

/// Another program's work is not replaced unseen. Where it has removed the file, there is nothing to lose.
void CBaseFile::CheckReplaced() const {
    const auto now = m_pReplaced ? CFileStamp::At(CFile::GetFilePath()) : std::nullopt;
    if (now && *now != *m_pReplaced) {
        throw ChangedByAnother(CFile::GetFilePath());
    }
}

CFileException CBaseFile::ChangedByAnother(const char* lpszPathName) {
    CFileException failure(CFileException::sharingViolation, -1, lpszPathName);
    static_cast<CException&>(failure) =
        CException(std::string(lpszPathName) +
                   ": another program has changed this variant meanwhile; save it as another one");
    return failure;
}

void CBaseFile::Close() {
    const auto written = m_bWriting ? CFileStamp::Of(Descriptor()) : std::nullopt;
    if (m_pSaving && m_pSaving->GetKind() == CPendingVariant::EKind::creating) {
        CloseNew();
    } else if (m_bWriting) {
        CloseReplacing();
    } else {
        CFile::Close();
    }
    m_pStamp = written ? ShareStamp(written) : m_pStamp;
    m_bWriting = false;
    m_pSaving = nullptr;
    m_pReplaced = nullptr;
}

void CBaseFile::CloseReplacing() {
    try {
        Flush(); // takes its time: look after it
        CheckReplaced();
    } catch (...) {
        Abort();
        throw;
    }
    CReplacementFile::Close();
}

/// The title that the wizard has found may be somebody else's by now. Titles are five digits: a hundred
/// thousand refusals mean that all are taken.
void CBaseFile::CloseNew() {
    CPendingVariant& saving = *m_pSaving; // forgotten when the file is closed
    constexpr int TITLES = 100000;
    for (int nAttempt = 0; !CloseAsNew(saving.GetFileName().c_str()); ++nAttempt) {
        if (nAttempt == TITLES) {
            Throw(CFileException::directoryFull);
        }
        saving.TakeNextTitle();
    }
    SetFilePath(saving.GetPath().c_str());
}

void CBaseFile::Abort() {
    m_bWriting = false;
    m_pSaving = nullptr;
    m_pReplaced = nullptr;
    m_pStamp = nullptr;
    CReplacementFile::Abort();
}

CString CBaseFile::GetFilePath() const {
    return m_pPending ? CString(m_pPending->GetPath()) : CFile::GetFilePath();
}

int CBaseFile::GetNumber() {
    // Reading that moved the position and failed before it came back would put the data over the header.
    try {
        CVariantHeader::CBytes bytes;
        const ssize_t nRead =
            tessara::Uninterrupted([&] { return pread(Descriptor(), bytes.data(), bytes.size(), 0); });
        return nRead == static_cast<ssize_t>(bytes.size()) ? CVariantHeader::VariantNumber(bytes) : -1;
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
