#include "tessara/platform/ui/controls/ListCtrl.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QTableView>
#include <algorithm>
#include <cmath>

#include "tessara/platform/qt/controls/ControlPeer.h"
#include "tessara/platform/qt/controls/Edges.h"
#include "tessara/platform/qt/controls/ListModel.h"
#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/qt/windows/PaintScope.h"

namespace tessara {

namespace {

class CListViewWidget : public QTableView {
public:
    CListViewWidget(const CWindowDescription& description, QWidget* pParent);

    CListModel& GetModel() { return m_model; }
    void SetPeer(CPeer* pPeer) {
        m_pPeer = pPeer;
        m_model.SetPeer(pPeer);
    }
    void SetExtendedStyle(DWORD dwStyle);
    DWORD GetExtendedStyle() const { return m_dwExtended; }
    int ToUnits(int nPixels) const { return static_cast<int>(std::lround(nPixels / devicePixelRatioF())); }

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void initViewItemOption(QStyleOptionViewItem* pOption) const override;
    // Every cell may look different with the keyboard and without.
    void focusInEvent(QFocusEvent* pEvent) override {
        QTableView::focusInEvent(pEvent);
        viewport()->update();
    }
    void focusOutEvent(QFocusEvent* pEvent) override {
        QTableView::focusOutEvent(pEvent);
        viewport()->update();
    }
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void TellState(int nRow, UINT nNew, UINT nOld);

    CListModel m_model;
    bool m_bShowAlways; ///< the selection, also without the keyboard
    CPeer* m_pPeer = nullptr;
    DWORD m_dwExtended = 0;
};

CListViewWidget::CListViewWidget(const CWindowDescription& description, QWidget* pParent)
    : QTableView(pParent), m_model((description.dwStyle & LVS_OWNERDATA) != 0),
      m_bShowAlways((description.dwStyle & LVS_SHOWSELALWAYS) != 0) {
    setModel(&m_model);
    SetEdge(*this, description);
    m_model.m_fnChecked = [this](int nRow, bool bChecked) {
        TellState(nRow, bChecked ? LVIS_CHECKED : LVIS_UNCHECKED, bChecked ? LVIS_UNCHECKED : LVIS_CHECKED);
    };
    setSelectionBehavior(SelectRows);
    setSelectionMode(description.dwStyle & LVS_SINGLESEL ? SingleSelection : ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    constexpr int ROW_MARGIN = 4;
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + ROW_MARGIN);
    QHeaderView& header = *horizontalHeader();
    header.setHighlightSections(false);
    header.setSectionsClickable(!(description.dwStyle & LVS_NOSORTHEADER));
    header.setVisible(!(description.dwStyle & LVS_NOCOLUMNHEADER));
    header.setMinimumSectionSize(1);
}

void CListViewWidget::SetExtendedStyle(DWORD dwStyle) {
    m_dwExtended = dwStyle;
    setShowGrid((dwStyle & LVS_EX_GRIDLINES) != 0);
    m_model.SetCheckable((dwStyle & LVS_EX_CHECKBOXES) != 0);
    m_model.SetWholeRows((dwStyle & LVS_EX_FULLROWSELECT) != 0);
    viewport()->update();
}

void CListViewWidget::initViewItemOption(QStyleOptionViewItem* pOption) const {
    QTableView::initViewItemOption(pOption);
    if (!m_bShowAlways && !hasFocus()) {
        QPalette& palette = pOption->palette;
        for (const auto eGroup : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            palette.setBrush(eGroup, QPalette::Highlight, palette.brush(eGroup, QPalette::Base));
            palette.setBrush(eGroup, QPalette::HighlightedText, palette.brush(eGroup, QPalette::Text));
        }
    }
}

void CListViewWidget::keyPressEvent(QKeyEvent* pEvent) {
    if (pEvent->key() == Qt::Key_Space && m_model.IsCheckable() && currentIndex().isValid()) {
        m_model.SetChecked(currentIndex().row(), !m_model.IsChecked(currentIndex().row()));
    } else {
        QTableView::keyPressEvent(pEvent);
    }
}

void CListViewWidget::paintEvent(QPaintEvent* pEvent) {
    const CPaintScope scope(*this);
    m_model.BeginPaint();
    QTableView::paintEvent(pEvent);
}

void CListViewWidget::mouseDoubleClickEvent(QMouseEvent* pEvent) {
    QTableView::mouseDoubleClickEvent(pEvent);
    const QModelIndex index = indexAt(pEvent->position().toPoint());
    NMLISTVIEW notice{{}, index.row(), index.column(), 0, 0, 0};
    m_pPeer->NotifyWith(notice, NM_DBLCLK);
}

void CListViewWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    const auto fnRows = [&](const QItemSelection& ranges, UINT nNew, UINT nOld) {
        for (const QItemSelectionRange& range : ranges) {
            for (int nRow = range.top(); nRow <= range.bottom(); ++nRow) {
                TellState(nRow, nNew, nOld);
            }
        }
    };
    fnRows(deselected, 0, LVIS_SELECTED);
    fnRows(selected, LVIS_SELECTED, 0);
}

void CListViewWidget::TellState(int nRow, UINT nNew, UINT nOld) {
    NMLISTVIEW notice{{}, nRow, 0, nNew, nOld, LVIF_STATE};
    const CPeer::CEventScope scope;
    if (m_pPeer) {
        m_pPeer->NotifyWith(notice, LVN_ITEMCHANGED);
    }
}

class CListViewPeer : public CControlPeer {
public:
    CListViewPeer(const CWindowDescription& description, CListViewWidget& list)
        : CControlPeer(description, &list, {CTLCOLOR_LISTBOX}, list.viewport()), m_list(list) {}

