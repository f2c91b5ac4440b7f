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

constexpr CDialogTemplate DIALOGS[] = {
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
