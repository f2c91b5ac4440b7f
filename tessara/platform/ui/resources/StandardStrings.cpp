#include "tessara/platform/ui/resources/StandardStrings.h"

#include <algorithm>

#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/ui/frames/Commands.h"

namespace tessara {

namespace {

constexpr CStringResource STANDARD[] = {
    {AFX_IDS_IDLEMESSAGE, "Ready"},
    {AFX_IDS_UNTITLED, "Untitled"},
    {AFX_IDS_OPENFILE, "Open"},
    {AFX_IDS_SAVEFILE, "Save As"},
    {AFX_IDS_ALLFILTER, "All files"},
    {AFX_IDP_FAILED_TO_OPEN_DOC, "The document could not be opened."},
    {AFX_IDP_FAILED_TO_SAVE_DOC, "The document could not be saved."},
    {AFX_IDP_ASK_TO_SAVE, "Save the changes to %s?"},
    {AFX_IDP_FAILED_TO_CREATE_DOC, "A new document could not be made."},
    {AFX_IDP_ASK_TO_REPLACE, "%s already exists. Replace it?"},
    {ID_FILE_NEW, "Starts a new document\nNew"},
    {ID_FILE_OPEN, "Opens a document\nOpen"},
    {ID_FILE_CLOSE, "Closes the document\nClose"},
    {ID_FILE_SAVE, "Saves the document\nSave"},
    {ID_FILE_SAVE_AS, "Saves the document under a new name\nSave As"},
    {ID_FILE_PRINT, "Prints the document\nPrint"},
    {ID_FILE_PRINT_PREVIEW, "Shows the pages as they will be printed\nPrint Preview"},
    {ID_APP_ABOUT, "Tells about the program\nAbout"},
    {ID_APP_EXIT, "Ends the program\nExit"},
    {ID_VIEW_TOOLBAR, "Shows or hides the toolbar\nToolbar"},
    {ID_VIEW_STATUS_BAR, "Shows or hides the status bar\nStatus Bar"},
};

} // namespace

CString StandardString(UINT nID) {
    if (const char* const pszText = FindStringResource(nID)) {
        return {pszText};
    }
    const auto* const pEntry = std::find_if(std::begin(STANDARD), std::end(STANDARD),
                                            [nID](const CStringResource& entry) { return entry.nID == nID; });
    return {pEntry == std::end(STANDARD) ? "" : pEntry->pszText};
}

CString StandardStringLine(UINT nID, int nLine) {
    return PartOf(StandardString(nID), nLine, '\n');
}

CString PartOf(const CString& strText, int nPart, char chSeparator) {
    std::string_view str = strText.View();
    for (; nPart > 0; --nPart) {
        const std::size_t nEnd = str.find(chSeparator);
        if (nEnd == std::string_view::npos) {
            return {};
        }
        str.remove_prefix(nEnd + 1);
    }
    return {str.substr(0, str.find(chSeparator))};
}

} // namespace tessara
