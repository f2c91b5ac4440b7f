#include "tessara/document/ArchiveFolder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <sys/stat.h>
#include <system_error>

#include "tessara/document/VariantHeader.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/FolderEntries.h"

namespace tessara {

namespace {

constexpr std::size_t MAX_TITLE = sizeof(ARCHIVEENTRY::szFileTitle) - 1;
constexpr int NUMBER_POSITION = 3; ///< of the digits in "bas00001"
constexpr int MAX_NUMBER = 99999;

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

/// Whether the file has a whole header.
bool ReadBytes(const CDescriptor& file, CVariantHeader::CBytes& bytes) {
    return file && Uninterrupted([&] { return pread(file.Get(), bytes.data(), bytes.size(), 0); }) ==
                       static_cast<ssize_t>(bytes.size());
}

std::optional<CVariantHeader> HeaderOf(const CDescriptor& file) {
    CVariantHeader::CBytes bytes;
    return ReadBytes(file, bytes) ? CVariantHeader::Parse(bytes) : std::nullopt;
}

} // namespace

CArchiveFolder::CArchiveFolder(const char* lpszArchiveDirectory, const char* lpszExtension)
    : m_strDirectory(lpszArchiveDirectory ? lpszArchiveDirectory : ""),
      m_strSuffix(std::string(".") + (lpszExtension ? lpszExtension : "")),
      m_pFolder(std::make_shared<const CDescriptor>(Uninterrupted([&] {
          return open(m_strDirectory.empty() ? "." : m_strDirectory.c_str(),
                      O_RDONLY | O_DIRECTORY | O_CLOEXEC);
      }))) {}

CArchiveFolder CArchiveFolder::Anew() const {
    return {m_strDirectory.c_str(), m_strSuffix.c_str() + 1};
}

void CArchiveFolder::Remove(const ARCHIVEENTRY& entry) const {
    const std::string strName = NameOf(entry.szFileTitle);
    if (unlinkat(m_pFolder->Get(), strName.c_str(), 0) != 0 && errno != ENOENT) {
        throw CFileException::FromErrno(errno, PathOf(entry.szFileTitle).c_str());
    }
}

std::string CArchiveFolder::NameOf(const std::string& strTitle) const {
    return strTitle + m_strSuffix;
}

std::string CArchiveFolder::PathOf(const std::string& strTitle) const {
    return m_strDirectory + NameOf(strTitle);
}

/// The names of the extension, whatever has them.
std::vector<std::string> CArchiveFolder::Names() const {
    std::vector<std::string> names;
    const CFolderPtr pEntries = *m_pFolder ? EntriesOf(m_pFolder->Get()) : nullptr;
    while (const dirent* const pEntry = pEntries ? readdir(pEntries.get()) : nullptr) {
        if (std::string_view(pEntry->d_name).ends_with(m_strSuffix)) {
            names.emplace_back(pEntry->d_name);
        }
    }
    return names;
}

std::vector<std::string> CArchiveFolder::Titles() const {
    std::vector<std::string> titles;
    const CFolderPtr pEntries = *m_pFolder ? EntriesOf(m_pFolder->Get()) : nullptr;
    while (const dirent* const pEntry = pEntries ? readdir(pEntries.get()) : nullptr) {
        const std::string_view strName = pEntry->d_name;
        if (strName.ends_with(m_strSuffix) && IsTitle(strName) && IsPlainFile(m_pFolder->Get(), *pEntry)) {
            titles.emplace_back(strName.substr(0, strName.size() - m_strSuffix.size()));
        }
    }
    return titles;
}

bool CArchiveFolder::IsTitle(std::string_view strName) const {
    const std::size_t nTitle = strName.size() - m_strSuffix.size();
    return nTitle >= 1 && nTitle <= MAX_TITLE && strName.front() != '.';
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
        const auto header = HeaderOf(OpenFile(strTitle));
        if (header) {
            entries.push_back(EntryOf(strTitle, *header));
        }
    }
    std::sort(entries.begin(), entries.end(), IsBefore);
    return entries;
}

bool CArchiveFolder::Has(const ARCHIVEENTRY& entry) const {
    const auto header = HeaderOf(OpenFile(entry.szFileTitle));
    return header && IsSameVariant(EntryOf(entry.szFileTitle, *header), entry);
}

std::optional<CVariantHeader> CArchiveFolder::ReadHeader(const std::string& strTitle) const {
    return HeaderOf(OpenFile(strTitle));
}

std::optional<std::string> CArchiveFolder::ReadComment(const std::string& strTitle) const {
    const CDescriptor file = OpenFile(strTitle);
    const auto header = HeaderOf(file);
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

std::string CArchiveFolder::FaultOf(const std::string& strName) const {
    struct stat status;
    if (fstatat(m_pFolder->Get(), strName.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return std::generic_category().message(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return "is not a plain file";
    }
    if (!IsTitle(strName)) {
        return "has no title of 1 to 8 characters";
    }
    const CDescriptor file = OpenFile(strName.substr(0, strName.size() - m_strSuffix.size()));
    if (!file) {
        return "cannot be read: " + std::generic_category().message(errno);
    }
    CVariantHeader::CBytes bytes;
    if (!ReadBytes(file, bytes)) {
        return "is shorter than a header";
    }
    const std::string strFault = CVariantHeader::Fault(bytes);
    const auto nComment = static_cast<std::size_t>(std::max(CVariantHeader::CommentLength(bytes), 0));
    return !strFault.empty() || CVariantHeader::SIZE + nComment <= static_cast<std::size_t>(status.st_size)
               ? strFault
               : "ends before its comment does";
}

std::vector<CArchiveFinding> CArchiveFolder::Check() const {
    std::map<std::string, std::string> faults;
    for (const std::string& strName : Names()) {
        faults[strName] = FaultOf(strName);
    }
    const std::vector<ARCHIVEENTRY> entries = List();
    for (std::size_t i = 1; i < entries.size(); ++i) {
        const ARCHIVEENTRY& first = entries[i - 1];
        const ARCHIVEENTRY& second = entries[i];
        if (std::strcmp(first.szBaseName, second.szBaseName) == 0 &&
            first.nVariantNumber == second.nVariantNumber) {
            std::string& strFault = faults[NameOf(second.szFileTitle)];
            strFault =
                strFault.empty() ? "has the Base and number of " + NameOf(first.szFileTitle) : strFault;
        }
    }
    std::vector<CArchiveFinding> findings;
    for (const auto& [strName, strFault] : faults) {
        findings.push_back({strName, strFault});
    }
    return findings;
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
