#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <variant>
#include <vector>

#include "tessara/platform/qt/controls/LastAnswers.h"
#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

/// The texts of a report view: rows that it holds, or a number of rows whose texts the parent is asked for.
/// A parent of another thread is asked by a post; until it has answered a cell shows its last text, or none.
class CListModel : public QAbstractTableModel {
public:
    /// A model that holds no rows asks through this peer.
    explicit CListModel(bool bOwnerData) : m_bOwnerData(bOwnerData), m_answers(MAX_CELLS) {}
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
    /// Of a row that is held here.
    CString GetText(int nRow, int nColumn) const;
    std::uintptr_t* FindData(int nRow);
    void SetRowCount(int nRows); ///< when rows are not held here
    void BeginPaint() { m_answers.BeginPaint(); }
    /// The parent's rows have changed.
    void Outdate() { m_answers.Outdate(); }

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
    using CCell = std::pair<int, int>;
    using CAnswers = CLastAnswers<CCell, std::monostate, CString>;
    static constexpr int MAX_CELLS = 16384; ///< more than any screen shows

    CString AskText(const CCell& cell) const;
    CString Recall(const CCell& cell) const;
    bool HasRow(int nRow) const { return nRow >= 0 && nRow < rowCount(); }

    bool m_bOwnerData;
    bool m_bCheckable = false;
    bool m_bWholeRows = false;
    CPeer* m_pPeer = nullptr;
    std::vector<CColumn> m_columns;
    std::vector<CRow> m_rows;
    int m_nRows = 0; ///< of the owner
    mutable CAnswers m_answers;
};

/// The text of a cell as the parent of a table has it, on the parent's thread.
CString FindCellText(HWND hTable, int nRow, int nColumn);

} // namespace tessara
