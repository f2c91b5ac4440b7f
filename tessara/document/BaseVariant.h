#pragma once

#include <memory>

#include "tessara/document/InterfaceItem.h"
#include "tessara/platform/files/MemFile.h"
#include "tessara/platform/ui/frames/Document.h"

class CBaseFile;
namespace tessara {
struct CFileStamp;
}

constexpr UINT ID_FILE_DELETE_BASE = 17664; ///< deletes Bases and variants
constexpr UINT ID_COMPUTE_VARIANT = 17920;  ///< greyed while the document is not ready

/// A document that lives in an archive of Bases: the input and the results of a calculation, as one variant
/// of a Base. Saving asks for a place in the Base, not for a file name.
///
/// A program derives its document, writes and reads its data in Serialize, names the Base in SetBaseName, and
/// declares what it offers to show in its two tables. The archive is the folder "Archive" beside the
/// executable, or below the user's data folder where the executable's cannot be written; its files end in
/// the template's extension.
///
/// A variant is never half saved: until a save is whole and on the disk, the old one is what a reader finds.
/// Main thread.
///
///     class CMyDocument : public CBaseVariant {
///         DECLARE_DYNCREATE(CMyDocument)
///         void SetBaseName() override { m_strBaseName = m_strPolymer + "-" + m_strSolvent; }
///         void Serialize(CArchive& ar) override { ... }
///     };
class TESSARA_API CBaseVariant : public CDocument {
    DECLARE_DYNCREATE(CBaseVariant)

public:
    CString m_strBaseName;     ///< at most 128 bytes are stored
    CString m_strBaseTag;      ///< at most 2 bytes are stored
    int m_nVariantNumber = -1; ///< in its Base, from 0; -1 without a file in the archive
    CInterfaceItemArray m_inputItems;
    CInterfaceItemArray m_outputItems;
    BOOL m_bReadyToCompute = FALSE;
    BOOL m_bStateSaved = FALSE; ///< a snapshot has been taken and not yet given back
    CMemFile m_stateFile{1024};

    static const AFP_INPUT_INFORMATION inputInformation;
    static const AFP_OUTPUT_INFORMATION outputInformation;

    /// Makes the arrays of items anew from the tables, first the output's. The document is asked about each.
    void FillInterfaceArrays();

    /// Enables the command ID_COMPUTE_VARIANT in the main window's menu, or greys it.
    void SetReadyToComputeFlag(int bReady);
    int IsReadyToCompute() const { return m_bReadyToCompute; }

    /// The archive of this kind of document: its folder, with a slash at its end, and the extension of its
    /// files, without a dot.
    void GetArchiveStrings(CString& strDirectory, CString& strExtension) const;

    /// The variant that was last opened or saved, empty for none. Failures are silent.
    void ReadLastBaseVariantFile(CString& strPath) const;
    void WriteLastBaseVariantFile(const char* lpszPathName) const;

    // For the derived class

    virtual int IncludeInputItem(UINT nID, UINT nParam);  ///< DEFAULT: nonzero
    virtual int IncludeOutputItem(UINT nID, UINT nParam); ///< DEFAULT: nonzero
    /// Called with 0 when the user wants a new variant in the welcome dialog. DEFAULT: does nothing, returns
    /// 2.
    virtual int SetBaseVariant(int nChoice);
    /// Sets m_strBaseName and m_strBaseTag from the document's data. DEFAULT: does nothing.
    virtual void SetBaseName();
    /// Makes the title "NAME (NUMBER)", or "NAME (-)" without a file.
    virtual void SetBaseVariantTitle();
    virtual const AFP_INPUT_INFORMATION* GetInputInformation() const;
    virtual const AFP_OUTPUT_INFORMATION* GetOutputInformation() const;

    // The framework's

    void SetPathName(const char* lpszPathName, BOOL bAddToMRU = TRUE) override;
    BOOL OnNewDocument() override;
    /// Reads a variant. A file that cannot be opened returns zero in silence; what is damaged is told. A
    /// damaged header leaves the document as it was, damaged data leave it empty and without a file.
    BOOL OnOpenDocument(const char* lpszPathName) override;
    /// Writes the data into a variant's file, behind its header and comment. Its length stays when the data
    /// have become shorter. A file that is not there returns zero in silence; every other failure is told,
    /// and that another program has changed the file since this document was opened from it or saved there.
    BOOL OnSaveDocument(const char* lpszPathName) override;
    BOOL SaveModified() override;
    /// Saves into the document's own file, or asks for a place in the archive when lpszPathName is null or
    /// the document has no file.
    BOOL DoSave(const char* lpszPathName, BOOL bReplace = TRUE) override;

protected:
    CBaseVariant();

    /// Keeps the document's data in memory, and gives them back.
    int SaveState();
    int RestoreState();

    void OnFileDelete();
    DECLARE_MESSAGE_MAP()

    static const AFP_INTERFACE_ENTRY _input_information_Entries[];
    static const AFP_INTERFACE_ENTRY _output_information_Entries[];

private:
    void CheckSameFile(const CBaseFile& file) const;
    void NoteFile(const CBaseFile& file);
    BOOL Load(CBaseFile& file, const char* lpszPathName);

    CString m_strOwnPath;                                   ///< of the file last opened or saved
    std::shared_ptr<const tessara::CFileStamp> m_pOwnStamp; ///< which it was then
};
