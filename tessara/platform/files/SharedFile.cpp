#include "tessara/platform/files/SharedFile.h"

#include <algorithm>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>

#include "tessara/platform/files/Descriptor.h"
#include "tessara/platform/files/FileLock.h"
#include "tessara/platform/files/ReplacementFile.h"

namespace tessara {

namespace {

constexpr std::size_t READ_BYTES = 65536;

void ReadAll(int nFile, const char* pszPath, std::string& strBytes) {
    for (ssize_t nRead = 1; nRead > 0;) {
        const std::size_t nOld = strBytes.size();
        strBytes.resize(nOld + READ_BYTES);
        nRead = Uninterrupted([&] { return read(nFile, strBytes.data() + nOld, READ_BYTES); });
        strBytes.resize(nOld + static_cast<std::size_t>(std::max<ssize_t>(nRead, 0)));
        if (nRead < 0) {
            throw CFileException::FromErrno(errno, pszPath);
        }
    }
}

bool IsUtf16(std::string_view strBytes) {
    return strBytes.starts_with("\xFF\xFE") || strBytes.starts_with("\xFE\xFF");
}

void WriteAll(CFile& file, std::string_view strBytes) {
    while (!strBytes.empty()) {
        const auto nCount = static_cast<UINT>(std::min<std::size_t>(strBytes.size(), UINT_MAX));
        file.Write(strBytes.data(), nCount);
        strBytes.remove_prefix(nCount);
    }
}

} // namespace

std::string CSharedFile::Read() const {
    const char* pszPath = m_strPath.c_str();
    std::string strBytes;
    // A pipe of that name must not stop the program.
    const CDescriptor file(Uninterrupted([&] { return open(pszPath, O_RDONLY | O_CLOEXEC | O_NONBLOCK); }));
    if (!file) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return strBytes;
        }
        throw CFileException::FromErrno(errno, pszPath);
    }
    struct stat status;
    if (fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        AfxThrowFileException(CFileException::accessDenied, -1, pszPath);
    }
    WithMemoryException([&] { ReadAll(file.Get(), pszPath, strBytes); });
    if (IsUtf16(strBytes)) {
        AfxThrowFileException(CFileException::invalidFile, -1, pszPath);
    }
    return strBytes;
}

void CSharedFile::Update(const std::function<void(std::string&)>& change) const {
    const CFileLock lock(m_strPath);
    const std::string strOld = Read();
    std::string strNew = strOld;
    change(strNew);
    if (strNew == strOld) {
        return;
    }
    CReplacementFile file(m_strPath.c_str());
    WriteAll(file, strNew);
    file.Close();
}

} // namespace tessara
