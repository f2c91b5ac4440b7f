#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tessara/platform/base/Api.h"

namespace tessara {

/// One run of an indexed text: its bytes and the letter of the control that closed it, or 0 for the trailing
/// run.
struct CIndexedRun {
    char chControl;
    std::string strText;
};

constexpr std::size_t MAX_RUN_BYTES = 127;

/// Cuts an indexed text into its runs, in order. Empty trailing runs are left out.
TESSARA_API std::vector<CIndexedRun> ParseIndexedText(std::string_view strText);

} // namespace tessara
