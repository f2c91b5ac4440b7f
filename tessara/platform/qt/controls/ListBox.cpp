#include "tessara/platform/ui/controls/ListBox.h"

#include <algorithm>
#include <cmath>

#include "tessara/platform/qt/controls/ControlPeer.h"
#include "tessara/platform/qt/controls/ListBoxWidget.h"
#include "tessara/platform/qt/controls/PeerFactory.h"

namespace tessara {

namespace {

class CListBoxPeer : public CControlPeer {
public:
    CListBoxPeer(const CWindowDescription& description, CListBoxWidget& list)
        : CControlPeer(description, &list, {CTLCOLOR_LISTBOX, 0, 0}, list.viewport()), m_list(list) {}

    void Invalidate(bool bErase) override {
        m_list.Outdate();
        CControlPeer::Invalidate(bErase);
    }

private:
    CListBoxWidget& m_list;
};

} // namespace

CPeer* MakeListBoxPeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pList = new CListBoxWidget(description, pParent);
    auto* const pPeer = new CListBoxPeer(description, *pList);
    if (!(description.dwStyle & LBS_NOTIFY)) {
        return pPeer;
    }
    pPeer->SetFocusCodes(LBN_SETFOCUS, LBN_KILLFOCUS);
    OnSignal(*pPeer, pList->selectionModel(), &QItemSelectionModel::selectionChanged,
             [pPeer, pList](const QItemSelection&, const QItemSelection&) {
                 if (pList->IsTelling()) {
                     pPeer->Notify(LBN_SELCHANGE);
                 }
             });
    pList->m_fnDoubleClicked = [pPeer] { pPeer->Notify(LBN_DBLCLK); };
    pList->GetModel().m_fnChecked = [pPeer] {
        const CPeer::CEventScope scope;
        pPeer->Notify(CLBN_CHKCHANGE);
    };
    return pPeer;
}

namespace {

/// The line that is selected, or LB_ERR.
int SelectedLine(const CListBoxWidget& list) {
    const QModelIndexList selected = list.selectionModel()->selectedIndexes();
    return selected.isEmpty() ? LB_ERR : selected.first().row();
}

/// The lines that are selected, ascending; nothing for a list where only one can be.
std::optional<std::vector<int>> SelectedLines(const CListBox& listBox) {
    return OnWidget<CListBoxWidget>(listBox, [](CListBoxWidget& list) {
        std::optional<std::vector<int>> lines;
        if (list.IsExtended()) {
            lines.emplace();
            for (const QModelIndex& index : list.selectionModel()->selectedIndexes()) {
                lines->push_back(index.row());
            }
            std::ranges::sort(*lines);
        }
        return lines;
    });
}

/// Changes a list so that nobody takes what becomes of the selection for the user's doing.
template <class FUNCTION>
auto Change(const CListBox& listBox, FUNCTION fnChange) {
    return OnWidget<CListBoxWidget>(listBox, [&](CListBoxWidget& list) {
        const CListBoxWidget::CSilence silence(list);
        return fnChange(list);
    });
}

int Insert(CListBoxWidget& list, int nIndex, const char* pszItem) {
    CListBoxItem item;
    if (list.KeepsStrings()) {
        item.strText = pszItem;
    } else {
        item.nData = reinterpret_cast<std::uintptr_t>(pszItem);
    }
    list.GetModel().Insert(nIndex, std::move(item));
    return nIndex;
}

/// A question about one line; nOther where there is no such line.
template <class RESULT, class FUNCTION>
RESULT AskLine(const CListBox& listBox, int nIndex, RESULT other, FUNCTION fnItem) {
    const auto result = OnWidget<CListBoxWidget>(listBox, [&](CListBoxWidget& list) {
        CListBoxItem* const pItem = list.GetModel().Find(nIndex);
        return pItem ? std::optional<RESULT>(fnItem(*pItem)) : std::nullopt;
    });
    return result.value_or(other);
}

} // namespace

} // namespace tessara

using tessara::CListBoxItem;
using tessara::CListBoxWidget;
using tessara::OnWidget;

int CListBox::AddString(const char* pszItem) {
    return tessara::Change(*this, [&](CListBoxWidget& list) {
        const bool bSorted = list.IsSorted() && list.KeepsStrings();
        const int nPlace = bSorted ? list.GetModel().FindPlace(pszItem) : list.GetModel().rowCount({});
        return tessara::Insert(list, nPlace, pszItem);
    });
}

int CListBox::InsertString(int nIndex, const char* pszItem) {
    return tessara::Change(*this, [&](CListBoxWidget& list) {
        const int nCount = list.GetModel().rowCount({});
        if (nIndex < -1 || nIndex > nCount) {
            return LB_ERR;
        }
        return tessara::Insert(list, nIndex < 0 ? nCount : nIndex, pszItem);
    });
}

int CListBox::DeleteString(UINT nIndex) {
    return tessara::Change(*this, [&](CListBoxWidget& list) {
        const int nLine = static_cast<int>(nIndex);
        if (!list.GetModel().Find(nLine)) {
            return LB_ERR;
        }
        const QModelIndex index = list.GetModel().index(nLine);
        if (!list.IsExtended() && list.selectionModel()->isSelected(index)) {
            list.selectionModel()->clear(); // else the next line would be selected
        }
        list.GetModel().Remove(nLine);
        return list.GetModel().rowCount({});
    });
}

void CListBox::ResetContent() {
    tessara::Change(*this, [](CListBoxWidget& list) {
        list.GetModel().Clear();
        return 0;
    });
}

int CListBox::GetCount() const {
    return OnWidget<CListBoxWidget>(*this, [](CListBoxWidget& list) { return list.GetModel().rowCount({}); });
}

