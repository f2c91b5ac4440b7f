#pragma once

#include "tessara/platform/base/String.h"
#include "tessara/platform/ui/threads/CmdTarget.h"

class CDocument;
class CFrameWnd;
class CView;
class CDocTemplate;

/// What a frame and its view are made from.
struct CCreateContext {
    CRuntimeClass* m_pNewViewClass = nullptr;
    CDocument* m_pCurrentDoc = nullptr;
    CDocTemplate* m_pNewDocTemplate = nullptr;
};

/// Brings together the classes of a document, its frame and its view, and makes them.
///
/// A string resource of the template's number holds texts separated by line feeds (DocStringIndex); the menu,
/// accelerators and icon of that number are the frame's.
class TESSARA_API CDocTemplate : public CCmdTarget {
    DECLARE_DYNAMIC(CDocTemplate)

public:
    enum DocStringIndex {
        windowTitle, ///< of the frame
        docName,     ///< of a new document
        fileNewName, ///< of the kind of document
        filterName,  ///< of the kind of file: "Curves (*.crv)"
        filterExt,   ///< ".crv"
        regFileTypeId,
        regFileTypeName
    };

    CDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
                 CRuntimeClass* pViewClass);
    ~CDocTemplate() override;

    UINT GetResourceID() const { return m_nIDResource; }
    /// Nonzero when the text exists.
    BOOL GetDocString(CString& rString, DocStringIndex index) const;

    /// Opens a file, or makes a new document with a null path, and shows it. Null when that failed or the
    /// user did not want to leave the current document.
    virtual CDocument* OpenDocumentFile(const char* lpszPathName, BOOL bMakeVisible = TRUE) = 0;
    virtual void AddDocument(CDocument* pDocument);
    virtual void RemoveDocument(CDocument* pDocument);
    /// The document that is open, or null.
    virtual CDocument* GetOpenDocument() const = 0;
    virtual void SetDefaultTitle(CDocument* pDocument);
    /// Asks about unsaved changes; zero when the user wants to go on.
    virtual BOOL SaveAllModified();
    virtual void CloseAllDocuments(BOOL bEndSession);

    /// Throws CResourceException where the class cannot be made by name.
    virtual CDocument* CreateNewDocument();
    /// A hidden frame with a view of the document. Null when a window could not be made.
    virtual CFrameWnd* CreateNewFrame(CDocument* pDocument, CFrameWnd* pOther);
    virtual void InitialUpdateFrame(CFrameWnd* pFrame, CDocument* pDocument, BOOL bMakeVisible = TRUE);

protected:
    UINT m_nIDResource;
    CRuntimeClass* m_pDocClass;
    CRuntimeClass* m_pFrameClass;
    CRuntimeClass* m_pViewClass;
};

/// A template of programs that show one document at a time, in the main frame.
class TESSARA_API CSingleDocTemplate : public CDocTemplate {
    DECLARE_DYNAMIC(CSingleDocTemplate)

public:
    CSingleDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
                       CRuntimeClass* pViewClass);
    ~CSingleDocTemplate() override;

    CDocument* OpenDocumentFile(const char* lpszPathName, BOOL bMakeVisible = TRUE) override;
    void AddDocument(CDocument* pDocument) override;
    void RemoveDocument(CDocument* pDocument) override;
    CDocument* GetOpenDocument() const override { return m_pOnlyDoc; }
    void SetDefaultTitle(CDocument* pDocument) override;

protected:
    CDocument* m_pOnlyDoc = nullptr;

private:
    CFrameWnd* MakeDocumentAndFrame();
    BOOL FillDocument(CDocument* pDocument, const char* lpszPathName);
};
