#include "cli/TextFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "cli/InputError.h"

namespace tessara {

namespace {

constexpr std::size_t MAX_FILE_BYTES = std::size_t{512} << 20;
constexpr std::size_t BLOCK_BYTES = std::size_t{1} << 18;

[[noreturn]] void ThrowUnreadable(const std::string& strPath) {
    throw CInputError(strPath, 0, 0, std::string("cannot be read: ") + std::strerror(errno));
}

/// An open file descriptor for reading.
class CDescriptor {
public:
    explicit CDescriptor(const std::string& strPath) : m_nFile(open(strPath.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~CDescriptor() {
        if (m_nFile >= 0) {
            close(m_nFile);
        }
    }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;
    int Get() const { return m_nFile; }

private:
    int m_nFile;
};

void CheckIsNoFolder(int nFile, const std::string& strPath) {
    struct stat status {};
    if (fstat(nFile, &status) != 0) {
        ThrowUnreadable(strPath);
    }
    if (S_ISDIR(status.st_mode)) {
        throw CInputError(strPath, 0, 0, "is a folder, not a file");
    }
}

/// One block at the end of strText; false at the end of the file. Endless devices stop at their first NUL
/// byte or at the greatest size.
bool ReadBlock(int nFile, const std::string& strPath, std::vector<char>& block, std::string& strText) {
    ssize_t nRead = 0;
    do {
        nRead = read(nFile, block.data(), block.size());
    } while (nRead < 0 && errno == EINTR);
    if (nRead < 0) {
        ThrowUnreadable(strPath);
    }
    const std::string_view strBlock(block.data(), static_cast<std::size_t>(nRead));
    if (strBlock.find('\0') != std::string_view::npos) {
        throw CInputError(strPath, 0, 0, "holds binary data (a NUL byte), not text");
    }
    strText += strBlock;
    if (strText.size() > MAX_FILE_BYTES) {
        throw CInputError(strPath, 0, 0, "is too large (more than 512 MiB)");
    }
    return nRead > 0;
}

} // namespace

std::string ReadTextFile(const std::string& strPath) {
    const CDescriptor file(strPath);
    if (file.Get() < 0) {
        ThrowUnreadable(strPath);
    }
    CheckIsNoFolder(file.Get(), strPath);
    std::vector<char> block(BLOCK_BYTES);
    std::string strText;
    while (ReadBlock(file.Get(), strPath, block, strText)) {
    }
    if (strText.starts_with("\xEF\xBB\xBF")) {
        strText.erase(0, 3);
    }
    if (strText.empty()) {
        throw CInputError(strPath, 0, 0, "is empty");
    }
    return strText;
}

std::string FileStem(const std::string& strPath) {
    const std::string strFile = strPath.substr(strPath.rfind('/') + 1);
    const std::size_t nDot = strFile.rfind('.');
    return nDot == std::string::npos || nDot == 0 ? strFile : strFile.substr(0, nDot);
}

bool CLineReader::Next() {
    while (!m_strRest.empty()) {
        TakeLine();
        const std::size_t nFirst = m_strLine.find_first_not_of(" \t");
        if (nFirst != std::string_view::npos && m_strLine[nFirst] != '#') {
            return true;
        }
    }
    return false;
}

void CLineReader::TakeLine() {
    const std::size_t nEnd = m_strRest.find_first_of("\r\n");
    m_strLine = m_strRest.substr(0, nEnd);
    m_nNumber++;
    if (nEnd == std::string_view::npos) {
        m_strRest = {};
    } else {
        m_strRest.remove_prefix(nEnd + (m_strRest.substr(nEnd, 2) == "\r\n" ? 2 : 1));
    }
}

} // namespace tessara