    void Invalidate(bool bErase) override {
        m_list.GetModel().Outdate();
        CControlPeer::Invalidate(bErase);
    }

private:
    CListViewWidget& m_list;
};

} // namespace

CPeer* MakeListViewPeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pList = new CListViewWidget(description, pParent);
    auto* const pPeer = new CListViewPeer(description, *pList);
    pList->SetPeer(pPeer);
    OnSignal(*pPeer, pList->horizontalHeader(), &QHeaderView::sectionClicked, [pPeer](int nColumn) {
        NMLISTVIEW notice{{}, -1, nColumn, 0, 0, 0};
        pPeer->NotifyWith(notice, LVN_COLUMNCLICK);
    });
    return pPeer;
}

namespace {

Qt::Alignment ToAlignment(int nFormat) {
    switch (nFormat) {
    case LVCFMT_RIGHT:
        return Qt::AlignRight;
    case LVCFMT_CENTER:
        return Qt::AlignHCenter;
    default:
        return Qt::AlignLeft;
    }
}

template <class FUNCTION>
auto OnList(const CListCtrl& list, FUNCTION fnList) {
    const auto result = OnWidget<CListViewWidget>(list, [&](CListViewWidget& widget) {
        const CPeer::CEventScope scope;
        return fnList(widget);
    });
    SettleOwnQuestions(list.GetSafeHwnd()); // the notices of a change come before its end
    return result;
}

} // namespace

} // namespace tessara

using tessara::CListViewWidget;
using tessara::OnList;

DWORD CListCtrl::SetExtendedStyle(DWORD dwStyle) {
    return OnList(*this, [&](CListViewWidget& list) {
        const DWORD dwPrevious = list.GetExtendedStyle();
        list.SetExtendedStyle(dwStyle);
        return dwPrevious;
    });
}

DWORD CListCtrl::GetExtendedStyle() const {
    return OnList(*this, [](CListViewWidget& list) { return list.GetExtendedStyle(); });
}

int CListCtrl::InsertColumn(int nColumn, const char* pszHeading, int nFormat, int nWidth, int) {
    return OnList(*this, [&](CListViewWidget& list) {
        const int nPlace = std::clamp(nColumn, 0, list.GetModel().columnCount());
        list.GetModel().InsertColumn(nPlace, tessara::ToQString(pszHeading ? pszHeading : ""),
                                     tessara::ToAlignment(nFormat));
        const int nWanted =
            nWidth < 0 ? list.horizontalHeader()->sectionSizeHint(nPlace) : list.ToUnits(nWidth);
        list.setColumnWidth(nPlace, nWanted);
        return nPlace;
    });
}

BOOL CListCtrl::DeleteColumn(int nColumn) {
    return OnList(*this, [&](CListViewWidget& list) -> BOOL {
        const bool bFound = nColumn >= 0 && nColumn < list.GetModel().columnCount();
        if (bFound) {
            list.GetModel().RemoveColumn(nColumn);
        }
        return bFound;
    });
}

int CListCtrl::GetColumnWidth(int nColumn) const {
    return OnList(*this, [&](CListViewWidget& list) {
        return static_cast<int>(std::lround(list.columnWidth(nColumn) * list.devicePixelRatioF()));
    });
}

BOOL CListCtrl::SetColumnWidth(int nColumn, int nWidth) {
    return OnList(*this, [&](CListViewWidget& list) -> BOOL {
        list.setColumnWidth(nColumn, list.ToUnits(nWidth));
        return nColumn >= 0 && nColumn < list.GetModel().columnCount();
    });
}

int CListCtrl::InsertItem(int nItem, const char* pszText) {
    return OnList(*this, [&](CListViewWidget& list) {
        if (!list.GetModel().HoldsRows() || nItem < 0) {
            return -1;
        }
        const int nRow = std::min(nItem, list.GetModel().rowCount());
        list.GetModel().InsertRow(nRow, pszText);
        return nRow;
    });
}

