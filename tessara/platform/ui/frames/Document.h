#pragma once

#include <exception>
#include <vector>

#include "tessara/platform/base/String.h"
#include "tessara/platform/ui/threads/CmdTarget.h"
#include "tessara/platform/ui/threads/MessageMap.h"

class CDocTemplate;
class CFrameWnd;
class CView;
struct POSITION_TAG;
using POSITION = POSITION_TAG*; ///< a place in a list; null past its end

/// A program's data, shown by views and kept in a file. A program derives its own and says what is written
/// and read in Serialize.
///
/// A document belongs to its template, which makes and deletes it, and to the main thread.
class TESSARA_API CDocument : public CCmdTarget {
    DECLARE_DYNAMIC(CDocument)

public:
    CDocument();
    ~CDocument() override;

    const CString& GetTitle() const { return m_strTitle; }
    virtual void SetTitle(const char* pszTitle);
    const CString& GetPathName() const { return m_strPathName; }
    /// Sets the path, absolute, and the title, which is its last part.
    virtual void SetPathName(const char* lpszPathName, BOOL bAddToMRU = TRUE);
    CDocTemplate* GetDocTemplate() const { return m_pDocTemplate; }
    virtual BOOL IsModified() { return m_bModified; }
    virtual void SetModifiedFlag(BOOL bModified = TRUE);

    // Views

    void AddView(CView* pView);
    void RemoveView(CView* pView);
    virtual POSITION GetFirstViewPosition() const;
    virtual CView* GetNextView(POSITION& rPosition) const;
    /// Tells each view but the sender to show what has changed.
    void UpdateAllViews(CView* pSender, LPARAM lHint = 0, CObject* pHint = nullptr);
    /// Called when a view has come or gone. The default deletes the document after its last view, with
    /// m_bAutoDelete.
    virtual void OnChangedViewList();

    // Life of the content; nonzero for success. Failures have been reported.

    virtual void DeleteContents();
    virtual BOOL OnNewDocument();
    /// Reads a file through Serialize. After a failure the document is empty.
    virtual BOOL OnOpenDocument(const char* lpszPathName);
    /// Writes a file through Serialize. The file is replaced as a whole when all is on the disk; whatever
    /// fails leaves it as it was.
    virtual BOOL OnSaveDocument(const char* lpszPathName);
    /// Closes the document's frames and deletes it, without asking.
    virtual void OnCloseDocument();
    /// Asks what is to become of unsaved changes; zero when the user wants to go on with the document.
    virtual BOOL SaveModified();
    virtual BOOL CanCloseFrame(CFrameWnd* pFrame);
    /// Saves under a name, asking for one when it is null or empty. The document gets the name with bReplace.
    virtual BOOL DoSave(const char* lpszPathName, BOOL bReplace = TRUE);
    /// Saves under the document's name; where it has none, or may not write that file, asks for one.
    virtual BOOL DoFileSave();
    /// Shows why loading or saving failed, after a standard text.
    virtual void ReportSaveLoadException(const char* lpszPathName, const std::exception* pException,
                                         BOOL bSaving, UINT nIDPDefault);

    BOOL OnCmdMsg(UINT nID, UINT nCode, void* pExtra) override;

    void OnFileClose();
    void OnFileSave();
    void OnFileSaveAs();

    BOOL m_bAutoDelete = TRUE; ///< the document goes with its last view

protected:
    DECLARE_MESSAGE_MAP()

    CString m_strTitle;
    CString m_strPathName;
    CDocTemplate* m_pDocTemplate = nullptr;
    BOOL m_bModified = FALSE;
    BOOL m_bEmbedded = FALSE;

private:
    friend class CDocTemplate;
    void UpdateFrameTitles();
    CFrameWnd* GetFirstFrame() const;

    std::vector<CView*> m_views;
};
