#include "tessara/platform/ui/dialogs/FileDialog.h"

#include "tessara/platform/ui/dialogs/FileQuestion.h"
#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/DocTemplate.h"
#include "tessara/platform/ui/resources/StandardStrings.h"
#include "tessara/platform/ui/windows/Wnd.h"

namespace tessara {

namespace {

CFileFilter AllFiles() {
    return {StandardString(AFX_IDS_ALLFILTER), "*"};
}

/// The pairs of "PNG picture (*.png)|*.png|...||".
std::vector<CFileFilter> ParseFilters(const CString& strFilter) {
    std::vector<CFileFilter> filters;
    for (int i = 0;; i += 2) {
        const CFileFilter filter{PartOf(strFilter, i, '|'), PartOf(strFilter, i + 1, '|')};
        if (filter.strText.IsEmpty() || filter.strPatterns.IsEmpty()) {
            break;
        }
        filters.push_back(filter);
    }
    if (filters.empty()) {
        filters.push_back(AllFiles());
    }
    return filters;
}

} // namespace

bool AskFileName(CString& strPath, UINT nTitleID, const CDocTemplate* pTemplate) {
    CFileQuestion question;
    question.bSave = nTitleID == AFX_IDS_SAVEFILE;
    question.strTitle = StandardString(nTitleID);
    question.strPath = strPath;
    CString strName;
    if (pTemplate && pTemplate->GetDocString(question.strDefaultExtension, CDocTemplate::filterExt)) {
        pTemplate->GetDocString(strName, CDocTemplate::filterName);
        question.filters.push_back({strName, "*" + question.strDefaultExtension});
    }
    question.filters.push_back(AllFiles());
    if (!AskFile(question)) {
        return false;
    }
    strPath = question.strPath;
    return true;
}

} // namespace tessara

CFileDialog::CFileDialog(BOOL bOpenFileDialog, const char* lpszDefExt, const char* lpszFileName,
                         DWORD dwFlags, const char* lpszFilter, CWnd* pParentWnd)
    : m_bOpen(bOpenFileDialog), m_strExtension(lpszDefExt), m_strPath(lpszFileName), m_dwFlags(dwFlags),
      m_strFilter(lpszFilter), m_pParentWnd(pParentWnd) {}

int CFileDialog::DoModal() {
    tessara::CFileQuestion question;
    question.bSave = !m_bOpen;
    question.bAskToReplace = (m_dwFlags & OFN_OVERWRITEPROMPT) != 0;
    question.strTitle = tessara::StandardString(m_bOpen ? AFX_IDS_OPENFILE : AFX_IDS_SAVEFILE);
    question.strPath = m_strPath;
    question.strDefaultExtension = m_strExtension;
    question.filters = tessara::ParseFilters(m_strFilter);
    question.hOwner = m_pParentWnd ? m_pParentWnd->GetSafeHwnd() : nullptr;
    if (!tessara::AskFile(question)) {
        return IDCANCEL;
    }
    m_strPath = question.strPath;
    return IDOK;
}

CString CFileDialog::GetFileName() const {
    return m_strPath.Mid(m_strPath.ReverseFind('/') + 1);
}

CString CFileDialog::GetFileExt() const {
    const CString strName = GetFileName();
    const int nDot = strName.ReverseFind('.');
    return nDot > 0 ? strName.Mid(nDot + 1) : CString();
}
