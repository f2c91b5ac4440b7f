#pragma once

#include <memory>

#include "tessara/platform/files/ReplacementFile.h"
#include "tessara/platform/ui/windows/Wnd.h"

namespace tessara {
class CPendingVariant;
struct CFileStamp;
} // namespace tessara

/// A Base Variant file: a header, a comment, and the data of a document. And the wizards in which the user
/// picks one of an archive, which is a folder of such files.
///
/// Positions are those of the file; Seek and SetLength keep away from header and comment. Opened for writing,
/// the file on the disk is the old one until Close, whole, and the new one afterwards; without Close what was
/// written is thrown away. A variant that another program has put there, or written, since the wizard chose
/// it or it was opened, stays: opening and closing fail. Main thread.
///
///     CBaseFile file(strDirectory, "bva", "PS-CH", "ab");
///     if (file.GetBase(pFrame, 2)) {                 // where to, and under which name
///         CBaseFile variant;
///         if (variant.Open(file.GetFilePath(), 2, FALSE)) {
///             variant.Write(...);
///             variant.Close();                       // file.GetFilePath() tells where it is
///         }
///     }
class TESSARA_API CBaseFile : public tessara::CReplacementFile {
    DECLARE_DYNAMIC(CBaseFile)

public:
    CBaseFile();
    /// For the wizards. The directory ends in a slash, the extension has no dot. All four are borrowed: they
    /// outlive the object.
    CBaseFile(const char* lpszArchiveDirectory, const char* lpszExtension, const char* lpszBaseName,
              const char* lpszBaseTag);
    ~CBaseFile() override;

    int m_nVariantNumber = -1; ///< what the last load or save wizard chose, from 0
    DWORD m_dwDataOffset = 0;  ///< where the document's data begin, in bytes
    const char* m_pszBaseName = nullptr;
    const char* m_pszBaseTag = nullptr;
    const char* m_pszArchiveDirectory = nullptr;
    const char* m_pszExtension = nullptr;

    /// Opens a file and goes to the document's data: nMode 1 for reading, 2 for reading and writing.
    /// Signature and version are not looked at. With bCreate the file is to become an empty one, without a
    /// header.
    ///
    /// After a save wizard of this process, opening the path that it gave for writing begins the new variant:
    /// its header and comment are there. Where somebody else has taken a new variant's file by the time it is
    /// closed, it gets the next number, and the wizard's GetFilePath tells which.
    ///
    /// Returns zero when the file cannot be opened or is no plain one, and when its header is cut short, has
    /// a text without an end, or a comment that does not lie within the file, with the reason in pError if
    /// given. An empty file is opened: nothing is missing in it yet. A symbolic link is followed.
    int Open(const char* lpszPathName, int nMode, int bCreate, CFileException* pError = nullptr);
    void Close() override;
    void Abort() override;

    /// The path that was opened, or where the last wizard's choice lies.
    CString GetFilePath() const;

    /// Runs the load wizard (nMode 1) or the save wizard (2) over a window. Nonzero when the user has chosen:
    /// GetFilePath and m_nVariantNumber tell what. After the save wizard nothing has changed on the disk yet;
    /// opening that path for writing saves it, as long as this object lives.
    int GetBase(CWnd* pParent, int nMode);
    /// Runs the delete wizard. nCurrentNumber is the variant in which the document lies, -1 for none. Nonzero
    /// when that variant or its whole Base was deleted. Throws CFileException when a file cannot be removed.
    int DeleteBase(CWnd* pParent, int nCurrentNumber);

    /// Which file was opened to be read or changed, and after Close which one was written; null for none. A
    /// variant that a wizard has chosen has no file before it is closed.
    const std::shared_ptr<const tessara::CFileStamp>& GetStamp() const { return m_pStamp; }

    /// The variant number in the header; -1 when it cannot be read. The position stays.
    int GetNumber();

    std::int64_t Seek(std::int64_t nOffset, UINT nFrom) override;
    void SeekToBegin() { Seek(0, begin); }
    void SetLength(std::uint64_t nNewLength) override;

    /// What is thrown where another program has changed a variant.
    static CFileException ChangedByAnother(const char* lpszPathName);

    static int IsArchiveEmpty(const char* lpszArchiveDirectory, const char* lpszExtension);

private:
    using CReplacementFile::Open;
    int GetBaseLoad(CWnd* pParent);
    int GetBaseSave(CWnd* pParent);
    void OpenForReading(const char* lpszPathName);
    void OpenForWriting(const char* lpszPathName, int bCreate);
    void CopyFrom(CFile& source);
    void FindData();
    void CloseNew();
    void CloseReplacing();
    void CheckReplaced() const;

    bool m_bWriting = false;
    tessara::CPendingVariant* m_pSaving = nullptr; ///< the wizard's, while this file is its variant
    std::unique_ptr<tessara::CPendingVariant> m_pPending;
    std::shared_ptr<const tessara::CFileStamp> m_pStamp;
    std::shared_ptr<const tessara::CFileStamp> m_pReplaced; ///< what may be replaced, null for a new file
};
