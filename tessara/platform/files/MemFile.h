#pragma once

#include <span>
#include <vector>

#include "tessara/platform/files/File.h"

/// A file in memory, open for reading and writing from its construction and empty then.
///
/// It behaves as CFile does, except that a lack of memory throws CMemoryException and leaves the bytes as
/// they were, that it cannot be opened on a path, and that closing it drops its bytes and leaves it empty and
/// usable.
///
///     CMemFile file;
///     file.Write("abc", 3);
///     file.SeekToBegin();
class TESSARA_API CMemFile : public CFile {
    DECLARE_DYNAMIC(CMemFile)

public:
    /// nGrowBytes is what is reserved with the first write; the memory then grows by doubling.
    explicit CMemFile(UINT nGrowBytes = 1024);
    ~CMemFile() override;

    /// The bytes written so far; valid until the next Write, SetLength or Close.
    std::span<const BYTE> GetBuffer() const { return m_bytes; }

    /// Always 0: there is no path to open (invalidFile).
    BOOL Open(const char* pszFileName, UINT nOpenFlags, CFileException* pError = nullptr) override;
    void Close() override;
    void Abort() override;
    UINT Read(void* pBuffer, UINT nCount) override;
    void Write(const void* pBuffer, UINT nCount) override;
    void Flush() override;
    bool HasLength() const override { return true; }
    std::int64_t Seek(std::int64_t nOffset, UINT nFrom) override;
    std::uint64_t GetPosition() const override;
    std::uint64_t GetLength() const override;
    void SetLength(std::uint64_t nNewLength) override;

private:
    std::vector<BYTE> m_bytes;
    std::uint64_t m_nPosition = 0; ///< may lie beyond the end
    UINT m_nGrowBytes;
};
