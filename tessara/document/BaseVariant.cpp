#include "tessara/document/BaseVariant.h"

#include "tessara/document/ArchivePlace.h"
#include "tessara/document/BaseFile.h"
#include "tessara/document/FileStamp.h"
#include "tessara/platform/files/settings/RegKey.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/DocTemplate.h"
#include "tessara/platform/ui/frames/Menu.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/windows/WaitCursor.h"

IMPLEMENT_DYNCREATE(CBaseVariant, CDocument)

namespace {

constexpr AFP_INTERFACE_ENTRY END_OF_TABLE = {END_OF_INTERFACE_ENTRIES, -1, 0, FALSE};
constexpr UINT IDP_ASK_TO_ARCHIVE = 16384;
constexpr int BUFFER_SIZE = 4096;

/// What the user's registry has for this program's archive, or an empty path.
CString ArchiveKeyPath() {
    const CWinApp* const pApp = AfxGetApp();
    return pApp && pApp->m_pszRegistryKey ? CString(pApp->m_pszRegistryKey) + "\\Archive" : CString();
}

template <class INCLUDE>
void Fill(CInterfaceItemArray& items, const AFP_INTERFACE_ENTRY* pEntry, INCLUDE include) {
    items.RemoveAll();
    for (; pEntry->nID != END_OF_INTERFACE_ENTRIES; ++pEntry) {
        if (include(*pEntry)) {
            CInterfaceItem item(*pEntry);
            items.Add(item);
        }
    }
}

} // namespace

const AFP_INTERFACE_ENTRY CBaseVariant::_input_information_Entries[] = {END_OF_TABLE};
const AFP_INTERFACE_ENTRY CBaseVariant::_output_information_Entries[] = {END_OF_TABLE};
const AFP_INPUT_INFORMATION CBaseVariant::inputInformation = {_input_information_Entries, 0};
const AFP_OUTPUT_INFORMATION CBaseVariant::outputInformation = {_output_information_Entries, 0};

CBaseVariant::CBaseVariant() = default;

const AFP_INPUT_INFORMATION* CBaseVariant::GetInputInformation() const {
    return &inputInformation;
}

const AFP_OUTPUT_INFORMATION* CBaseVariant::GetOutputInformation() const {
    return &outputInformation;
}

int CBaseVariant::IncludeInputItem(UINT, UINT) {
    return TRUE;
}

int CBaseVariant::IncludeOutputItem(UINT, UINT) {
    return TRUE;
}

int CBaseVariant::SetBaseVariant(int) {
    constexpr int NOTHING_DONE = 2;
    return NOTHING_DONE;
}

void CBaseVariant::SetBaseName() {}

void CBaseVariant::SetBaseVariantTitle() {
    const CString strNumber =
        m_nVariantNumber >= 0 ? CString(std::to_string(m_nVariantNumber + 1)) : CString("-");
    SetTitle(m_strBaseName + " (" + strNumber + ")");
}

void CBaseVariant::FillInterfaceArrays() {
    Fill(m_outputItems, GetOutputInformation()->lpEntries,
         [this](const AFP_INTERFACE_ENTRY& entry) { return IncludeOutputItem(entry.nID, entry.nParam); });
    Fill(m_inputItems, GetInputInformation()->lpEntries,
         [this](const AFP_INTERFACE_ENTRY& entry) { return IncludeInputItem(entry.nID, entry.nParam); });
}

void CBaseVariant::SetReadyToComputeFlag(int bReady) {
    m_bReadyToCompute = bReady;
    CWnd* const pMain = AfxGetMainWnd();
    if (CMenu* const pMenu = pMain ? pMain->GetMenu() : nullptr) {
        pMenu->EnableMenuItem(ID_COMPUTE_VARIANT, bReady ? MF_ENABLED : MF_GRAYED);
        pMain->DrawMenuBar();
    }
}

