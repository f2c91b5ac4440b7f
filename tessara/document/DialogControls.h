#pragma once

#include "tessara/platform/base/Types.h"

// The numbers of the archive dialogs and of what is in them.

namespace tessara {

constexpr UINT IDD_SAVE_VARIANT = 16384;
constexpr UINT IDD_SELECT_BASE = 16385;
constexpr UINT IDD_LOAD_VARIANT = 16386;
constexpr UINT IDD_DELETE_BASE = 16387;
constexpr UINT IDD_DELETE_VARIANT = 16388;

constexpr UINT IDC_DELETE = 3;
constexpr UINT IDC_BASES = 104;
constexpr UINT IDC_NEXT = 105;
constexpr UINT IDC_BASE_NAME = 106;
constexpr UINT IDC_VARIANTS = 107;
constexpr UINT IDC_COMMENT = 108;
constexpr UINT IDC_VARIANT_NAME = 111;
constexpr UINT IDC_PREVIOUS = 113;
constexpr UINT IDC_VARIANT_NUMBER = 115;

/// What a dialog of a wizard ends with when the user wants the one before.
constexpr int IDPREVIOUS = 3;

} // namespace tessara
