#pragma once

#include <span>

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

// Resources are tables in C++ and embedded files. The library has its own; an application adds its module
// when it starts, on the main thread and before it has other threads. A later module hides what earlier ones
// have under the same number. Tables live as long as the program.
//
//     constexpr tessara::CDialogItem OPTIONS_ITEMS[] = {
//         {"Static", 0xFFFF, "&Name:", 7, 9, 40, 8, WS_VISIBLE},
//         {"Edit", 1001, "", 54, 7, 60, 12, WS_VISIBLE | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL},
//         {"Button", IDOK, "OK", 32, 25, 50, 14, WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON}};
//     constexpr tessara::CDialogTemplate DIALOGS[] = {
//         {200, "Options", 0, 0, 120, 46, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME,
//         OPTIONS_ITEMS}};
//     tessara::AddResources({DIALOGS, {}});

namespace tessara {

/// A control of a dialog. Items stand in tab order; an item with WS_GROUP begins a group of radio buttons
/// that goes on to the next one.
struct CDialogItem {
    const char* pszClass; ///< see ControlClasses.h; any other name is a plain window for the program to take
    UINT nID;
    const char* pszText; ///< "#16500" is the picture of that number for SS_ICON and SS_BITMAP
    int x, y, cx, cy;    ///< dialog units: a quarter of a mean character, an eighth of a line
    DWORD dwStyle;       ///< WS_CHILD goes without saying
    DWORD dwExStyle = 0;
};

/// A dialog. Its place counts from the owner's client area; (0, 0) and DS_CENTER centre it on the owner.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): in the order in which templates are written
struct CDialogTemplate {
    UINT nID;
    const char* pszTitle;
    int x, y, cx, cy; ///< dialog units; the size is that of the client area
    DWORD dwStyle;
    std::span<const CDialogItem> items;
    DWORD dwExStyle = 0;
};

enum class EFileResource { icon, cursor, bitmap, animation };

/// An embedded file, SVG or PNG. An animation is a film strip: square pictures side by side.
struct CFileResource {
    EFileResource eKind;
    UINT nID;
    std::span<const unsigned char> bytes;
};

struct CResourceModule {
    std::span<const CDialogTemplate> dialogs;
    std::span<const CFileResource> files;
};

TESSARA_API void AddResources(const CResourceModule& module);

/// The template, or null when no module has it.
TESSARA_API const CDialogTemplate* FindDialogTemplate(UINT nID);
/// The file, or null when no module has it.
TESSARA_API const CFileResource* FindFileResource(EFileResource eKind, UINT nID);

} // namespace tessara
