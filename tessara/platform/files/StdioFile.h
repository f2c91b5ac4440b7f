#pragma once

#include <optional>
#include <vector>

#include "tessara/platform/files/File.h"

/// A file of lines of text.
///
/// Unless it was opened with typeBinary, CR LF at the end of a line is read as LF, whoever wrote the file,
/// and a UTF-8 byte order mark in front is not read as text; with typeBinary only LF ends a line and all
/// bytes count. A lone CR is an ordinary character both ways. Lines may have any length, and zero bytes in
/// them. WriteString writes bytes as they are, and Read and Write are those of CFile. Reading and writing may
/// be mixed; the position is where the next line begins. Errors and threads as for CFile.
///
///     CStdioFile file("measured.txt", CFile::modeRead);
///     CString strLine;
///     while (file.ReadString(strLine)) {
///         Add(strLine);
///     }
class TESSARA_API CStdioFile : public CFile {
    DECLARE_DYNAMIC(CStdioFile)

public:
    CStdioFile();
    CStdioFile(const char* pszFileName, UINT nOpenFlags);
    ~CStdioFile() override;

    /// Reads a line without its end; the last line may have none. Returns 0 at the end of the file, where the
    /// string is empty.
    virtual BOOL ReadString(CString& strLine);
    /// Reads up to nMax - 1 bytes of a line into a buffer, its LF included, with a zero after them. Returns
    /// the buffer, or null at the end of the file, where the buffer is left alone, and for nMax 0.
    virtual char* ReadString(char* pszBuffer, UINT nMax);
    /// Writes a string, with no line end of its own.
    virtual void WriteString(const char* psz);

    BOOL Open(const char* pszFileName, UINT nOpenFlags, CFileException* pError = nullptr) override;
    void Close() override;
    void Abort() override;
    UINT Read(void* pBuffer, UINT nCount) override;
    void Write(const void* pBuffer, UINT nCount) override;
    std::int64_t Seek(std::int64_t nOffset, UINT nFrom) override;
    std::uint64_t GetPosition() const override;
    void SetLength(std::uint64_t nNewLength) override;

private:
    void Begin(UINT nOpenFlags);
    bool Fill();
    std::optional<char> Next();
    void GiveBack();
    std::size_t Unread() const { return m_bytes.size() - m_nNext; }

    bool m_bText = true;
    std::vector<char> m_bytes; ///< read ahead
    std::size_t m_nNext = 0;   ///< the first of them that has not been given
};
