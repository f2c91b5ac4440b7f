#include "tessara/platform/files/UnfinishedFile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>

#include "tessara/platform/files/ReplacementTarget.h"

namespace tessara {

/// What a signal handler must know to remove an unfinished file. Entries are never freed, only used again: a
/// handler may look at one at any time. What it puts together from an old number and a new folder names
/// nothing, for numbers are random.
class CUnfinishedEntry {
public:
    static CUnfinishedEntry& Take(int nFolder);
    static void RemoveAll() noexcept;

    std::uint64_t GetNumber() const { return m_nNumber; }
    void SetNumber(std::uint64_t nNumber) { m_nNumber = nNumber; }
    void Forget() { m_nNumber = 0; }
    void Remove() noexcept;
    void GiveBack();

private:
    static std::atomic<CUnfinishedEntry*> s_pFirst;

    std::atomic<bool> m_bTaken{true};
    std::atomic<int> m_nFolder{-1};
    std::atomic<std::uint64_t> m_nNumber{0}; ///< 0 for none
    CUnfinishedEntry* m_pNext = nullptr;
};

static_assert(std::atomic<std::uint64_t>::is_always_lock_free &&
              std::atomic<CUnfinishedEntry*>::is_always_lock_free);

std::atomic<CUnfinishedEntry*> CUnfinishedEntry::s_pFirst{nullptr};

CUnfinishedEntry& CUnfinishedEntry::Take(int nFolder) {
    CUnfinishedEntry* pEntry = s_pFirst;
    while (pEntry && pEntry->m_bTaken.exchange(true)) {
        pEntry = pEntry->m_pNext;
    }
    if (!pEntry) {
        pEntry = new CUnfinishedEntry;
        pEntry->m_pNext = s_pFirst;
        while (!s_pFirst.compare_exchange_weak(pEntry->m_pNext, pEntry)) {
        }
    }
    pEntry->m_nFolder = nFolder;
    return *pEntry;
}

void CUnfinishedEntry::GiveBack() {
    Forget();
    m_bTaken = false;
}

void CUnfinishedEntry::Remove() noexcept {
    if (const std::uint64_t nNumber = m_nNumber) {
        unlinkat(m_nFolder, CTemporaryName(nNumber).Get(), 0);
    }
}

void CUnfinishedEntry::RemoveAll() noexcept {
    for (CUnfinishedEntry* pEntry = s_pFirst; pEntry; pEntry = pEntry->m_pNext) {
        pEntry->Remove();
    }
}

namespace {

std::uint64_t RandomNumber() {
    std::random_device random;
    const std::uint64_t nNumber = (std::uint64_t{random()} << 32) | random();
    return nNumber ? nNumber : 1;
}

/// Whether the new file is ours to keep. Between its creation and its lock somebody who looks for strays may
/// have taken it for one. Where the file system has no locks, strays are never removed.
bool Hold(int nFile) {
    if (Uninterrupted([&] { return flock(nFile, LOCK_EX | LOCK_NB); }) != 0) {
        return errno != EWOULDBLOCK;
    }
    struct stat status;
    return fstat(nFile, &status) == 0 && status.st_nlink > 0;
}

} // namespace

CUnfinishedFile::CUnfinishedFile(const CReplacementTarget& target, mode_t nMode)
    : m_target(target), m_entry(CUnfinishedEntry::Take(target.GetFolder())) {
    constexpr int MAX_ATTEMPTS = 100;
    for (int nAttempt = 0; nAttempt < MAX_ATTEMPTS; ++nAttempt) {
        if (Create(nMode)) {
            return;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    const int nErrno = errno;
    m_entry.GiveBack();
    throw target.Failure(nErrno);
}

/// Returns false with errno EEXIST where another name may do. The number is noted first, so that a signal
/// finds the file at any time.
bool CUnfinishedFile::Create(mode_t nMode) {
    m_entry.SetNumber(RandomNumber());
    m_descriptor = CDescriptor(Uninterrupted([&] {
        return openat(m_target.GetFolder(), GetName().Get(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, nMode);
    }));
    if (!m_descriptor) {
        m_entry.Forget();
        return false;
    }
    if (!Hold(m_descriptor.Get())) {
        m_entry.Remove();
        m_descriptor = CDescriptor();
        errno = EEXIST;
        return false;
    }
    return true;
}

CUnfinishedFile::~CUnfinishedFile() {
    m_entry.Remove();
    m_entry.GiveBack();
}

CTemporaryName CUnfinishedFile::GetName() const {
    return CTemporaryName(m_entry.GetNumber());
}

void CUnfinishedFile::PutInPlace() {
    const int nFolder = m_target.GetFolder();
    if (renameat(nFolder, GetName().Get(), nFolder, m_target.GetName()) != 0) {
        ThrowRefusal(errno);
    }
    m_entry.Forget();
}

bool CUnfinishedFile::PutInPlaceAsNew(const char* pszName) {
    const int nFolder = m_target.GetFolder();
    int nResult = renameat2(nFolder, GetName().Get(), nFolder, pszName, RENAME_NOREPLACE);
    if (nResult != 0 &&
        (errno == EINVAL || errno == ENOSYS)) { // a file system that cannot look and rename at once
        nResult = linkat(nFolder, GetName().Get(), nFolder, pszName, 0);
        if (nResult == 0) {
            m_entry.Remove(); // the other name stays
        }
    }
    if (nResult != 0 && errno != EEXIST) {
        ThrowRefusal(errno);
    }
    if (nResult == 0) {
        m_entry.Forget();
    }
    return nResult == 0;
}

void CUnfinishedFile::ThrowRefusal(int nErrno) const {
    struct stat folder;
    if (nErrno == ENOENT && fstat(m_target.GetFolder(), &folder) == 0 && folder.st_nlink > 0) {
        throw m_target.Failure(CFileException::fileNotFound,
                               "cannot be written: somebody removed the unfinished file");
    }
    throw m_target.Failure(nErrno);
}

void CUnfinishedFile::RemoveAll() noexcept {
    CUnfinishedEntry::RemoveAll();
}

} // namespace tessara
