#include "tessara/platform/ui/frames/Document.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <set>
#include <unistd.h>

#include "tessara/platform/base/Archive.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/ReplacementFile.h"
#include "tessara/platform/ui/dialogs/FileQuestion.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/DocTemplate.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/frames/View.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/resources/StandardStrings.h"
#include "tessara/platform/ui/windows/WaitCursor.h"

IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)

namespace {

CString AbsolutePath(const char* pszPath) {
    std::error_code error;
    const auto path = std::filesystem::absolute(pszPath, error).lexically_normal();
    return error ? CString(pszPath) : CString(path.c_str());
}

CString LastPart(const CString& strPath) {
    return strPath.Mid(strPath.ReverseFind('/') + 1);
}

/// What a title offers as a file name.
CString ToFileName(const CString& strTitle, const CString& strExtension) {
    CString strName = strTitle;
    for (int i = 0; i < strName.GetLength(); ++i) {
        if (strName[i] == '/' || strName[i] == '\n') {
            strName.SetAt(i, '_');
        }
    }
    return strName.Right(strExtension.GetLength()) == strExtension ? strName : strName + strExtension;
}

} // namespace

CDocument::CDocument() = default;

CDocument::~CDocument() {
    const auto views = std::move(m_views);
    for (CView* const pView : views) {
        pView->m_pDocument = nullptr;
    }
    if (m_pDocTemplate) {
        m_pDocTemplate->RemoveDocument(this);
    }
}

void CDocument::SetTitle(const char* pszTitle) {
    m_strTitle = pszTitle;
    UpdateFrameTitles();
}

void CDocument::SetPathName(const char* lpszPathName, BOOL bAddToMRU) {
    m_strPathName = AbsolutePath(lpszPathName);
    m_bEmbedded = FALSE;
    SetTitle(LastPart(m_strPathName));
    CWinApp* const pApp = AfxGetApp();
    if (bAddToMRU && pApp) {
        pApp->AddToRecentFileList(m_strPathName);
    }
}

void CDocument::SetModifiedFlag(BOOL bModified) {
    if ((m_bModified != 0) != (bModified != 0)) {
        m_bModified = bModified;
        UpdateFrameTitles();
    }
}

void CDocument::AddView(CView* pView) {
    m_views.push_back(pView);
    pView->m_pDocument = this;
    OnChangedViewList();
}

void CDocument::RemoveView(CView* pView) {
    std::erase(m_views, pView);
    pView->m_pDocument = nullptr;
    OnChangedViewList(); // may delete this document
}

// A position is the number of the next view, from 1.
POSITION CDocument::GetFirstViewPosition() const {
    return reinterpret_cast<POSITION>(std::uintptr_t{m_views.empty() ? 0U : 1U});
}

CView* CDocument::GetNextView(POSITION& rPosition) const {
    const auto nView = reinterpret_cast<std::uintptr_t>(rPosition);
    rPosition = reinterpret_cast<POSITION>(nView < m_views.size() ? nView + 1 : 0);
    return nView >= 1 && nView <= m_views.size() ? m_views[nView - 1] : nullptr;
}

void CDocument::UpdateAllViews(CView* pSender, LPARAM lHint, CObject* pHint) {
    const auto views = m_views;
    for (CView* const pView : views) {
        if (pView != pSender) {
            pView->OnUpdate(pSender, lHint, pHint);
        }
    }
}

void CDocument::OnChangedViewList() {
    if (m_views.empty() && m_bAutoDelete) {
        OnCloseDocument();
    } else {
        UpdateFrameTitles();
    }
}

void CDocument::UpdateFrameTitles() {
    std::set<CFrameWnd*> frames;
    for (const CView* const pView : m_views) {
        CFrameWnd* const pFrame = pView->GetParentFrame();
        if (pFrame && frames.insert(pFrame).second) {
            pFrame->OnUpdateFrameTitle(TRUE);
        }
    }
}

CFrameWnd* CDocument::GetFirstFrame() const {
    for (const CView* const pView : m_views) {
        if (CFrameWnd* const pFrame = pView->GetParentFrame()) {
            return pFrame;
        }
    }
    return nullptr;
}

void CDocument::DeleteContents() {}

BOOL CDocument::OnNewDocument() {
    DeleteContents();
    m_strPathName.Empty();
    SetModifiedFlag(FALSE);
    return TRUE;
}

