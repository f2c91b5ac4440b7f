#pragma once

#include <memory>

#include "tessara/platform/base/Api.h"

class CWnd;

namespace tessara {

// The class names of controls, for dialog templates and CWnd::CreateEx.

constexpr const char* CLASS_STATIC = "Static";
constexpr const char* CLASS_EDIT = "Edit";
constexpr const char* CLASS_BUTTON = "Button";
constexpr const char* CLASS_LISTBOX = "ListBox";
constexpr const char* CLASS_LISTVIEW = "SysListView32";
constexpr const char* CLASS_SLIDER = "msctls_trackbar32";
constexpr const char* CLASS_PROGRESS = "msctls_progress32";
constexpr const char* CLASS_SPIN = "msctls_updown32";
constexpr const char* CLASS_ANIMATION = "SysAnimate32";

/// Makes a program's class of controls known: dialog templates may name it from now on. Its windows are plain
/// ones; what the function makes draws them, unless the dialog attaches an object of its own. The name lives
/// as long as the program. False for a name that is empty or another's already. Any thread.
TESSARA_API bool RegisterControlClass(const char* pszClass, std::unique_ptr<CWnd> (*pfnMake)());

} // namespace tessara
