#include "tessara/platform/qt/controls/OwnerDrawing.h"

#include <algorithm>
#include <cmath>

#include "tessara/platform/qt/controls/ListBoxWidget.h"
#include "tessara/platform/qt/drawing/ForwardingSink.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

namespace {

constexpr UINT ODT_LISTBOX = 2;
constexpr int MAX_LINES = 1024; ///< more than any screen shows

UINT ToItemState(const QStyleOptionViewItem& option) {
    UINT nState = option.state & QStyle::State_Selected ? ODS_SELECTED : 0U;
    nState |= option.state & QStyle::State_HasFocus ? ODS_FOCUS : 0U;
    nState |= option.state & QStyle::State_Enabled ? 0U : ODS_DISABLED;
    return nState;
}

COLORREF ToColorRef(const QColor& color) {
    return static_cast<COLORREF>(color.red() | color.green() << 8 | color.blue() << 16);
}

/// Draws on the image of a line.
class CItemSink : public CForwardingSink {
public:
    explicit CItemSink(CDrawSink& sink) : m_sink(sink) {}

private:
    void Forward(const CCall& fnCall, bool) const override { fnCall(m_sink); }

    CDrawSink& m_sink;
};

/// Has a line drawn by the parent, on the parent's thread.
QImage DrawItem(HWND hList, int nLine, const CItemLook& look) {
    CWindowSurface surface(look.pixels, look.dDotsPerInch);
    surface.Fill(look.ground);
    const auto record = FindWindow(hList);
    if (record) {
        CDC dc(std::make_unique<CItemSink>(surface.GetSink()));
        dc.SetTextColor(ToColorRef(look.text));
        dc.SetBkColor(ToColorRef(look.ground));
        DRAWITEMSTRUCT draw{ODT_LISTBOX,
                            record->nID,
                            static_cast<UINT>(nLine),
                            ODA_DRAWENTIRE,
                            look.nState,
                            hList,
                            &dc,
                            {0, 0, look.pixels.width(), look.pixels.height()},
                            look.nData};
        Tell(record->hParent, WM_DRAWITEM, record->nID, reinterpret_cast<LPARAM>(&draw));
    }
    return surface.GetImage();
}

/// The height of lines in pixels, on the parent's thread.
int MeasureItem(HWND hList, int nUsual) {
    const auto record = FindWindow(hList);
    if (!record) {
        return nUsual;
    }
    MEASUREITEMSTRUCT measure{ODT_LISTBOX, record->nID, 0, 0, static_cast<UINT>(nUsual), 0};
    Tell(record->hParent, WM_MEASUREITEM, record->nID, reinterpret_cast<LPARAM>(&measure));
    return std::clamp(static_cast<int>(measure.itemHeight), 1, 4096);
}

bool IsParentHere(const CPeer& peer) {
    const auto record = FindWindow(peer.GetHandle());
    const auto parent = record ? FindWindow(record->hParent) : std::nullopt;
    return parent && parent->pOwner->IsOfThisThread();
}

} // namespace

COwnerDrawing::COwnerDrawing(CListBoxWidget& list) : m_list(list), m_answers(MAX_LINES) {}

QSize COwnerDrawing::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize usual = QStyledItemDelegate::sizeHint(option, index);
    CPeer* const pPeer = CPeer::Of(&m_list);
    if (!m_list.IsOwnerDrawn() || !pPeer) {
        return usual;
    }
    const int nUsual = static_cast<int>(std::lround(usual.height() * pPeer->GetRatio()));
    if (m_nHeight == 0) {
        AskHeight(*pPeer, nUsual);
    }
    const int nHeight = m_nHeight == 0 ? nUsual : m_nHeight;
    return {usual.width(), static_cast<int>(std::ceil(nHeight / pPeer->GetRatio()))};
}

void COwnerDrawing::AskHeight(CPeer& peer, int nUsual) const {
    const bool bHere = IsParentHere(peer);
    peer.AskParent(EQuestion::height, [this, hList = peer.GetHandle(), nUsual, bHere]() -> CAnswer {
        const int nHeight = MeasureItem(hList, nUsual);
        return [this, nHeight, bHere] {
            m_nHeight = nHeight;
            if (!bHere) {
                m_list.doItemsLayout(); // lines have been laid out with another height meanwhile
            }
        };
    });
}

CItemLook COwnerDrawing::LookOf(const CPeer& peer, const QStyleOptionViewItem& option, int nLine) const {
    const CListBoxItem* const pItem = m_list.GetModel().Find(nLine);
    return {ToItemState(option),
            pItem ? pItem->nData : 0,
            pItem ? pItem->strText : CString(),
            (QSizeF(option.rect.size()) * peer.GetRatio()).toSize(),
            m_list.logicalDpiY() * peer.GetRatio(),
            option.palette.color(QPalette::Text),
            option.palette.color(QPalette::Base)};
}

void COwnerDrawing::paint(QPainter* pPainter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    CPeer* const pPeer = CPeer::Of(&m_list);
    if (!m_list.IsOwnerDrawn() || !pPeer) {
        QStyledItemDelegate::paint(pPainter, option, index);
        return;
    }
    const CItemLook look = LookOf(*pPeer, option, index.row());
    const QImage image = IsParentHere(*pPeer) ? DrawItem(pPeer->GetHandle(), index.row(), look)
                                              : Recall(*pPeer, index.row(), look);
    if (image.size() == look.pixels) {
        pPainter->drawImage(QRectF(option.rect), image);
    } else {
        pPainter->drawImage(QRectF(option.rect.topLeft(), QSizeF(image.size()) / pPeer->GetRatio()), image);
    }
}

/// The last image of a line, unless another line stood there then; asks for those that are to be painted.
QImage COwnerDrawing::Recall(CPeer& peer, int nLine, const CItemLook& look) const {
    const auto* const pKnown = m_answers.Find(nLine, look);
    const QImage image = pKnown && pKnown->first.IsOfSameLine(look) ? pKnown->second : QImage();
    if (!m_answers.Wants()) {
        return image;
    }
    peer.AskParent(EQuestion::lines, [this, hList = peer.GetHandle()]() -> CAnswer {
        const auto wanted = OnPeer(hList, [this](CPeer&) { return m_answers.Take(); });
        std::vector<QImage> images;
        for (const CAnswers::CWanted& line : wanted) {
            images.push_back(DrawItem(hList, line.key, line.what));
        }
        return [this, wanted, images] {
            for (std::size_t i = 0; i < wanted.size(); ++i) {
                if (m_answers.Keep(wanted[i], images[i])) {
                    m_list.update(m_list.GetModel().index(wanted[i].key));
                }
            }
        };
    });
    return image;
}

} // namespace tessara
