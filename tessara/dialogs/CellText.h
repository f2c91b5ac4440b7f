#pragma once

#include "tessara/platform/base/Text.h"
#include "tessara/platform/ui/controls/ListCtrl.h"

namespace tessara {

/// Answers a table that asks for the text of a cell; what does not fit is cut.
inline void GiveCellText(LVITEM& item, std::string_view strText) {
    if (item.cchTextMax > 0) {
        const std::string_view strCut = CutText(strText, static_cast<std::size_t>(item.cchTextMax) - 1);
        item.pszText[strCut.copy(item.pszText, strCut.size())] = '\0';
    }
}

} // namespace tessara
