#include "tessara/platform/ui/controls/ControlClasses.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/windows/Styles.h"
#include "tessara/resources/FrameDialogs.h"

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

// The auxiliary dialogs.

constexpr DWORD RADIO = SHOWN | BS_AUTORADIOBUTTON;
constexpr DWORD TABLE = STOP | WS_BORDER | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS;
constexpr DWORD CHECK_LIST = LIST | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS;

constexpr CDialogItem CHOOSE_CURVES[] = {
    {CLASS_STATIC, 1016, "List of computed elements (CE)", 7, 7, 130, 8, SHOWN},
    {CLASS_LISTBOX, 100, "", 7, 18, 130, 96, LIST | LBS_SORT},
    {CLASS_BUTTON, 1014, "&Add to DE list", 7, 119, 130, 14, STOP},
    {CLASS_STATIC, 25,
     "In order to add a matrix element to DE list select it in CE list and then click appropriate button.", 7,
     139, 130, 34, SHOWN},
    {CLASS_STATIC, 1017, "List of displayed elements (DE)", 147, 7, 130, 8, SHOWN},
    {CLASS_LISTBOX, 150, "", 147, 18, 130, 96, LIST},
    {CLASS_BUTTON, 1015, "&Remove from DE list", 147, 119, 74, 14, STOP},
    {CLASS_BUTTON, 400, "&Clear DE List", 225, 119, 52, 14, STOP},
    {CLASS_STATIC, 27,
     "In order to remove an element from DE list select it there and then click appropriate button.", 147,
     139, 130, 34, SHOWN},
    {CLASS_BUTTON, IDOK, "OK", 173, 179, 50, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 227, 179, 50, 14, STOP},
};

// A label that is not shown still names the control after it for those who cannot see.
constexpr CDialogItem TEXT_IMPORT[] = {
    {CLASS_BUTTON, IDC_STATIC, "Delimiter", 7, 7, 276, 28, SHOWN | BS_GROUPBOX},
    {CLASS_BUTTON, 1013, "Semicolon", 14, 19, 52, 10, RADIO | WS_GROUP | WS_TABSTOP},
    {CLASS_BUTTON, 1014, "Comma", 70, 19, 44, 10, RADIO},
    {CLASS_BUTTON, 1016, "Space character", 118, 19, 70, 10, RADIO},
    {CLASS_BUTTON, 1015, "Tabulation character", 192, 19, 84, 10, RADIO},
    {CLASS_STATIC, IDC_STATIC, "Lines of the file", 7, 40, 60, 8, WS_GROUP},
    {CLASS_LISTVIEW, 1012, "", 7, 41, 276, 140, TABLE},
    {CLASS_STATIC, IDC_STATIC, "Start import from line:", 7, 190, 76, 8, 0},
    {CLASS_EDIT, 1020, "", 86, 188, 36, 12, WS_TABSTOP | WS_BORDER | ES_NUMBER},
    {CLASS_SPIN, 1021, "", 122, 188, 10, 12, 0},
    {CLASS_BUTTON, IDOK, "OK", 179, 187, 50, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 233, 187, 50, 14, STOP},
};

constexpr CDialogItem TUNING[] = {
    {CLASS_STATIC, IDC_STATIC, "Tuning parameters", 7, 7, 60, 8, 0},
    {CLASS_LISTBOX, 1024, "", 7, 7, 194, 84, CHECK_LIST},
    {CLASS_STATIC, 1026, "Tuning parameter &value: ", 7, 98, 90, 8, SHOWN},
    {CLASS_STATIC, 1027, "", 99, 98, 40, 8, SHOWN},
    {CLASS_STATIC, 1028, "", 7, 114, 18, 8, SHOWN | SS_RIGHT},
    {CLASS_STATIC, 1029, "", 183, 114, 18, 8, SHOWN},
    {CLASS_SLIDER, 1025, "", 28, 110, 152, 18, STOP | TBS_AUTOTICKS},
    {CLASS_BUTTON, IDOK, "OK", 7, 135, 44, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 57, 135, 44, 14, STOP},
    {CLASS_BUTTON, 3, "&Reset", 107, 135, 44, 14, STOP},
    {CLASS_BUTTON, 4, "Reset &All", 157, 135, 44, 14, STOP},
};

