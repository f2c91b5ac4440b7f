#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

/// The texts of a report view: rows that it holds, or a number of rows whose texts the parent is asked for.
class CListModel : public QAbstractTableModel {
public:
    /// A model that holds no rows asks through this peer.
    explicit CListModel(bool bOwnerData) : m_bOwnerData(bOwnerData) {}
    void SetPeer(CPeer* pPeer) { m_pPeer = pPeer; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int nRole) const override;
    QVariant headerData(int nSection, Qt::Orientation eOrientation, int nRole) const override;

    void InsertColumn(int nColumn, const QString& strHeading, Qt::Alignment alignment);
    void RemoveColumn(int nColumn);
    bool HoldsRows() const { return !m_bOwnerData; }
    /// Rows that are held here.
    void InsertRow(int nRow, const CString& strText);
    void RemoveRow(int nRow);
    void Clear();
    bool SetText(int nRow, int nColumn, const CString& strText);
    CString GetText(int nRow, int nColumn) const;
    std::uintptr_t* FindData(int nRow);
    void SetRowCount(int nRows); ///< when rows are not held here

    /// Whether rows that are held here have check boxes, in the first column.
    void SetCheckable(bool bCheckable) { m_bCheckable = bCheckable && !m_bOwnerData; }
    bool IsCheckable() const { return m_bCheckable; }
    bool IsChecked(int nRow) const;
    /// Also by the user, through setData. False where there is no box.
    bool SetChecked(int nRow, bool bChecked);
    /// Whether cells beyond the first column belong to what is selected.
    void SetWholeRows(bool bWholeRows) { m_bWholeRows = bWholeRows; }
    bool setData(const QModelIndex& index, const QVariant& value, int nRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    std::function<void(int nRow, bool bChecked)> m_fnChecked; ///< called when a check has changed

private:
    struct CColumn {
        QString strHeading;
        Qt::Alignment alignment;
    };
    struct CRow {
        std::vector<CString> texts; ///< as many as have been set
        std::uintptr_t nData = 0;
        bool bChecked = false;
    };
    CString AskText(int nRow, int nColumn) const;
    bool HasRow(int nRow) const { return nRow >= 0 && nRow < rowCount(); }

    bool m_bOwnerData;
    bool m_bCheckable = false;
    bool m_bWholeRows = false;
    CPeer* m_pPeer = nullptr;
    std::vector<CColumn> m_columns;
    std::vector<CRow> m_rows;
    int m_nRows = 0; ///< of the owner
};

} // namespace tessara
