#include "tessara/platform/qt/controls/ListModel.h"

#include <utility>

#include "tessara/platform/qt/windows/Questions.h"
#include "tessara/platform/ui/controls/ListCtrl.h"

namespace tessara {

int CListModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) {
        return 0;
    }
    return m_bOwnerData ? m_nRows : static_cast<int>(m_rows.size());
}

int CListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant CListModel::data(const QModelIndex& index, int nRole) const {
    if (nRole == Qt::DisplayRole) {
        const CCell cell(index.row(), index.column());
        const CString strText = m_bOwnerData ? AskText(cell) : GetText(cell.first, cell.second);
        return ToQString(strText.View());
    }
    if (nRole == Qt::TextAlignmentRole) {
        const Qt::Alignment alignment = m_columns[static_cast<std::size_t>(index.column())].alignment;
        return static_cast<int>(alignment | Qt::AlignVCenter);
    }
    if (nRole == Qt::CheckStateRole && m_bCheckable && index.column() == 0) {
        return IsChecked(index.row()) ? Qt::Checked : Qt::Unchecked;
    }
    return {};
}

bool CListModel::setData(const QModelIndex& index, const QVariant& value, int nRole) {
    return nRole == Qt::CheckStateRole && SetChecked(index.row(), value.toInt() == Qt::Checked);
}

Qt::ItemFlags CListModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags eFlags = QAbstractTableModel::flags(index);
    eFlags.setFlag(Qt::ItemIsUserCheckable, m_bCheckable && index.column() == 0);
    eFlags.setFlag(Qt::ItemIsSelectable, m_bWholeRows || index.column() == 0);
    return eFlags;
}

bool CListModel::IsChecked(int nRow) const {
    return m_bCheckable && HasRow(nRow) && m_rows[static_cast<std::size_t>(nRow)].bChecked;
}

bool CListModel::SetChecked(int nRow, bool bChecked) {
    if (!m_bCheckable || !HasRow(nRow)) {
        return false;
    }
    if (std::exchange(m_rows[static_cast<std::size_t>(nRow)].bChecked, bChecked) != bChecked) {
        Q_EMIT dataChanged(index(nRow, 0), index(nRow, 0), {Qt::CheckStateRole});
        if (m_fnChecked) {
            m_fnChecked(nRow, bChecked);
        }
    }
    return true;
}

QVariant CListModel::headerData(int nSection, Qt::Orientation eOrientation, int nRole) const {
    if (eOrientation != Qt::Horizontal) {
        return {};
    }
    const CColumn& column = m_columns[static_cast<std::size_t>(nSection)];
    if (nRole == Qt::DisplayRole) {
        return column.strHeading;
    }
    return nRole == Qt::TextAlignmentRole ? static_cast<int>(column.alignment | Qt::AlignVCenter)
                                          : QVariant();
}

void CListModel::InsertColumn(int nColumn, const QString& strHeading, Qt::Alignment alignment) {
    m_answers.Clear(); // columns move
    beginInsertColumns({}, nColumn, nColumn);
    m_columns.insert(m_columns.begin() + nColumn, {strHeading, alignment});
    endInsertColumns();
}

void CListModel::RemoveColumn(int nColumn) {
    m_answers.Clear();
    beginRemoveColumns({}, nColumn, nColumn);
    m_columns.erase(m_columns.begin() + nColumn);
    for (CRow& row : m_rows) {
        if (static_cast<std::size_t>(nColumn) < row.texts.size()) {
            row.texts.erase(row.texts.begin() + nColumn);
        }
    }
    endRemoveColumns();
}

void CListModel::InsertRow(int nRow, const CString& strText) {
    beginInsertRows({}, nRow, nRow);
    m_rows.insert(m_rows.begin() + nRow, {{strText}, 0, false});
    endInsertRows();
}

