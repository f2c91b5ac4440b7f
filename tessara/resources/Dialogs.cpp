#include "tessara/platform/ui/controls/ControlClasses.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/windows/Styles.h"

// The library's dialogs.

namespace {

using namespace tessara;

constexpr DWORD TOOL_WINDOW = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
constexpr DWORD SHOWN = WS_VISIBLE;
constexpr DWORD STOP = WS_VISIBLE | WS_TABSTOP;
constexpr DWORD DRAWN_LIST = SHOWN | WS_BORDER | WS_VSCROLL | LBS_OWNERDRAWFIXED | LBS_NOTIFY |
                             LBS_NOINTEGRALHEIGHT | LBS_DISABLENOSCROLL;

constexpr CDialogItem CURVE_VALUE[] = {
    {CLASS_STATIC, 138, "Argument:", 3, 9, 46, 8, SHOWN | SS_CENTER},
    {CLASS_EDIT, 144, "", 54, 7, 38, 12, STOP | WS_BORDER | ES_AUTOHSCROLL},
    {CLASS_STATIC, 141, "%", 97, 9, 8, 8, SHOWN},
    {CLASS_LISTBOX, 183, "", 4, 23, 101, 87, DRAWN_LIST | LBS_NOSEL},
    {CLASS_BUTTON, 10, "Get Value", 4, 115, 101, 14, STOP | BS_DEFPUSHBUTTON},
};

constexpr CDialogItem DIAGRAM_VALUE[] = {
    {CLASS_LISTBOX, 1008, "", 4, 4, 76, 48, DRAWN_LIST | LBS_NOSEL},
};

constexpr CDialogItem ELEMENT_VALUE[] = {
    {CLASS_LISTBOX, 1008, "", 4, 4, 132, 109, DRAWN_LIST | LBS_NOSEL},
};

constexpr CDialogItem CROSS_SECTION[] = {
    {CLASS_STATIC, IDC_STATIC,
     "Please select the parameter whose value you want to be used for calclulation of the cross-section", 4,
     4, 118, 24, SHOWN},
    {CLASS_LISTBOX, 1008, "", 7, 32, 112, 53, DRAWN_LIST | WS_TABSTOP},
    {CLASS_BUTTON, IDOK, "Calculate the cross section", 4, 90, 118, 14, STOP | BS_DEFPUSHBUTTON},
};

// The dialogs of an archive of Bases.

constexpr DWORD WIZARD = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER;
constexpr DWORD LIST = STOP | WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
constexpr DWORD LINE = STOP | WS_BORDER | ES_AUTOHSCROLL;
constexpr DWORD NOTES = STOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;

constexpr CDialogItem SELECT_BASE[] = {
    {CLASS_STATIC, IDC_STATIC, "Bases, available from the archive.", 7, 7, 196, 8, SHOWN},
    {CLASS_LISTBOX, 104, "", 7, 18, 196, 118, LIST},
    {CLASS_BUTTON, 105, "Next >>", 99, 143, 50, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 153, 143, 50, 14, STOP},
};

constexpr CDialogItem LOAD_VARIANT[] = {
    {CLASS_STATIC, IDC_STATIC, "Base:", 7, 7, 20, 8, SHOWN},
    {CLASS_STATIC, 106, "", 30, 7, 223, 8, SHOWN | SS_NOPREFIX},
    {CLASS_STATIC, IDC_STATIC, "Available variants", 7, 21, 246, 8, SHOWN},
    {CLASS_LISTBOX, 107, "", 7, 31, 246, 92, LIST},
    {CLASS_STATIC, IDC_STATIC, "Comments to currently selected variant", 7, 129, 246, 8, SHOWN},
    {CLASS_EDIT, 108, "", 7, 139, 246, 48, NOTES | ES_READONLY},
    {CLASS_BUTTON, 113, "<< Previous", 95, 194, 50, 14, STOP},
    {CLASS_BUTTON, IDOK, "Load", 149, 194, 50, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 203, 194, 50, 14, STOP},
};

// The name comes first: whoever saves has it in mind, and the free line is chosen already.
constexpr CDialogItem SAVE_VARIANT[] = {
    {CLASS_STATIC, IDC_STATIC, "Base:", 7, 7, 20, 8, SHOWN},
    {CLASS_STATIC, 106, "", 30, 7, 223, 8, SHOWN | SS_NOPREFIX},
    {CLASS_STATIC, 115, "Variant Number: 1", 7, 21, 246, 8, SHOWN},
    {CLASS_STATIC, IDC_STATIC, "Variant Name (up to 16 symbols):", 7, 36, 124, 8, SHOWN},
    {CLASS_EDIT, 111, "", 133, 34, 120, 12, LINE},
    {CLASS_STATIC, IDC_STATIC, "Available variants", 7, 51, 246, 8, SHOWN},
    {CLASS_LISTBOX, 107, "", 7, 61, 246, 92, LIST},
    {CLASS_STATIC, IDC_STATIC, "Comments to the variant", 7, 159, 246, 8, SHOWN},
    {CLASS_EDIT, 108, "", 7, 169, 246, 48, NOTES},
    {CLASS_BUTTON, IDOK, "Save", 149, 224, 50, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 203, 224, 50, 14, STOP},
};

constexpr CDialogItem DELETE_BASE[] = {
    {CLASS_STATIC, IDC_STATIC, "Bases, available from the archive.", 7, 7, 196, 8, SHOWN},
    {CLASS_LISTBOX, 104, "", 7, 18, 196, 118, LIST},
    {CLASS_BUTTON, 105, "Next >>", 45, 143, 50, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, 3, "Delete Base", 99, 143, 50, 14, STOP},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 153, 143, 50, 14, STOP},
};

