#pragma once

#include "tessara/platform/ui/controls/ControlClasses.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tessara/platform/ui/windows/Styles.h"

// The dialogs of the application frame: those of a calculation, the welcome and the logotype.

namespace tessara {

constexpr DWORD PROGRESS_WINDOW = WS_POPUP | WS_CAPTION | WS_VISIBLE | DS_MODALFRAME;

constexpr CDialogItem CALCULATION[] = {
    {CLASS_STATIC, IDC_STATIC, "", 4, 4, 212, 82, WS_VISIBLE | SS_SUNKEN},
    {CLASS_ANIMATION, 1011, "", 10, 10, 36, 30, WS_VISIBLE | ACS_CENTER | ACS_AUTOPLAY},
    {CLASS_STATIC, 1012, "The progam is calculating now.\nPlease wait", 50, 14, 120, 26,
     WS_VISIBLE | SS_CENTER},
    {CLASS_ANIMATION, 1013, "", 174, 10, 36, 30, WS_VISIBLE | ACS_CENTER | ACS_AUTOPLAY},
    {CLASS_PROGRESS, 1000, "", 14, 44, 192, 10, PBS_SMOOTH},
    {CLASS_STATIC, 1001, "", 14, 57, 192, 9, WS_VISIBLE | SS_CENTER},
    {CLASS_BUTTON, IDCANCEL, "Abort", 85, 68, 50, 14, WS_VISIBLE | WS_TABSTOP},
};

constexpr CDialogItem PREPARATIONS[] = {
    {CLASS_STATIC, IDC_STATIC, "", 4, 4, 172, 66, WS_VISIBLE | SS_SUNKEN},
    {CLASS_STATIC, IDC_STATIC,
     "The progam now is making\n the necessary preparations\n before continuing execution.\nPlease wait", 10,
     9, 160, 34, WS_VISIBLE | SS_CENTER},
    {CLASS_PROGRESS, 1000, "", 14, 45, 152, 10, WS_VISIBLE | PBS_SMOOTH},
    {CLASS_STATIC, 1001, "", 14, 58, 152, 9, WS_VISIBLE | SS_CENTER},
};

constexpr DWORD CHOICE = WS_VISIBLE | BS_AUTORADIOBUTTON;

constexpr CDialogItem WELCOME[] = {
    {CLASS_STATIC, IDC_STATIC, "#16500", 12, 8, 22, 20, WS_VISIBLE | SS_ICON},
    {CLASS_STATIC, IDC_STATIC, "#16501", 12, 34, 22, 20, WS_VISIBLE | SS_ICON},
    {CLASS_STATIC, IDC_STATIC, "#16502", 12, 60, 22, 20, WS_VISIBLE | SS_ICON},
    {CLASS_BUTTON, 1022, "Create a &new Base Variant", 42, 13, 140, 10, CHOICE | WS_GROUP | WS_TABSTOP},
    {CLASS_BUTTON, 1021, "Load your &last Base Variant", 42, 39, 140, 10, CHOICE},
    {CLASS_BUTTON, 1020, "Load an e&xisting Base Variant", 42, 65, 140, 10, CHOICE},
    {CLASS_BUTTON, 1080, "Don't &display this dialog again", 12, 88, 170, 10,
     WS_VISIBLE | WS_GROUP | WS_TABSTOP | BS_AUTOCHECKBOX},
    {CLASS_BUTTON, IDOK, "OK", 80, 104, 50, 14, WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON},
    {CLASS_BUTTON, IDCANCEL, "Cancel", 134, 104, 50, 14, WS_VISIBLE | WS_TABSTOP},
    {CLASS_BUTTON, 1032, "&Quick Tour", 8, 104, 50, 14, WS_TABSTOP},
    {CLASS_BUTTON, 1033, "&Help", 26, 104, 50, 14, WS_TABSTOP},
};

} // namespace tessara