void CBaseVariant::GetArchiveStrings(CString& strDirectory, CString& strExtension) const {
    CString strSuffix;
    if (m_pDocTemplate) {
        m_pDocTemplate->GetDocString(strSuffix, CDocTemplate::filterExt);
    }
    strExtension = strSuffix.Mid(strSuffix.Find('.') + 1);
    strDirectory = tessara::ArchiveDirectory().c_str();
}

void CBaseVariant::SetPathName(const char* lpszPathName, BOOL bAddToMRU) {
    m_strPathName = lpszPathName;
    m_bEmbedded = FALSE;
    SetBaseVariantTitle();
    CWinApp* const pApp = AfxGetApp();
    if (bAddToMRU && pApp) {
        pApp->AddToRecentFileList(lpszPathName);
    }
    WriteLastBaseVariantFile(lpszPathName);
}

/// The document object of a window is used again for the next document, which has no file yet.
BOOL CBaseVariant::OnNewDocument() {
    m_nVariantNumber = -1;
    m_pOwnStamp = nullptr;
    return CDocument::OnNewDocument() ? TRUE : FALSE;
}

BOOL CBaseVariant::OnOpenDocument(const char* lpszPathName) {
    CBaseFile file;
    CFileException error;
    if (!file.Open(lpszPathName, 1, FALSE, &error)) {
        if (error.m_cause == CFileException::genericException) { // it is there, but damaged
            ReportSaveLoadException(lpszPathName, &error, FALSE, AFX_IDP_FAILED_TO_OPEN_DOC);
        }
        return FALSE;
    }
    m_nVariantNumber = file.GetNumber();
    DeleteContents();
    SetModifiedFlag();
    return Load(file, lpszPathName);
}

BOOL CBaseVariant::Load(CBaseFile& file, const char* lpszPathName) {
    const CWaitCursor wait;
    try {
        CArchive archive(&file, CArchive::load, BUFFER_SIZE);
        archive.m_pDocument = this;
        if (file.GetLength() != 0) {
            Serialize(archive);
        }
        archive.Close();
        file.Close();
        NoteFile(file);
    } catch (const std::exception& exception) {
        file.Abort();
        DeleteContents();
        m_nVariantNumber = -1; // what is empty now must not be saved into a file of the archive
        ReportSaveLoadException(lpszPathName, &exception, FALSE, AFX_IDP_FAILED_TO_OPEN_DOC);
        return FALSE;
    }
    SetModifiedFlag(FALSE);
    SetReadyToComputeFlag(TRUE);
    SetBaseName();
    return TRUE;
}

/// Whoever has saved a variant after this document was read from it would lose that without a word.
void CBaseVariant::CheckSameFile(const CBaseFile& file) const {
    const auto& pStamp = file.GetStamp(); // none where a wizard has asked
    if (pStamp && m_pOwnStamp && file.GetFilePath() == m_strOwnPath && *pStamp != *m_pOwnStamp) {
        throw CBaseFile::ChangedByAnother(m_strOwnPath);
    }
}

void CBaseVariant::NoteFile(const CBaseFile& file) {
    m_strOwnPath = file.GetFilePath();
    m_pOwnStamp = file.GetStamp();
}

BOOL CBaseVariant::OnSaveDocument(const char* lpszPathName) {
    CBaseFile file;
    CFileException error;
    if (!file.Open(lpszPathName, 2, FALSE, &error)) {
        if (error.m_cause != CFileException::fileNotFound) {
            ReportSaveLoadException(lpszPathName, &error, TRUE, AFX_IDP_FAILED_TO_SAVE_DOC);
        }
        return FALSE;
    }
    const int nOldNumber = m_nVariantNumber;
    m_nVariantNumber = file.GetNumber();
    const CWaitCursor wait;
    try {
        CheckSameFile(file);
        CArchive archive(&file, CArchive::store, BUFFER_SIZE);
        archive.m_pDocument = this;
        Serialize(archive);
        archive.Close();
        file.Close();
    } catch (const std::exception& exception) {
        file.Abort();
        m_nVariantNumber = nOldNumber;
        ReportSaveLoadException(lpszPathName, &exception, TRUE, AFX_IDP_FAILED_TO_SAVE_DOC);
        return FALSE;
    }
    NoteFile(file);
    SetModifiedFlag(FALSE);
    WriteLastBaseVariantFile(file.GetFilePath());
    return TRUE;
}

