#pragma once

#include <span>
#include <string_view>

#include "tessara/platform/base/Api.h"
#include "tessara/platform/ui/threads/Messages.h"

// Menus, accelerators and toolbars as tables that a program writes down:
//
//     constexpr tessara::CMenuEntry FILE_MENU[] = {{"&Open...\tCtrl+O", ID_FILE_OPEN},
//                                                  tessara::MENU_SEPARATOR,
//                                                  {"E&xit", ID_APP_EXIT}};
//     constexpr tessara::CMenuEntry MAIN_MENU[] = {{"&File", FILE_MENU}};
//     constexpr tessara::CMenuResource MENUS[] = {{128, MAIN_MENU}};
//     ... tessara::AddMenuResources(MENUS);
//
// Tables live as long as the program. Of two resources of one number the one added later counts, so that an
// application's hide the library's. Main thread.

/// Keys that are held with the key of an accelerator; combined with '|'.
enum AcceleratorKeys : UINT { FNONE = 0, FSHIFT = 0x04, FCONTROL = 0x08, FALT = 0x10 };

namespace tessara {

/// A command, a popup menu or a separator. In a text '&' marks the letter that chooses the item, "&&" is an
/// ampersand, and what follows a tab is shown on the right: the keys of an accelerator.
struct CMenuEntry {
    constexpr CMenuEntry() = default; ///< a separator
    constexpr CMenuEntry(const char* pszItem, UINT nID) : pszText(pszItem), nCommand(nID) {}
    constexpr CMenuEntry(const char* pszItem, std::span<const CMenuEntry> entries);

    const char* pszText = nullptr; ///< null for a separator
    UINT nCommand = 0;
    const CMenuEntry* pPopup = nullptr; ///< the entries of a popup menu
    std::size_t nPopup = 0;

    constexpr std::span<const CMenuEntry> GetPopup() const;
};

constexpr CMenuEntry::CMenuEntry(const char* pszItem, std::span<const CMenuEntry> entries)
    : pszText(pszItem), pPopup(entries.data()), nPopup(entries.size()) {}

constexpr std::span<const CMenuEntry> CMenuEntry::GetPopup() const {
    return {pPopup, nPopup};
}

constexpr CMenuEntry MENU_SEPARATOR;

struct CMenuResource {
    UINT nID;
    std::span<const CMenuEntry> entries;
};

struct CAccelerator {
    UINT nKeys; ///< AcceleratorKeys, exactly; a Shift that types VK_OEM_PLUS does not count
    UINT nKey;  ///< a VirtualKey, a capital letter or a digit
    UINT nCommand;
};

struct CAcceleratorResource {
    UINT nID;
    std::span<const CAccelerator> accelerators;
};

/// A button: its picture is an SVG of the program's own or, when that is empty, the desktop's of that name
/// ("document-open"). In an SVG the colour currentColor is that of the desktop's text. A button without a
/// picture shows its text. Command 0 is a separator.
struct CToolButton {
    UINT nCommand;
    const char* pszText = "";
    const char* pszIcon = "";
    std::string_view strSvg = {};
};

struct CToolBarResource {
    UINT nID;
    std::span<const CToolButton> buttons;
};

TESSARA_API void AddMenuResources(std::span<const CMenuResource> table);
TESSARA_API void AddAcceleratorResources(std::span<const CAcceleratorResource> table);
TESSARA_API void AddToolBarResources(std::span<const CToolBarResource> table);

/// The resource of a number, or null.
TESSARA_API const CMenuResource* FindMenuResource(UINT nID);
TESSARA_API const CAcceleratorResource* FindAcceleratorResource(UINT nID);
TESSARA_API const CToolBarResource* FindToolBarResource(UINT nID);

} // namespace tessara
