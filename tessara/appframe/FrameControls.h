#pragma once

#include "tessara/platform/base/Types.h"

// The numbers of the dialogs of the application frame, and of what is in them.

namespace tessara {

constexpr UINT IDD_CALCULATION = 16390;
constexpr UINT IDD_WELCOME = 16403;
constexpr UINT IDD_LOGOTYPE = 16404;
constexpr UINT IDD_PREPARATIONS = 16405;

constexpr UINT IDC_BAR = 1000;
constexpr UINT IDC_PROGRESS_LINE = 1001;
constexpr UINT IDC_ANIMATION_LEFT = 1011;
constexpr UINT IDC_PROGRESS_TEXT = 1012;
constexpr UINT IDC_ANIMATION_RIGHT = 1013;

constexpr UINT IDC_EXISTING_VARIANT = 1020;
constexpr UINT IDC_LAST_VARIANT = 1021;
constexpr UINT IDC_NEW_VARIANT = 1022;
constexpr UINT IDC_DONT_SHOW = 1080;

constexpr UINT IDS_ABORTING = 16390;
constexpr UINT IDA_RIGHT = 134; ///< animations
constexpr UINT IDA_LEFT = 135;

} // namespace tessara