void CListModel::RemoveRow(int nRow) {
    beginRemoveRows({}, nRow, nRow);
    m_rows.erase(m_rows.begin() + nRow);
    endRemoveRows();
}

void CListModel::Clear() {
    beginResetModel();
    m_rows.clear();
    m_nRows = 0;
    m_answers.Clear();
    endResetModel();
}

bool CListModel::SetText(int nRow, int nColumn, const CString& strText) {
    if (m_bOwnerData || !HasRow(nRow) || nColumn < 0 || nColumn >= columnCount()) {
        return false;
    }
    auto& texts = m_rows[static_cast<std::size_t>(nRow)].texts;
    if (static_cast<std::size_t>(nColumn) >= texts.size()) {
        texts.resize(static_cast<std::size_t>(nColumn) + 1);
    }
    texts[static_cast<std::size_t>(nColumn)] = strText;
    Q_EMIT dataChanged(index(nRow, nColumn), index(nRow, nColumn), {Qt::DisplayRole});
    return true;
}

CString CListModel::GetText(int nRow, int nColumn) const {
    if (m_bOwnerData || !HasRow(nRow) || nColumn < 0) {
        return {};
    }
    const auto& texts = m_rows[static_cast<std::size_t>(nRow)].texts;
    return static_cast<std::size_t>(nColumn) < texts.size() ? texts[static_cast<std::size_t>(nColumn)]
                                                            : CString();
}

CString FindCellText(HWND hTable, int nRow, int nColumn) {
    constexpr int MAX_TEXT = 512;
    char szText[MAX_TEXT] = "";
    NMLVDISPINFO question{};
    question.item = {LVIF_TEXT, nRow, nColumn, 0, 0, szText, MAX_TEXT};
    SendNotice(hTable, question.hdr, LVN_GETDISPINFO);
    szText[MAX_TEXT - 1] = '\0';
    return CString(question.item.pszText);
}

CString CListModel::AskText(const CCell& cell) const {
    const auto record = m_pPeer ? FindWindow(m_pPeer->GetHandle()) : std::nullopt;
    const auto parent = record ? FindWindow(record->hParent) : std::nullopt;
    if (!parent || !parent->pOwner->IsOfThisThread()) {
        return parent ? Recall(cell) : CString();
    }
    return FindCellText(m_pPeer->GetHandle(), cell.first, cell.second);
}

/// The last text of a cell; asks for those that are to be shown.
CString CListModel::Recall(const CCell& cell) const {
    const auto* const pKnown = m_answers.Find(cell, {});
    const CString strText = pKnown ? pKnown->second : CString();
    if (!m_answers.Wants()) {
        return strText;
    }
    auto* const pModel = const_cast<CListModel*>(this); // its answers come later
    m_pPeer->AskParent(EQuestion::lines, [pModel, hTable = m_pPeer->GetHandle()]() -> CAnswer {
        const auto wanted = OnPeer(hTable, [pModel](CPeer&) { return pModel->m_answers.Take(); });
        std::vector<CString> texts;
        for (const CAnswers::CWanted& one : wanted) {
            texts.push_back(FindCellText(hTable, one.key.first, one.key.second));
        }
        return [pModel, wanted, texts] {
            for (std::size_t i = 0; i < wanted.size(); ++i) {
                const QModelIndex index = pModel->index(wanted[i].key.first, wanted[i].key.second);
                if (pModel->m_answers.Keep(wanted[i], texts[i]) && index.isValid()) {
                    Q_EMIT pModel->dataChanged(index, index, {Qt::DisplayRole});
                }
            }
        };
    });
    return strText;
}

std::uintptr_t* CListModel::FindData(int nRow) {
    return !m_bOwnerData && HasRow(nRow) ? &m_rows[static_cast<std::size_t>(nRow)].nData : nullptr;
}

void CListModel::SetRowCount(int nRows) {
    beginResetModel();
    m_nRows = nRows;
    m_answers.Outdate();
    endResetModel();
}

} // namespace tessara