BOOL CListCtrl::DeleteItem(int nItem) {
    return OnList(*this, [&](CListViewWidget& list) -> BOOL {
        const bool bFound = list.GetModel().FindData(nItem) != nullptr;
        if (bFound) {
            list.selectionModel()->select(list.GetModel().index(nItem, 0),
                                          QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
            list.GetModel().RemoveRow(nItem);
        }
        return bFound;
    });
}

BOOL CListCtrl::DeleteAllItems() {
    return OnList(*this, [](CListViewWidget& list) -> BOOL {
        list.GetModel().Clear();
        return TRUE;
    });
}

int CListCtrl::GetItemCount() const {
    return OnList(*this, [](CListViewWidget& list) { return list.GetModel().rowCount(); });
}

BOOL CListCtrl::SetItemCount(int nItems) {
    return OnList(*this, [&](CListViewWidget& list) -> BOOL {
        if (list.GetModel().HoldsRows() || nItems < 0) {
            return FALSE;
        }
        list.GetModel().SetRowCount(nItems);
        return TRUE;
    });
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, const char* pszText) {
    return OnList(*this, [&](CListViewWidget& list) -> BOOL {
        return list.GetModel().SetText(nItem, nSubItem, pszText);
    });
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const {
    const auto held = OnList(*this, [&](CListViewWidget& list) {
        tessara::CListModel& model = list.GetModel();
        const bool bHeld = model.HoldsRows() || nItem < 0 || nItem >= model.rowCount() || nSubItem < 0;
        return bHeld ? std::optional(model.GetText(nItem, nSubItem)) : std::nullopt;
    });
    CString strText = held.value_or(CString());
    const auto record = tessara::FindWindow(m_hWnd);
    const auto parent = record ? tessara::FindWindow(record->hParent) : std::nullopt;
    if (!held && parent) {
        parent->pOwner->Call([&] { strText = tessara::FindCellText(m_hWnd, nItem, nSubItem); });
    }
    return strText;
}

std::uintptr_t CListCtrl::GetItemData(int nItem) const {
    return OnList(*this, [&](CListViewWidget& list) {
        const std::uintptr_t* const pData = list.GetModel().FindData(nItem);
        return pData ? *pData : 0;
    });
}

BOOL CListCtrl::SetItemData(int nItem, std::uintptr_t dwData) {
    return OnList(*this, [&](CListViewWidget& list) -> BOOL {
        std::uintptr_t* const pData = list.GetModel().FindData(nItem);
        if (pData) {
            *pData = dwData;
        }
        return pData != nullptr;
    });
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask) {
    return OnList(*this, [&](CListViewWidget& list) -> BOOL {
        const QModelIndex index = list.GetModel().index(nItem, 0);
        QItemSelectionModel& selection = *list.selectionModel();
        if (nMask & LVIS_SELECTED) {
            const bool bSingle = list.selectionMode() == QAbstractItemView::SingleSelection;
            const auto eSelect = bSingle ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Select;
            selection.select(index, (nState & LVIS_SELECTED ? eSelect : QItemSelectionModel::Deselect) |
                                        QItemSelectionModel::Rows);
        }
        if (nMask & nState & LVIS_FOCUSED) {
            selection.setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        }
        if (nMask & LVIS_STATEIMAGEMASK) {
            list.GetModel().SetChecked(nItem, (nState & LVIS_STATEIMAGEMASK) == LVIS_CHECKED);
        }
        return index.isValid();
    });
}

UINT CListCtrl::GetItemState(int nItem, UINT nMask) const {
    return OnList(*this, [&](CListViewWidget& list) {
        const bool bSelected = list.selectionModel()->isRowSelected(nItem);
        const UINT nBox = !list.GetModel().IsCheckable() || !list.GetModel().FindData(nItem) ? 0U
                          : list.GetModel().IsChecked(nItem) ? UINT{LVIS_CHECKED}
                                                             : UINT{LVIS_UNCHECKED};
        const UINT nState = (bSelected ? UINT{LVIS_SELECTED} : 0U) | nBox |
                            (list.currentIndex().row() == nItem ? UINT{LVIS_FOCUSED} : 0U);
        return nState & nMask;
    });
}

BOOL CListCtrl::GetCheck(int nItem) const {
    return (GetItemState(nItem, LVIS_STATEIMAGEMASK) & LVIS_STATEIMAGEMASK) == LVIS_CHECKED;
}

BOOL CListCtrl::SetCheck(int nItem, BOOL bCheck) {
    return OnList(
        *this, [&](CListViewWidget& list) -> BOOL { return list.GetModel().SetChecked(nItem, bCheck != 0); });
}

int CListCtrl::GetNextItem(int nItem, int nFlags) const {
    return OnList(*this, [&](CListViewWidget& list) {
        const int nFocused = list.currentIndex().row();
        if (nFlags & LVNI_FOCUSED) {
            return nFocused > nItem ? nFocused : -1;
        }
        if (!(nFlags & LVNI_SELECTED)) {
            return nItem + 1 < list.GetModel().rowCount() ? std::max(nItem, -1) + 1 : -1;
        }
        int nNext = -1;
        for (const QItemSelectionRange& range : list.selectionModel()->selection()) {
            const int nFirst = std::max(range.top(), nItem + 1);
            if (nFirst <= range.bottom() && (nNext < 0 || nFirst < nNext)) {
                nNext = nFirst;
            }
        }
        return nNext;
    });
}

BOOL CListCtrl::EnsureVisible(int nItem, BOOL) {
    return OnList(*this, [&](CListViewWidget& list) -> BOOL {
        const QModelIndex index = list.GetModel().index(nItem, 0);
        list.scrollTo(index);
        return index.isValid();
    });
}
