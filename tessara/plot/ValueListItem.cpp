#include "tessara/plot/ValueListItem.h"

#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/System.h"
#include "tessara/plot/IndexedText.h"

namespace tessara {

namespace {

constexpr UINT ITEM_HEIGHT = 22;
constexpr int USUAL_DOTS_PER_INCH = 96;
constexpr int TEXT_POINTS = 12;
constexpr int POINTS_PER_INCH = 72;
constexpr POINT TEXT_PLACE = {4, 2};

/// The colours of a line that is selected or not.
struct CLineLook {
    int nGround;
    int nText;
    int nBackMode;
};

constexpr CLineLook PLAIN = {COLOR_WINDOW, COLOR_WINDOWTEXT, OPAQUE};
constexpr CLineLook SELECTED = {COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT, TRANSPARENT};

void DrawLine(const DRAWITEMSTRUCT& item, const CLineLook& look) {
    CDC& dc = *item.pDC;
    CBrush ground(GetSysColor(look.nGround));
    dc.FillRect(&item.rcItem, &ground);
    const COLORREF crOldText = dc.SetTextColor(GetSysColor(look.nText));
    const COLORREF crOldGround = dc.SetBkColor(GetSysColor(look.nGround));
    const int nOldMode = dc.SetBkMode(look.nBackMode);
    IndexedTextOut(&dc, item.rcItem.left + TEXT_PLACE.x, item.rcItem.top + TEXT_PLACE.y,
                   reinterpret_cast<const char*>(item.itemData),
                   -MulDiv(TEXT_POINTS, dc.GetDeviceCaps(LOGPIXELSY), POINTS_PER_INCH), nullptr);
    dc.SetBkMode(nOldMode);
    dc.SetBkColor(crOldGround);
    dc.SetTextColor(crOldText);
}

} // namespace

void MeasureValueListItem(CWnd& dialog, MEASUREITEMSTRUCT& measure) {
    const CClientDC dc(&dialog);
    measure.itemHeight = ITEM_HEIGHT * static_cast<UINT>(dc.GetDeviceCaps(LOGPIXELSY)) / USUAL_DOTS_PER_INCH;
}

void DrawValueListItem(const DRAWITEMSTRUCT& item) {
    const bool bWhole = item.itemAction & ODA_DRAWENTIRE;
    const bool bSelectionChanged = item.itemAction & ODA_SELECT;
    const bool bSelected = item.itemState & ODS_SELECTED;
    if (item.itemData && (bWhole || bSelectionChanged)) {
        DrawLine(item, bSelected ? SELECTED : PLAIN);
    }
    const bool bFocus = item.itemState & ODS_FOCUS;
    const bool bFocusChanged = item.itemAction & ODA_FOCUS;
    if (bFocus ? bWhole || bFocusChanged : bFocusChanged) {
        item.pDC->DrawFocusRect(&item.rcItem);
    }
}

} // namespace tessara