BOOL CDocument::OnOpenDocument(const char* lpszPathName) {
    const CWaitCursor wait;
    CFile file;
    CFileException error;
    if (!file.Open(lpszPathName, CFile::modeRead | CFile::shareDenyWrite, &error)) {
        ReportSaveLoadException(lpszPathName, &error, FALSE, AFX_IDP_FAILED_TO_OPEN_DOC);
        return FALSE;
    }
    DeleteContents();
    SetModifiedFlag();
    try {
        CArchive archive(&file, CArchive::load);
        archive.m_pDocument = this;
        if (file.GetLength() != 0) {
            Serialize(archive);
        }
        archive.Close();
    } catch (const std::exception& exception) {
        file.Abort();
        DeleteContents();
        ReportSaveLoadException(lpszPathName, &exception, FALSE, AFX_IDP_FAILED_TO_OPEN_DOC);
        return FALSE;
    }
    SetModifiedFlag(FALSE);
    return TRUE;
}

BOOL CDocument::OnSaveDocument(const char* lpszPathName) {
    const CWaitCursor wait;
    try {
        tessara::CReplacementFile file(lpszPathName);
        CArchive archive(&file, CArchive::store);
        archive.m_pDocument = this;
        Serialize(archive);
        archive.Close();
        file.Close();
    } catch (const std::exception& exception) {
        ReportSaveLoadException(lpszPathName, &exception, TRUE, AFX_IDP_FAILED_TO_SAVE_DOC);
        return FALSE;
    }
    SetModifiedFlag(FALSE);
    return TRUE;
}

void CDocument::OnCloseDocument() {
    const BOOL bAutoDelete = m_bAutoDelete;
    m_bAutoDelete = FALSE; // the end of the views does not come back here
    CFrameWnd* pFrame = GetFirstFrame();
    while (pFrame && pFrame->DestroyWindow()) { // not again one whose end this is part of
        pFrame = GetFirstFrame();
    }
    m_bAutoDelete = bAutoDelete;
    DeleteContents();
    if (m_bAutoDelete) {
        delete this;
    }
}

BOOL CDocument::SaveModified() {
    if (!IsModified()) {
        return TRUE;
    }
    CString strQuestion = tessara::StandardString(AFX_IDP_ASK_TO_SAVE);
    const int nName = strQuestion.Find("%s");
    if (nName >= 0) {
        strQuestion = strQuestion.Left(nName) + m_strTitle + strQuestion.Mid(nName + 2);
    }
    switch (AfxMessageBox(strQuestion, MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return DoFileSave();
    case IDNO:
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL CDocument::CanCloseFrame(CFrameWnd* pFrame) {
    // Only the last frame of the document takes it away.
    const bool bOther = std::any_of(m_views.begin(), m_views.end(), [pFrame](const CView* pView) {
        return pView->GetParentFrame() && pView->GetParentFrame() != pFrame;
    });
    return bOther || SaveModified();
}

BOOL CDocument::DoSave(const char* lpszPathName, BOOL bReplace) {
    CString strPath = lpszPathName;
    if (strPath.IsEmpty()) {
        CString strExtension;
        if (m_pDocTemplate) {
            m_pDocTemplate->GetDocString(strExtension, CDocTemplate::filterExt);
        }
        strPath = m_strPathName.IsEmpty() ? ToFileName(m_strTitle, strExtension) : m_strPathName;
        if (!tessara::AskFileName(strPath, AFX_IDS_SAVEFILE, m_pDocTemplate)) {
            return FALSE;
        }
    }
    if (!OnSaveDocument(strPath)) {
        return FALSE;
    }
    if (bReplace) {
        SetPathName(strPath);
    }
    return TRUE;
}

BOOL CDocument::DoFileSave() {
    const bool bWritable = !m_strPathName.IsEmpty() && access(m_strPathName, W_OK) == 0;
    return DoSave(bWritable ? m_strPathName.View().data() : nullptr);
}

void CDocument::ReportSaveLoadException(const char* lpszPathName, const std::exception* pException, BOOL,
                                        UINT nIDPDefault) {
    CString strText = tessara::StandardString(nIDPDefault) + "\n" + lpszPathName;
    if (pException) {
        strText += CString("\n") + pException->what();
    }
    AfxMessageBox(strText, MB_OK | MB_ICONEXCLAMATION);
}

BOOL CDocument::OnCmdMsg(UINT nID, UINT nCode, void* pExtra) {
    return CCmdTarget::OnCmdMsg(nID, nCode, pExtra) ||
           (m_pDocTemplate && m_pDocTemplate->OnCmdMsg(nID, nCode, pExtra));
}

void CDocument::OnFileClose() {
    if (SaveModified()) {
        OnCloseDocument();
    }
}

void CDocument::OnFileSave() {
    DoFileSave();
}

void CDocument::OnFileSaveAs() {
    DoSave(nullptr);
}

BEGIN_MESSAGE_MAP(CDocument, CCmdTarget)
ON_COMMAND(ID_FILE_CLOSE, OnFileClose)
ON_COMMAND(ID_FILE_SAVE, OnFileSave)
ON_COMMAND(ID_FILE_SAVE_AS, OnFileSaveAs)
END_MESSAGE_MAP()
