#pragma once

#include "tessara/platform/ui/controls/ListBox.h"

/// A list of indexed text whose parent draws and measures the items.
class TESSARA_API CMathList : public CListBox {
    DECLARE_DYNCREATE(CMathList)

public:
    void DrawItem(LPDRAWITEMSTRUCT) override {}
    void MeasureItem(LPMEASUREITEMSTRUCT) override {}
};