/// A save that fails leaves nothing behind: there is no new file before it is whole.
BOOL CBaseVariant::DoSave(const char* lpszPathName, BOOL bReplace) {
    CString strPath = m_nVariantNumber == -1 ? nullptr : lpszPathName;
    CString strDirectory;
    CString strExtension;
    GetArchiveStrings(strDirectory, strExtension);
    if (strPath.IsEmpty()) {
        SetBaseName();
    }
    CBaseFile wizard(strDirectory, strExtension, m_strBaseName, m_strBaseTag);
    const bool bAsk = strPath.IsEmpty();
    if (bAsk) {
        if (!wizard.GetBase(AfxGetMainWnd(), 2)) {
            return FALSE;
        }
        strPath = wizard.GetFilePath();
    }
    if (!OnSaveDocument(strPath)) {
        return FALSE;
    }
    if (bReplace) {
        SetPathName(bAsk ? wizard.GetFilePath() : strPath, FALSE);
    }
    return TRUE;
}

BOOL CBaseVariant::SaveModified() {
    if (!IsModified()) {
        return TRUE;
    }
    switch (AfxMessageBox(IDP_ASK_TO_ARCHIVE, MB_YESNOCANCEL | MB_ICONQUESTION, IDP_ASK_TO_ARCHIVE)) {
    case IDYES:
        return DoFileSave() ? TRUE : FALSE;
    case IDNO:
        return TRUE;
    default:
        return FALSE;
    }
}

void CBaseVariant::OnFileDelete() {
    CString strDirectory;
    CString strExtension;
    GetArchiveStrings(strDirectory, strExtension);
    if (m_nVariantNumber >= 0) {
        SetBaseName();
    } else {
        m_strBaseName.Empty();
    }
    CBaseFile wizard(strDirectory, strExtension, m_strBaseName, m_strBaseTag);
    if (wizard.DeleteBase(AfxGetMainWnd(), m_nVariantNumber)) {
        m_nVariantNumber = -1;
        WriteLastBaseVariantFile(nullptr);
        SetModifiedFlag();
        SetBaseVariantTitle();
    }
}

int CBaseVariant::SaveState() {
    m_stateFile.SeekToBegin();
    CArchive archive(&m_stateFile, CArchive::store, BUFFER_SIZE);
    Serialize(archive);
    m_bStateSaved = TRUE;
    archive.Close();
    return TRUE;
}

int CBaseVariant::RestoreState() {
    m_stateFile.SeekToBegin();
    CArchive archive(&m_stateFile, CArchive::load, BUFFER_SIZE);
    Serialize(archive);
    m_bStateSaved = FALSE;
    return TRUE;
}

void CBaseVariant::ReadLastBaseVariantFile(CString& strPath) const {
    strPath.Empty();
    const CString strKey = ArchiveKeyPath();
    CRegKey key;
    char path[260];
    unsigned long nCount = sizeof path;
    if (!strKey.IsEmpty() && key.Open(HKEY_CURRENT_USER, strKey, KEY_ALL_ACCESS) == ERROR_SUCCESS &&
        key.QueryValue(path, "LastBaseVariant", &nCount) == ERROR_SUCCESS) {
        strPath = path;
    }
}

void CBaseVariant::WriteLastBaseVariantFile(const char* lpszPathName) const {
    const CString strKey = ArchiveKeyPath();
    if (!strKey.IsEmpty()) {
        CRegKey::SetValue(HKEY_CURRENT_USER, strKey, lpszPathName ? lpszPathName : "", "LastBaseVariant");
    }
}

BEGIN_MESSAGE_MAP(CBaseVariant, CDocument)
ON_COMMAND(ID_FILE_DELETE_BASE, OnFileDelete)
END_MESSAGE_MAP()
