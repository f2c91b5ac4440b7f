#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <functional>
#include <vector>

#include "tessara/platform/qt/controls/OwnerDrawing.h"
#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

struct CListBoxItem {
    CString strText; ///< empty when the list keeps no strings
    std::uintptr_t nData = 0;
    bool bChecked = false;
};

/// The lines of a list box.
class CListBoxModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int nRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int nRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    void Insert(int nIndex, CListBoxItem item);
    void Remove(int nIndex);
    void Clear();
    /// Where a text belongs in alphabetical order, after its equals.
    int FindPlace(const CString& strText) const;
    CListBoxItem* Find(int nIndex);
    const std::vector<CListBoxItem>& GetItems() const { return m_items; }
    void SetChecked(int nIndex, bool bChecked);
    void MakeCheckable();
    bool IsCheckable() const { return m_bCheckable; }

    std::function<void()> m_fnChecked; ///< called when the user has changed a check

private:
    std::vector<CListBoxItem> m_items;
    bool m_bCheckable = false;
};

class CListBoxWidget : public QListView {
public:
    CListBoxWidget(const CWindowDescription& description, QWidget* pParent);

    CListBoxModel& GetModel() { return m_model; }
    bool KeepsStrings() const { return m_bStrings; }
    bool IsSorted() const { return m_bSorted; }
    bool IsExtended() const { return selectionMode() == ExtendedSelection; }
    bool IsOwnerDrawn() const { return m_bOwnerDrawn && !m_model.IsCheckable(); }
    /// Selects a line, or none for an index below 0, as a program does: nobody is told.
    void Select(int nIndex);
    bool IsTelling() const { return m_bTelling; }
    /// What the lines of an owner-drawn list show has changed.
    void Outdate() { m_drawing.Outdate(); }

    /// While it lives, what becomes of the selection is the program's doing.
    class CSilence {
    public:
        explicit CSilence(CListBoxWidget& list) : m_list(list) { list.m_bTelling = false; }
        ~CSilence() { m_list.m_bTelling = true; }
        CSilence(const CSilence&) = delete;
        CSilence& operator=(const CSilence&) = delete;

    private:
        CListBoxWidget& m_list;
    };

    std::function<void()> m_fnDoubleClicked;

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* pEvent) const override;

private:
    CListBoxModel m_model;
    bool m_bStrings;
    bool m_bSorted;
    bool m_bOwnerDrawn;
    bool m_bTelling = true;
    COwnerDrawing m_drawing;
};

} // namespace tessara
