#include "tessara/platform/ui/controls/Controls.h"

#include <algorithm>
#include <mutex>
#include <vector>

#include "tessara/platform/ui/controls/AnimateCtrl.h"
#include "tessara/platform/ui/controls/Button.h"
#include "tessara/platform/ui/controls/ControlClasses.h"
#include "tessara/platform/ui/controls/Edit.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/controls/ListCtrl.h"
#include "tessara/platform/ui/controls/ProgressCtrl.h"
#include "tessara/platform/ui/controls/SliderCtrl.h"
#include "tessara/platform/ui/controls/SpinButtonCtrl.h"
#include "tessara/platform/ui/controls/Static.h"

IMPLEMENT_DYNCREATE(CStatic, CWnd)
IMPLEMENT_DYNCREATE(CEdit, CWnd)
IMPLEMENT_DYNCREATE(CButton, CWnd)
IMPLEMENT_DYNCREATE(CListBox, CWnd)
IMPLEMENT_DYNCREATE(CCheckListBox, CListBox)
IMPLEMENT_DYNCREATE(CListCtrl, CWnd)
IMPLEMENT_DYNCREATE(CSliderCtrl, CWnd)
IMPLEMENT_DYNCREATE(CProgressCtrl, CWnd)
IMPLEMENT_DYNCREATE(CSpinButtonCtrl, CWnd)
IMPLEMENT_DYNCREATE(CAnimateCtrl, CWnd)

namespace tessara {

namespace {

struct CControlClass {
    const char* pszName;
    std::unique_ptr<CWnd> (*pfnMake)();
};

template <class CONTROL>
std::unique_ptr<CWnd> Make() {
    return std::make_unique<CONTROL>();
}

constexpr CControlClass CLASSES[] = {
    {CLASS_STATIC, &Make<CStatic>},         {CLASS_EDIT, &Make<CEdit>},
    {CLASS_BUTTON, &Make<CButton>},         {CLASS_LISTBOX, &Make<CListBox>},
    {CLASS_LISTVIEW, &Make<CListCtrl>},     {CLASS_SLIDER, &Make<CSliderCtrl>},
    {CLASS_PROGRESS, &Make<CProgressCtrl>}, {CLASS_SPIN, &Make<CSpinButtonCtrl>},
    {CLASS_ANIMATION, &Make<CAnimateCtrl>},
};

/// The library's classes and those of programs.
struct CControlClasses {
    std::mutex lock;
    std::vector<CControlClass> classes{std::begin(CLASSES), std::end(CLASSES)};

    static CControlClasses& Get() {
        static auto* const s_pClasses = new CControlClasses; // threads may outlive static objects
        return *s_pClasses;
    }
    /// The caller holds the lock.
    const CControlClass* Find(const char* pszClass) const {
        const auto it = std::find_if(classes.begin(), classes.end(), [&](const CControlClass& entry) {
            return CString(pszClass).CompareNoCase(entry.pszName) == 0;
        });
        return it == classes.end() ? nullptr : &*it;
    }
};

} // namespace

bool RegisterControlClass(const char* pszClass, std::unique_ptr<CWnd> (*pfnMake)()) {
    CControlClasses& table = CControlClasses::Get();
    const std::lock_guard lock(table.lock);
    if (!pszClass || !*pszClass || table.Find(pszClass)) {
        return false;
    }
    table.classes.push_back({pszClass, pfnMake});
    return true;
}

std::unique_ptr<CWnd> MakeControlObject(const char* pszClass) {
    std::unique_ptr<CWnd> (*pfnMake)() = &Make<CWnd>;
    {
        CControlClasses& table = CControlClasses::Get();
        const std::lock_guard lock(table.lock);
        if (const CControlClass* const pClass = table.Find(pszClass)) {
            pfnMake = pClass->pfnMake;
        }
    }
    return pfnMake();
}

} // namespace tessara

BOOL CStatic::Create(const char* pszText, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID) {
    return CreateEx(0, tessara::CLASS_STATIC, pszText, dwStyle, rect, pParent, nID);
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID) {
    return CreateEx(0, tessara::CLASS_EDIT, nullptr, dwStyle, rect, pParent, nID);
}

BOOL CButton::Create(const char* pszText, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID) {
    return CreateEx(0, tessara::CLASS_BUTTON, pszText, dwStyle, rect, pParent, nID);
}

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID) {
    return CreateEx(0, tessara::CLASS_LISTBOX, nullptr, dwStyle, rect, pParent, nID);
}

BOOL CListBox::OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    if (nMessage == WM_DRAWITEM) {
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return TRUE;
    }
    if (nMessage == WM_MEASUREITEM) {
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        return TRUE;
    }
    return CWnd::OnChildNotify(nMessage, wParam, lParam, pResult);
}

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID) {
    return CreateEx(0, tessara::CLASS_LISTVIEW, nullptr, dwStyle, rect, pParent, nID);
}

BOOL CSliderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID) {
    return CreateEx(0, tessara::CLASS_SLIDER, nullptr, dwStyle, rect, pParent, nID);
}

BOOL CProgressCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID) {
    return CreateEx(0, tessara::CLASS_PROGRESS, nullptr, dwStyle, rect, pParent, nID);
}

BOOL CSpinButtonCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID) {
    return CreateEx(0, tessara::CLASS_SPIN, nullptr, dwStyle, rect, pParent, nID);
}

BOOL CAnimateCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID) {
    return CreateEx(0, tessara::CLASS_ANIMATION, nullptr, dwStyle, rect, pParent, nID);
}
