#pragma once

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

} // namespace tessara
