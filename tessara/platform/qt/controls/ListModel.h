#pragma once

#include <QAbstractTableModel>
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

private:
    struct CColumn {
        QString strHeading;
        Qt::Alignment alignment;
    };
    struct CRow {
        std::vector<CString> texts; ///< as many as have been set
        std::uintptr_t nData = 0;
    };
    CString AskText(int nRow, int nColumn) const;
    bool HasRow(int nRow) const { return nRow >= 0 && nRow < rowCount(); }

    bool m_bOwnerData;
    CPeer* m_pPeer = nullptr;
    std::vector<CColumn> m_columns;
    std::vector<CRow> m_rows;
    int m_nRows = 0; ///< of the owner
};

} // namespace tessara
