#include "tessara/platform/files/ReplacementFile.h"

#include <system_error>

#include "tessara/platform/files/Protection.h"
#include "tessara/platform/files/ReplacementTarget.h"
#include "tessara/platform/files/UnfinishedFile.h"

namespace tessara {

namespace {

constexpr mode_t NEW_FILE_MODE = 0666; // less the process's umask
constexpr mode_t PRIVATE_MODE = 0600;  // until it has got the old file's

} // namespace

CReplacementFile::CReplacementFile() = default;

CReplacementFile::CReplacementFile(const char* pszTarget) {
    Begin(pszTarget);
}

CReplacementFile::~CReplacementFile() {
    CReplacementFile::Abort();
}

BOOL CReplacementFile::Open(const char* pszTarget, UINT, CFileException* pError) {
    try {
        CReplacementFile::Abort();
        Begin(pszTarget);
        return TRUE;
    } catch (const CFileException& error) {
        if (pError) {
            *pError = error;
        }
        return FALSE;
    }
}

void CReplacementFile::Begin(const char* pszTarget) {
    auto pTarget = std::make_unique<CReplacementTarget>(pszTarget);
    const auto existing = pTarget->CheckedFile();
    RemoveStrays(pTarget->GetFolder());
    auto pUnfinished = std::make_unique<CUnfinishedFile>(*pTarget, existing ? PRIVATE_MODE : NEW_FILE_MODE);
    if (existing) {
        const int nError = CopyProtection(pTarget->GetEnd(), *existing, pUnfinished->GetDescriptor());
        if (nError) {
            throw pTarget->Failure(nError);
        }
    }
    Attach(pUnfinished->ReleaseDescriptor(), pszTarget);
    m_pUnfinished = std::move(pUnfinished);
    m_pTarget = std::move(pTarget);
}

void CReplacementFile::Close() {
    if (m_pTarget) {
        Finish(
            [this] {
                m_pTarget->CheckedFile(); // a folder or a link may have come there meanwhile
                m_pUnfinished->PutInPlace();
                return true;
            },
            [this](int nErrno) {
                throw m_pTarget->Failure(CFileException::hardIO,
                                         "the new content is in place, but may be lost with the power: " +
                                             std::generic_category().message(nErrno));
            });
    }
}

bool CReplacementFile::CloseAsNew(const char* pszName) {
    if (!m_pTarget) {
        Throw(CFileException::invalidFile);
    }
    return Finish([&] { return m_pUnfinished->PutInPlaceAsNew(pszName); },
                  [&](int nErrno) {
                      m_pTarget->RemoveIfSame(pszName, Descriptor());
                      throw m_pTarget->Failure(nErrno);
                  });
}

/// The file is closed after the renaming, which its lock guards; there is nothing to lose with it any more.
/// Undoing is for what has its name and may yet lose it with the power.
template <class STEP, class UNDO>
bool CReplacementFile::Finish(STEP putInPlace, UNDO undo) {
    try {
        Flush();
        if (!putInPlace()) {
            return false;
        }
        if (const int nError = m_pTarget->Sync(Descriptor())) {
            undo(nError);
        }
    } catch (...) {
        Abort();
        throw;
    }
    Abort();
    return true;
}

void CReplacementFile::Abort() {
    m_pUnfinished.reset(); // while it is locked
    CFile::Abort();
    m_pTarget.reset();
}

CFileException CReplacementFile::Failure(int nErrno) const {
    return m_pTarget ? m_pTarget->Failure(nErrno) : CFile::Failure(nErrno);
}

void CReplacementFile::RemoveUnfinished() noexcept {
    CUnfinishedFile::RemoveAll();
}

} // namespace tessara