constexpr CDialogItem ABBREVIATIONS[] = {
    {CLASS_STATIC, IDC_STATIC, "Monomer abbreviations", 7, 7, 60, 8, 0},
    {CLASS_LISTVIEW, 1030, "", 7, 7, 210, 130, TABLE},
    {CLASS_BUTTON, 1031, "&Add...", 224, 7, 50, 14, STOP},
    {CLASS_BUTTON, 1032, "&Edit...", 224, 25, 50, 14, STOP},
    {CLASS_BUTTON, 3, "&Delete", 224, 43, 50, 14, STOP},
    {CLASS_BUTTON, IDOK, "OK", 224, 105, 50, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 224, 123, 50, 14, STOP},
};

constexpr CDialogItem ADD_ABBREVIATION[] = {
    {CLASS_STATIC, IDC_STATIC, "&Monomer name:", 7, 9, 60, 8, SHOWN},
    {CLASS_EDIT, 1032, "", 70, 7, 150, 12, LINE},
    {CLASS_STATIC, IDC_STATIC, "&Abbreviation:", 7, 26, 60, 8, SHOWN},
    {CLASS_EDIT, 1033, "", 70, 24, 150, 12, LINE},
    {CLASS_BUTTON, IDOK, "OK", 116, 44, 50, 14, STOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 170, 44, 50, 14, STOP},
};

constexpr CDialogTemplate DIALOGS[] = {
    {16384, "Save Base Variant As", 0, 0, 260, 245, WIZARD, SAVE_VARIANT},
    {16385, "Select Base", 0, 0, 210, 164, WIZARD, SELECT_BASE},
    {16386, "Load Base Variant", 0, 0, 260, 215, WIZARD, LOAD_VARIANT},
    {16387, "Delete Base", 0, 0, 210, 164, WIZARD, DELETE_BASE},
    {16388, "Delete Base Variant", 0, 0, 260, 215, WIZARD, DELETE_VARIANT},
    {16390, "Calculation", 0, 0, 220, 90, PROGRESS_WINDOW, CALCULATION},
    {16391, "Get Value", 300, 240, 109, 132, TOOL_WINDOW, CURVE_VALUE},
    {16403, "Welcome", 0, 0, 190, 124, WIZARD, WELCOME},
    {16404, "", 0, 0, 120, 80, WS_POPUP, {}},
    {16405, "Preparations", 0, 0, 180, 74, PROGRESS_WINDOW, PREPARATIONS},
    {16406, "Get Value", 0, 0, 84, 57, TOOL_WINDOW, DIAGRAM_VALUE},
    {16422, "Select Curves to Output", 0, 0, 284, 200, WIZARD, CHOOSE_CURVES},
    {16423, "Import Text", 0, 0, 290, 208, WIZARD, TEXT_IMPORT},
    {16450, "Cross Section", 0, 0, 126, 108, TOOL_WINDOW, CROSS_SECTION},
    {16451, "Get Value", 0, 0, 140, 118, TOOL_WINDOW, ELEMENT_VALUE},
    {16452, "Tuning parameters", 0, 0, 208, 156, WIZARD, TUNING},
    {16453, "Monomer abbreviations", 0, 0, 281, 144, WIZARD, ABBREVIATIONS},
    {16454, "Add Abbreviation", 0, 0, 227, 65, WIZARD, ADD_ABBREVIATION},
};

} // namespace

std::span<const tessara::CDialogTemplate> LibraryDialogs();
std::span<const tessara::CDialogTemplate> LibraryDialogs() {
    return DIALOGS;
}
