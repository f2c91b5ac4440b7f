#pragma once

#include "tessara/platform/base/Object.h"
#include "tessara/platform/base/String.h"

/// Numbers of the elements whose tables are read out: their places among the element colours.
enum PhaseDiagramElement : int {
    ELEMENT_SPINODAL = 0,
    ELEMENT_CLOUD_POINT_CURVE = 2,
    ELEMENT_CLOUD_POINT_CURVE_NON_PHYSICAL = 5,
    ELEMENT_CRITICAL_POINTS = 6,
    ELEMENT_MULTIPHASE_POINTS = 7
};

/// One line of an element's read-out: which element and column it shows, and how.
class TESSARA_API CElementFormat : public CObject {
    DECLARE_DYNAMIC(CElementFormat)

public:
    CElementFormat(int nOfElement, int nOfColumn, const char* pszFormat)
        : nElement(nOfElement), nColumn(nOfColumn), strFormat(pszFormat) {}

    int nElement;      ///< a PhaseDiagramElement
    int nColumn;       ///< column of the element's table, or -1 for a line of fixed text
    CString strFormat; ///< printf format of one double, or the fixed text
};
