#include "cli/view/ViewerKeysDialog.h"

#include <string_view>
#include <utility>

#include "cli/view/ViewerResources.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/windows/System.h"

namespace tessara {

namespace {

constexpr CDialogItem ITEMS[] = {
    {"SysListView32", CViewerKeysDialog::IDC_KEYS, "", 7, 7, 246, 170,
     WS_VISIBLE | WS_TABSTOP | WS_BORDER | LVS_REPORT | LVS_SINGLESEL | LVS_NOSORTHEADER},
    {"Button", IDOK, "Close", 203, 183, 50, 14, WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON}};
constexpr CDialogTemplate DIALOGS[] = {
    {IDD_VIEWER_KEYS, "Keys", 0, 0, 260, 204, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, ITEMS}};

constexpr std::pair<const char*, const char*> MOUSE[] = {
    {"Wheel", "Zoom at the pointer"},
    {"Drag (after Z)", "Zoom into the rectangle"},
    {"Click on a curve", "Read values there, with a read-out"},
    {"Right button", "Menu of the Plot"},
    {"File dropped", "Open it"}};

constexpr int MARGIN = 8; ///< pixels left free of columns

/// What a key does: the name of its command, without the key that a button's tip adds.
std::string MeaningOf(UINT nCommand) {
    const char* const pszText = FindStringResource(nCommand);
    const std::string_view str = pszText ? pszText : "";
    const std::string_view strName = str.substr(str.find('\n') + 1);
    const std::size_t nKey = strName.ends_with(')') ? strName.rfind(" (") : std::string_view::npos;
    return std::string(strName.substr(0, nKey));
}

} // namespace

CViewerKeysDialog::CViewerKeysDialog(CWnd* pOwner) : CDialog(IDD_VIEWER_KEYS, pOwner) {
    if (!FindDialogTemplate(IDD_VIEWER_KEYS)) {
        AddResources({DIALOGS, {}});
    }
}

void CViewerKeysDialog::Add(const char* pszKey, const char* pszMeaning) {
    const int nItem = m_list.InsertItem(m_list.GetItemCount(), pszKey);
    m_list.SetItemText(nItem, 1, pszMeaning);
}

void CViewerKeysDialog::AddKeys() {
    const CAcceleratorResource* const pKeys = FindAcceleratorResource(IDR_VIEWER);
    for (const CAccelerator& accelerator : pKeys->accelerators) {
        Add(KeyText(accelerator).c_str(), MeaningOf(accelerator.nCommand).c_str());
    }
}

void CViewerKeysDialog::AddMouse() {
    for (const auto& [pszAction, pszMeaning] : MOUSE) {
        Add(pszAction, pszMeaning);
    }
}

BOOL CViewerKeysDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    m_list.SubclassDlgItem(IDC_KEYS, this);
    CRect client;
    m_list.GetClientRect(&client);
    const int nRoom = client.Width() - GetSystemMetrics(SM_CXVSCROLL) - MARGIN;
    m_list.InsertColumn(0, "Key", LVCFMT_LEFT, nRoom / 3);
    m_list.InsertColumn(1, "Command", LVCFMT_LEFT, nRoom - nRoom / 3);
    AddKeys();
    AddMouse();
    return TRUE;
}

} // namespace tessara
