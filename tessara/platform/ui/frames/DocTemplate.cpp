#include "tessara/platform/ui/frames/DocTemplate.h"

#include <memory>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/Document.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/frames/View.h"
#include "tessara/platform/ui/resources/StandardStrings.h"
#include "tessara/platform/ui/threads/WinThread.h"

IMPLEMENT_DYNAMIC(CDocTemplate, CCmdTarget)
IMPLEMENT_DYNAMIC(CSingleDocTemplate, CDocTemplate)

namespace {

/// An object of a class that must be creatable by name.
template <class CLASS>
std::unique_ptr<CLASS> MakeObject(const CRuntimeClass* pClass, const CRuntimeClass* pBase) {
    std::unique_ptr<CObject> pObject(pClass ? pClass->CreateObject() : nullptr);
    if (!pObject || !pObject->IsKindOf(pBase)) {
        AfxThrowResourceException();
    }
    return std::unique_ptr<CLASS>(static_cast<CLASS*>(pObject.release()));
}

} // namespace

CDocTemplate::CDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
                           CRuntimeClass* pViewClass)
    : m_nIDResource(nIDResource), m_pDocClass(pDocClass), m_pFrameClass(pFrameClass),
      m_pViewClass(pViewClass) {}

CDocTemplate::~CDocTemplate() = default;

BOOL CDocTemplate::GetDocString(CString& rString, DocStringIndex index) const {
    rString = tessara::StandardStringLine(m_nIDResource, index);
    return !rString.IsEmpty();
}

void CDocTemplate::AddDocument(CDocument* pDocument) {
    pDocument->m_pDocTemplate = this;
}

void CDocTemplate::RemoveDocument(CDocument* pDocument) {
    pDocument->m_pDocTemplate = nullptr;
}

void CDocTemplate::SetDefaultTitle(CDocument* pDocument) {
    CString strName;
    if (!GetDocString(strName, docName)) {
        strName = tessara::StandardString(AFX_IDS_UNTITLED);
    }
    pDocument->SetTitle(strName);
}

BOOL CDocTemplate::SaveAllModified() {
    CDocument* const pDocument = GetOpenDocument();
    return !pDocument || pDocument->SaveModified();
}

void CDocTemplate::CloseAllDocuments(BOOL) {
    if (CDocument* const pDocument = GetOpenDocument()) {
        pDocument->OnCloseDocument();
    }
}

CDocument* CDocTemplate::CreateNewDocument() {
    auto pDocument = MakeObject<CDocument>(m_pDocClass, RUNTIME_CLASS(CDocument));
    AddDocument(pDocument.get());
    return pDocument.release();
}

CFrameWnd* CDocTemplate::CreateNewFrame(CDocument* pDocument, CFrameWnd*) {
    CCreateContext context{m_pViewClass, pDocument, this};
    auto pFrame = MakeObject<CFrameWnd>(m_pFrameClass, RUNTIME_CLASS(CFrameWnd));
    const DWORD dwStyle = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE;
    const BOOL bMade = pFrame->LoadFrame(m_nIDResource, dwStyle, nullptr, &context);
    CFrameWnd* const pMade = pFrame.release(); // it deletes itself with its window, which may have failed
    return bMade ? pMade : nullptr;
}

void CDocTemplate::InitialUpdateFrame(CFrameWnd* pFrame, CDocument* pDocument, BOOL bMakeVisible) {
    pFrame->InitialUpdateFrame(pDocument, bMakeVisible);
}

CSingleDocTemplate::CSingleDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
                                       CRuntimeClass* pViewClass)
    : CDocTemplate(nIDResource, pDocClass, pFrameClass, pViewClass) {}

CSingleDocTemplate::~CSingleDocTemplate() {
    delete m_pOnlyDoc; // one that never got a view
}

void CSingleDocTemplate::AddDocument(CDocument* pDocument) {
    CDocTemplate::AddDocument(pDocument);
    m_pOnlyDoc = pDocument;
}

void CSingleDocTemplate::RemoveDocument(CDocument* pDocument) {
    CDocTemplate::RemoveDocument(pDocument);
    m_pOnlyDoc = nullptr;
}

void CSingleDocTemplate::SetDefaultTitle(CDocument* pDocument) {
    CDocTemplate::SetDefaultTitle(pDocument);
}

/// Gives a document its content and its name. Zero when that failed.
BOOL CSingleDocTemplate::FillDocument(CDocument* pDocument, const char* lpszPathName) {
    if (!lpszPathName) {
        SetDefaultTitle(pDocument);
        return pDocument->OnNewDocument();
    }
    const BOOL bWasModified = pDocument->IsModified();
    pDocument->SetModifiedFlag(FALSE);
    if (pDocument->OnOpenDocument(lpszPathName)) {
        pDocument->SetPathName(lpszPathName);
        return TRUE;
    }
    if (!pDocument->IsModified()) {
        pDocument->SetModifiedFlag(bWasModified); // nothing was touched
        return FALSE;
    }
    SetDefaultTitle(pDocument); // it was emptied before the failure
    pDocument->OnNewDocument();
    return FALSE;
}

/// A new document in a new, hidden frame, or null.
CFrameWnd* CSingleDocTemplate::MakeDocumentAndFrame() {
    std::unique_ptr<CDocument> pDocument(CreateNewDocument());
    pDocument->m_bAutoDelete = FALSE; // it outlives a view that could not be made
    CFrameWnd* const pFrame = CreateNewFrame(pDocument.get(), nullptr);
    pDocument->m_bAutoDelete = TRUE;
    if (!pFrame) {
        AfxMessageBox(tessara::StandardString(AFX_IDP_FAILED_TO_CREATE_DOC));
        return nullptr;
    }
    (void)pDocument.release(); // goes with its last view
    return pFrame;
}

CDocument* CSingleDocTemplate::OpenDocumentFile(const char* lpszPathName, BOOL bMakeVisible) {
    const bool bNew = !m_pOnlyDoc;
    if (!bNew && !m_pOnlyDoc->SaveModified()) {
        return nullptr;
    }
    CWnd* const pMain = AfxGetMainWnd();
    const bool bFrame = !bNew && pMain && pMain->IsKindOf(RUNTIME_CLASS(CFrameWnd));
    CFrameWnd* const pFrame = bNew     ? MakeDocumentAndFrame()
                              : bFrame ? static_cast<CFrameWnd*>(pMain)
                                       : nullptr;
    if (bNew && !pFrame) {
        return nullptr;
    }
    if (!FillDocument(m_pOnlyDoc, lpszPathName)) {
        if (bNew) {
            pFrame->DestroyWindow(); // the document goes with its view
        }
        return nullptr;
    }
    CWinThread* const pThread = AfxGetThread();
    if (bNew && pThread && !pThread->m_pMainWnd) {
        pThread->m_pMainWnd = pFrame;
    }
    if (pFrame) {
        InitialUpdateFrame(pFrame, m_pOnlyDoc, bMakeVisible);
    }
    return m_pOnlyDoc;
}
