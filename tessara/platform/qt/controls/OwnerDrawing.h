#pragma once

#include <QImage>
#include <QStyledItemDelegate>

#include "tessara/platform/base/String.h"
#include "tessara/platform/qt/controls/LastAnswers.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

namespace tessara {

class CListBoxWidget;
class CPeer;

/// All that the look of a line depends on, as far as the list knows.
struct CItemLook {
    UINT nState = 0;
    std::uintptr_t nData = 0;
    CString strText;
    QSize pixels;
    double dDotsPerInch = 0;
    QColor text;
    QColor ground;

    bool operator==(const CItemLook&) const = default;
    bool IsOfSameLine(const CItemLook& other) const {
        return nData == other.nData && strText == other.strText;
    }
};

/// Asks the parent of a list how tall its lines are and what they look like; where the parent belongs to
/// another thread, by a post: until it has answered a line looks as it did, or like nothing.
class COwnerDrawing : public QStyledItemDelegate {
public:
    explicit COwnerDrawing(CListBoxWidget& list);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* pPainter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    void BeginPaint() { m_answers.BeginPaint(); }
    /// Lines have changed or moved.
    void Outdate() { m_answers.Outdate(); }

private:
    using CAnswers = CLastAnswers<int, CItemLook, QImage>;

    CItemLook LookOf(const CPeer& peer, const QStyleOptionViewItem& option, int nLine) const;
    QImage Recall(CPeer& peer, int nLine, const CItemLook& look) const;
    void AskHeight(CPeer& peer, int nUsual) const;

    CListBoxWidget& m_list;
    mutable CAnswers m_answers;
    mutable int m_nHeight = 0; ///< pixels; 0 until answered
};

} // namespace tessara
