#include "tessara/document/ArchiveFolder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

#include "tessara/document/VariantHeader.h"

namespace tessara {

namespace {

constexpr std::size_t MAX_TITLE = sizeof(ARCHIVEENTRY::szFileTitle) - 1;
constexpr int NUMBER_POSITION = 3; ///< of the digits in "bas00001"
constexpr int MAX_NUMBER = 99999;

struct FolderCloser {
    void operator()(DIR* pFolder) const { closedir(pFolder); }
};
using CFolderPtr = std::unique_ptr<DIR, FolderCloser>;

CFolderPtr Entries(int nFolder) {
    CDescriptor descriptor(openat(nFolder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    CFolderPtr pFolder(descriptor ? fdopendir(descriptor.Get()) : nullptr);
    if (pFolder) {
        descriptor.Release();
    }
    return pFolder;
}

/// Whether an entry of a folder is a plain file. Few file systems do not tell that with the name.
bool IsPlainFile(int nFolder, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN) {
        return entry.d_type == DT_REG;
    }
    struct stat status;
    return fstatat(nFolder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode);
}

template <std::size_t SIZE>
void PutText(char (&text)[SIZE], const std::string& strText) {
    strText.copy(text, SIZE - 1);
}

ARCHIVEENTRY EntryOf(const std::string& strTitle, const CVariantHeader& header) {
    ARCHIVEENTRY entry{};
    PutText(entry.szFileTitle, strTitle);
    PutText(entry.szBaseName, header.strBaseName);
    PutText(entry.szBaseTag, header.strBaseTag);
    PutText(entry.szVariantName, header.strVariantName);
    entry.nVariantNumber = static_cast<short>(header.nVariantNumber);
    entry.bDeleted = static_cast<short>(header.nReserved);
    return entry;
}

bool IsBefore(const ARCHIVEENTRY& first, const ARCHIVEENTRY& second) {
    const int nBase = std::strcmp(first.szBaseName, second.szBaseName);
    if (nBase != 0 || first.nVariantNumber != second.nVariantNumber) {
        return nBase < 0 || (nBase == 0 && first.nVariantNumber < second.nVariantNumber);
    }
    return std::strcmp(first.szFileTitle, second.szFileTitle) < 0;
}

/// The number in a title, 0 without one.
int NumberOf(const char* pszTitle) {
    return std::strlen(pszTitle) <= NUMBER_POSITION ? 0 : std::atoi(pszTitle + NUMBER_POSITION);
}

std::string TitleOf(int nNumber) {
    char text[16];
    std::snprintf(text, sizeof text, "bas%05d", nNumber);
    return text;
}

std::optional<CVariantHeader> ReadHeader(const CDescriptor& file) {
    CVariantHeader::CBytes bytes;
    const ssize_t nRead =
        file ? Uninterrupted([&] { return pread(file.Get(), bytes.data(), bytes.size(), 0); }) : -1;
    return nRead == static_cast<ssize_t>(bytes.size()) ? CVariantHeader::Parse(bytes) : std::nullopt;
}

} // namespace

CArchiveFolder::CArchiveFolder(const char* lpszArchiveDirectory, const char* lpszExtension)
    : m_strDirectory(lpszArchiveDirectory ? lpszArchiveDirectory : ""),
      m_strSuffix(std::string(".") + (lpszExtension ? lpszExtension : "")),
      m_pFolder(std::make_shared<const CDescriptor>(
          open(m_strDirectory.empty() ? "." : m_strDirectory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))) {}

std::string CArchiveFolder::NameOf(const std::string& strTitle) const {
    return strTitle + m_strSuffix;
}

std::string CArchiveFolder::PathOf(const std::string& strTitle) const {
    return m_strDirectory + NameOf(strTitle);
}

std::vector<std::string> CArchiveFolder::Titles() const {
    std::vector<std::string> titles;
    const CFolderPtr pEntries = *m_pFolder ? Entries(m_pFolder->Get()) : nullptr;
    while (const dirent* const pEntry = pEntries ? readdir(pEntries.get()) : nullptr) {
        const std::string_view strName = pEntry->d_name;
        const std::size_t nTitle = strName.size() - std::min(strName.size(), m_strSuffix.size());
        if (nTitle >= 1 && nTitle <= MAX_TITLE && strName.ends_with(m_strSuffix) && strName.front() != '.' &&
            IsPlainFile(m_pFolder->Get(), *pEntry)) {
            titles.emplace_back(strName.substr(0, nTitle));
        }
    }
    return titles;
}

/// A name may lead elsewhere by now: no link is followed and no pipe waited for.
CDescriptor CArchiveFolder::OpenFile(const std::string& strTitle) const {
    return CDescriptor(Uninterrupted([&] {
        return openat(m_pFolder->Get(), NameOf(strTitle).c_str(),
                      O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    }));
}

bool CArchiveFolder::IsEmpty() const {
    return Titles().empty();
}

std::vector<ARCHIVEENTRY> CArchiveFolder::List() const {
    std::vector<ARCHIVEENTRY> entries;
    for (const std::string& strTitle : Titles()) {
        const auto header = ReadHeader(OpenFile(strTitle));
        if (header && !header->strBaseName.empty()) {
            entries.push_back(EntryOf(strTitle, *header));
        }
    }
    std::sort(entries.begin(), entries.end(), IsBefore);
    return entries;
}

bool CArchiveFolder::Has(const ARCHIVEENTRY& entry) const {
    const auto header = ReadHeader(OpenFile(entry.szFileTitle));
    return header && IsSameVariant(EntryOf(entry.szFileTitle, *header), entry);
}

std::optional<std::string> CArchiveFolder::ReadComment(const std::string& strTitle) const {
    const CDescriptor file = OpenFile(strTitle);
    const auto header = ReadHeader(file);
    if (!header) {
        return std::nullopt;
    }
    std::string strComment(static_cast<std::size_t>(header->nCommentLength), '\0');
    const ssize_t nRead = Uninterrupted(
        [&] { return pread(file.Get(), strComment.data(), strComment.size(), CVariantHeader::SIZE); });
    if (nRead < 0) {
        return std::nullopt;
    }
    strComment.resize(static_cast<std::size_t>(nRead));
    return strComment.substr(0, strComment.find('\0'));
}

bool IsSameVariant(const ARCHIVEENTRY& first, const ARCHIVEENTRY& second) {
    return std::strcmp(first.szFileTitle, second.szFileTitle) == 0 &&
           std::strcmp(first.szBaseName, second.szBaseName) == 0 &&
           first.nVariantNumber == second.nVariantNumber &&
           std::strcmp(first.szVariantName, second.szVariantName) == 0;
}

std::string NextTitle(const std::vector<ARCHIVEENTRY>& entries) {
    int nHighest = 0;
    for (const ARCHIVEENTRY& entry : entries) {
        nHighest = std::max(nHighest, NumberOf(entry.szFileTitle));
    }
    return TitleOf(nHighest % MAX_NUMBER + 1);
}

std::string TitleAfter(const std::string& strTitle) {
    return TitleOf(NumberOf(strTitle.c_str()) % MAX_NUMBER + 1);
}

} // namespace tessara