constexpr CDialogItem DELETE_VARIANT[] = {
    {CLASS_STATIC, IDC_STATIC, "Base:", 7, 7, 20, 8, SHOWN},
    {CLASS_STATIC, 106, "", 30, 7, 223, 8, SHOWN | SS_NOPREFIX},
    {CLASS_STATIC, IDC_STATIC, "Available variants", 7, 21, 246, 8, SHOWN},
    {CLASS_LISTBOX, 107, "", 7, 31, 246, 92, LIST},
    {CLASS_STATIC, IDC_STATIC, "Comments to currently selected variant", 7, 129, 246, 8, SHOWN},
    {CLASS_EDIT, 108, "", 7, 139, 246, 48, NOTES | ES_READONLY},
    {CLASS_BUTTON, 113, "<< Previous", 95, 194, 50, 14, STOP},
    {CLASS_BUTTON, 3, "Delete", 149, 194, 50, 14, STOP},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 203, 194, 50, 14, STOP},
};

constexpr CDialogTemplate DIALOGS[] = {
    {16384, "Save Base Variant As", 0, 0, 260, 245, WIZARD, SAVE_VARIANT},
    {16385, "Select Base", 0, 0, 210, 164, WIZARD, SELECT_BASE},
    {16386, "Load Base Variant", 0, 0, 260, 215, WIZARD, LOAD_VARIANT},
    {16387, "Delete Base", 0, 0, 210, 164, WIZARD, DELETE_BASE},
    {16388, "Delete Base Variant", 0, 0, 260, 215, WIZARD, DELETE_VARIANT},
    {16391, "Get Value", 300, 240, 109, 132, TOOL_WINDOW, CURVE_VALUE},
    {16406, "Get Value", 0, 0, 84, 57, TOOL_WINDOW, DIAGRAM_VALUE},
    {16450, "Cross Section", 0, 0, 126, 108, TOOL_WINDOW, CROSS_SECTION},
    {16451, "Get Value", 0, 0, 140, 118, TOOL_WINDOW, ELEMENT_VALUE},
};

} // namespace

std::span<const tessara::CDialogTemplate> LibraryDialogs();
std::span<const tessara::CDialogTemplate> LibraryDialogs() {
    return DIALOGS;
}
