#include "tessara/platform/qt/controls/ListBoxWidget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "tessara/platform/qt/controls/Edges.h"
#include "tessara/platform/qt/windows/PaintScope.h"

namespace tessara {

int CListBoxModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant CListBoxModel::data(const QModelIndex& index, int nRole) const {
    const CListBoxItem& item = m_items[static_cast<std::size_t>(index.row())];
    if (nRole == Qt::DisplayRole) {
        return ToQString(item.strText.View());
    }
    if (nRole == Qt::CheckStateRole && m_bCheckable) {
        return item.bChecked ? Qt::Checked : Qt::Unchecked;
    }
    return {};
}

bool CListBoxModel::setData(const QModelIndex& index, const QVariant& value, int nRole) {
    if (nRole != Qt::CheckStateRole) {
        return false;
    }
    SetChecked(index.row(), value.toInt() == Qt::Checked);
    if (m_fnChecked) {
        m_fnChecked();
    }
    return true;
}

Qt::ItemFlags CListBoxModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractListModel::flags(index);
    return m_bCheckable ? flags | Qt::ItemIsUserCheckable : flags;
}

void CListBoxModel::Insert(int nIndex, CListBoxItem item) {
    beginInsertRows({}, nIndex, nIndex);
    m_items.insert(m_items.begin() + nIndex, std::move(item));
    endInsertRows();
}

void CListBoxModel::Remove(int nIndex) {
    beginRemoveRows({}, nIndex, nIndex);
    m_items.erase(m_items.begin() + nIndex);
    endRemoveRows();
}

void CListBoxModel::Clear() {
    beginResetModel();
    m_items.clear();
    endResetModel();
}

/// The same in every locale, for programs count on the places of lines.
int CListBoxModel::FindPlace(const CString& strText) const {
    const QString strWanted = ToQString(strText.View());
    const auto it = std::upper_bound(
        m_items.begin(), m_items.end(), strText, [&](const CString& strNew, const CListBoxItem& item) {
            const int nOrder = strWanted.compare(ToQString(item.strText.View()), Qt::CaseInsensitive);
            return nOrder != 0 ? nOrder < 0 : strNew < item.strText;
        });
    return static_cast<int>(it - m_items.begin());
}

CListBoxItem* CListBoxModel::Find(int nIndex) {
    return nIndex >= 0 && nIndex < rowCount({}) ? &m_items[static_cast<std::size_t>(nIndex)] : nullptr;
}

void CListBoxModel::SetChecked(int nIndex, bool bChecked) {
    if (CListBoxItem* const pItem = Find(nIndex)) {
        pItem->bChecked = bChecked;
        Q_EMIT dataChanged(index(nIndex), index(nIndex), {Qt::CheckStateRole});
    }
}

void CListBoxModel::MakeCheckable() {
    beginResetModel();
    m_bCheckable = true;
    endResetModel();
}

CListBoxWidget::CListBoxWidget(const CWindowDescription& description, QWidget* pParent)
    : QListView(pParent),
      m_bStrings(!(description.dwStyle & LBS_OWNERDRAWFIXED) || (description.dwStyle & LBS_HASSTRINGS)),
      m_bSorted((description.dwStyle & LBS_SORT) != 0),
      m_bOwnerDrawn((description.dwStyle & LBS_OWNERDRAWFIXED) != 0), m_drawing(*this) {
    setModel(&m_model);
    setItemDelegate(&m_drawing);
    const auto fnOutdate = [this] { m_drawing.Outdate(); };
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, fnOutdate);
    connect(&m_model, &QAbstractItemModel::rowsRemoved, this, fnOutdate);
    connect(&m_model, &QAbstractItemModel::modelReset, this, fnOutdate);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(description.dwStyle & LBS_NOSEL         ? NoSelection
                     : description.dwStyle & LBS_EXTENDEDSEL ? ExtendedSelection
                                                             : SingleSelection);
    SetEdge(*this, description);
    setHorizontalScrollBarPolicy(description.dwStyle & WS_HSCROLL ? Qt::ScrollBarAsNeeded
                                                                  : Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(!(description.dwStyle & WS_VSCROLL)         ? Qt::ScrollBarAlwaysOff
                               : description.dwStyle & LBS_DISABLENOSCROLL ? Qt::ScrollBarAlwaysOn
                                                                           : Qt::ScrollBarAsNeeded);
    if (m_bOwnerDrawn) {
        setHorizontalScrollMode(ScrollPerPixel);
    }
}

void CListBoxWidget::Select(int nIndex) {
    const CSilence silence(*this);
    const QModelIndex index = m_model.index(nIndex);
    if (index.isValid()) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    } else {
        selectionModel()->clear();
    }
}

void CListBoxWidget::paintEvent(QPaintEvent* pEvent) {
    const CPaintScope scope(*this);
    m_drawing.BeginPaint();
    QListView::paintEvent(pEvent);
}

/// Where no line is selected, Qt's arrow keys leave the one that they begin at: the first.
void CListBoxWidget::keyPressEvent(QKeyEvent* pEvent) {
    const int nKey = pEvent->key();
    const bool bArrow = nKey == Qt::Key_Down || nKey == Qt::Key_Up || nKey == Qt::Key_Home;
    if (bArrow && selectionMode() == SingleSelection && !selectionModel()->hasSelection()) {
        selectionModel()->setCurrentIndex(m_model.index(std::max(currentIndex().row(), 0)),
                                          QItemSelectionModel::ClearAndSelect);
        return;
    }
    QListView::keyPressEvent(pEvent);
}

void CListBoxWidget::mousePressEvent(QMouseEvent* pEvent) {
    const QModelIndex index = indexAt(pEvent->position().toPoint());
    if (m_model.IsCheckable() && index.isValid() && !IsExtended()) {
        // Qt does not choose a line whose box is clicked.
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }
    QListView::mousePressEvent(pEvent);
}

void CListBoxWidget::mouseDoubleClickEvent(QMouseEvent* pEvent) {
    QListView::mouseDoubleClickEvent(pEvent);
    if (m_fnDoubleClicked && indexAt(pEvent->position().toPoint()).isValid()) {
        m_fnDoubleClicked();
    }
}

QItemSelectionModel::SelectionFlags CListBoxWidget::selectionCommand(const QModelIndex& index,
                                                                     const QEvent* pEvent) const {
    if (pEvent && !index.isValid()) {
        return QItemSelectionModel::NoUpdate; // on the ground below the lines
    }
    if (selectionMode() != SingleSelection || !pEvent) {
        return QListView::selectionCommand(index, pEvent);
    }
    return QItemSelectionModel::ClearAndSelect; // one line stays selected, also with Ctrl held
}

} // namespace tessara
