#pragma once

#include "tessara/platform/base/Object.h"
#include "tessara/platform/base/String.h"

/// One line of an element's read-out: which element and column it shows, and how.
class TESSARA_API CElementFormat : public CObject {
    DECLARE_DYNAMIC(CElementFormat)

public:
    CElementFormat(int nOfElement, int nOfColumn, const char* pszFormat)
        : nElement(nOfElement), nColumn(nOfColumn), strFormat(pszFormat) {}

    int nElement;      ///< index into the element colours
    int nColumn;       ///< column of the element's table, or -1 for a line of fixed text
    CString strFormat; ///< printf format of one double, or the fixed text
};