int CListBox::GetCurSel() const {
    return OnWidget<CListBoxWidget>(*this, [](CListBoxWidget& list) {
        return list.IsExtended() ? list.currentIndex().row() : tessara::SelectedLine(list);
    });
}

int CListBox::SetCurSel(int nSelect) {
    return OnWidget<CListBoxWidget>(*this, [&](CListBoxWidget& list) {
        if (list.IsExtended() || (nSelect != -1 && !list.GetModel().Find(nSelect))) {
            return LB_ERR;
        }
        list.Select(nSelect);
        return tessara::SelectedLine(list);
    });
}

int CListBox::GetSel(int nIndex) const {
    return OnWidget<CListBoxWidget>(*this, [&](CListBoxWidget& list) {
        const QModelIndex index = list.GetModel().index(nIndex);
        return !index.isValid() ? LB_ERR : list.selectionModel()->isSelected(index) ? 1 : 0;
    });
}

int CListBox::SetSel(int nIndex, BOOL bSelect) {
    return tessara::Change(*this, [&](CListBoxWidget& list) {
        const QModelIndex index = list.GetModel().index(nIndex);
        if (!list.IsExtended() || (nIndex != -1 && !index.isValid())) {
            return LB_ERR;
        }
        const auto eChange = bSelect ? QItemSelectionModel::Select : QItemSelectionModel::Deselect;
        const QModelIndex last = list.GetModel().index(list.GetModel().rowCount({}) - 1);
        list.selectionModel()->select(nIndex == -1 ? QItemSelection(list.GetModel().index(0), last)
                                                   : QItemSelection(index, index),
                                      eChange);
        if (bSelect && index.isValid()) {
            list.scrollTo(index);
        }
        return 0;
    });
}

int CListBox::GetSelCount() const {
    const auto lines = tessara::SelectedLines(*this);
    return lines ? static_cast<int>(lines->size()) : LB_ERR;
}

int CListBox::GetSelItems(int nMaxItems, int* pIndices) const {
    const auto lines = tessara::SelectedLines(*this);
    if (!lines) {
        return LB_ERR;
    }
    const auto nCount = std::clamp<std::ptrdiff_t>(nMaxItems, 0, std::ssize(*lines));
    std::copy_n(lines->begin(), nCount, pIndices);
    return static_cast<int>(nCount);
}

int CListBox::GetText(int nIndex, CString& strText) const {
    return tessara::AskLine(*this, nIndex, LB_ERR, [&](const CListBoxItem& item) {
        strText = item.strText;
        return strText.GetLength();
    });
}

int CListBox::GetTextLen(int nIndex) const {
    CString strText;
    return GetText(nIndex, strText);
}

int CListBox::FindStringExact(int nIndexStart, const char* pszFind) const {
    return OnWidget<CListBoxWidget>(*this, [&](CListBoxWidget& list) {
        const QString strFind = tessara::ToQString(pszFind);
        const auto& items = list.GetModel().GetItems();
        const int nCount = static_cast<int>(items.size());
        for (int i = 1; i <= nCount; ++i) {
            const int nLine = (std::clamp(nIndexStart, -1, nCount - 1) + i) % nCount;
            const CString& strText = items[static_cast<std::size_t>(nLine)].strText;
            if (strFind.compare(tessara::ToQString(strText.View()), Qt::CaseInsensitive) == 0) {
                return nLine;
            }
        }
        return LB_ERR;
    });
}

std::uintptr_t CListBox::GetItemData(int nIndex) const {
    return tessara::AskLine(*this, nIndex, static_cast<std::uintptr_t>(LB_ERR),
                            [](const CListBoxItem& item) { return item.nData; });
}

int CListBox::SetItemData(int nIndex, std::uintptr_t dwItemData) {
    return tessara::AskLine(*this, nIndex, LB_ERR, [&](CListBoxItem& item) {
        item.nData = dwItemData;
        return 0;
    });
}

int CListBox::GetItemHeight(int) const {
    const auto fnHeight = [](CListBoxWidget& list) {
        const double dRatio = list.devicePixelRatioF();
        const QModelIndex first = list.GetModel().index(0);
        return static_cast<int>(std::lround(list.sizeHintForIndex(first).height() * dRatio));
    };
    const int nHeight = OnWidget<CListBoxWidget>(*this, fnHeight);
    return tessara::SettleQuestions(m_hWnd) ? OnWidget<CListBoxWidget>(*this, fnHeight) : nHeight;
}

int CListBox::GetTopIndex() const {
    return OnWidget<CListBoxWidget>(
        *this, [](CListBoxWidget& list) { return std::max(0, list.indexAt(QPoint(1, 1)).row()); });
}

int CListBox::SetTopIndex(int nIndex) {
    return OnWidget<CListBoxWidget>(*this, [&](CListBoxWidget& list) {
        list.scrollTo(list.GetModel().index(nIndex), QAbstractItemView::PositionAtTop);
        return list.GetModel().Find(nIndex) ? 0 : LB_ERR;
    });
}

int CCheckListBox::GetCheck(int nIndex) const {
    return tessara::AskLine(*this, nIndex, 0, [](const CListBoxItem& item) { return item.bChecked ? 1 : 0; });
}

void CCheckListBox::SetCheck(int nIndex, int nCheck) {
    OnWidget<CListBoxWidget>(*this,
                             [&](CListBoxWidget& list) { list.GetModel().SetChecked(nIndex, nCheck != 0); });
}

void CCheckListBox::PreSubclassWindow() {
    OnWidget<CListBoxWidget>(*this, [](CListBoxWidget& list) {
        if (!list.GetModel().IsCheckable()) {
            list.GetModel().MakeCheckable();
        }
    });
    CListBox::PreSubclassWindow();
}
