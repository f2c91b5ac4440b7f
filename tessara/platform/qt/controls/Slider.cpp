#include <QSlider>
#include <algorithm>
#include <utility>

#include "tessara/platform/qt/controls/ControlPeer.h"
#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/ui/controls/SliderCtrl.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

namespace {

class CSliderWidget : public QSlider {
public:
    CSliderWidget(DWORD dwStyle, QWidget* pParent)
        : QSlider(dwStyle & TBS_VERT ? Qt::Vertical : Qt::Horizontal, pParent),
          m_bAutoTicks((dwStyle & TBS_AUTOTICKS) != 0) {
        setRange(0, 100);
        setPageStep(20);
        setInvertedAppearance((dwStyle & TBS_VERT) != 0); // the smallest value is at the top
        setInvertedControls((dwStyle & TBS_VERT) != 0);
        setTickPosition(dwStyle & TBS_NOTICKS ? NoTicks
                        : dwStyle & TBS_BOTH  ? TicksBothSides
                        : dwStyle & TBS_TOP   ? TicksAbove
                                              : TicksBelow);
        SetTicks();
    }

    void SetTickEvery(int nPositions) {
        m_nTickEvery = std::max(1, nPositions);
        SetTicks();
    }
    /// Without a style that asks for more there are ticks at the ends alone.
    void SetTicks() { setTickInterval(m_bAutoTicks ? m_nTickEvery : std::max(1, maximum() - minimum())); }

    UINT m_nCode = SB_THUMBTRACK; ///< how the user is moving it
    bool m_bTelling = true;

private:
    bool m_bAutoTicks;
    int m_nTickEvery = 1;
};

UINT ToScrollCode(int nAction) {
    switch (nAction) {
    case QAbstractSlider::SliderSingleStepAdd:
        return SB_LINERIGHT;
    case QAbstractSlider::SliderSingleStepSub:
        return SB_LINELEFT;
    case QAbstractSlider::SliderPageStepAdd:
        return SB_PAGERIGHT;
    case QAbstractSlider::SliderPageStepSub:
        return SB_PAGELEFT;
    case QAbstractSlider::SliderToMinimum:
        return SB_LEFT;
    case QAbstractSlider::SliderToMaximum:
        return SB_RIGHT;
    default:
        return SB_THUMBTRACK;
    }
}

/// Tells the parent how the slider was moved; the codes of dragging carry the position.
void TellScroll(const CPeer& peer, const CSliderWidget& slider, UINT nCode) {
    const auto record = FindWindow(peer.GetHandle());
    if (record && slider.m_bTelling) {
        const bool bDragged = nCode == SB_THUMBTRACK || nCode == SB_THUMBPOSITION;
        Tell(record->hParent, slider.orientation() == Qt::Vertical ? WM_VSCROLL : WM_HSCROLL,
             MAKEWPARAM(nCode, bDragged ? static_cast<UINT>(slider.value()) : 0U),
             reinterpret_cast<LPARAM>(peer.GetHandle()));
    }
}

} // namespace

CPeer* MakeSliderPeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pSlider = new CSliderWidget(description.dwStyle, pParent);
    auto* const pPeer = new CControlPeer(description, pSlider, {CTLCOLOR_STATIC});
    OnSignal(*pPeer, pSlider, &QSlider::actionTriggered,
             [pSlider](int nAction) { pSlider->m_nCode = ToScrollCode(nAction); });
    OnSignal(*pPeer, pSlider, &QSlider::valueChanged,
             [pPeer, pSlider](int) { TellScroll(*pPeer, *pSlider, pSlider->m_nCode); });
    OnSignal(*pPeer, pSlider, &QSlider::sliderReleased, [pPeer, pSlider] {
        TellScroll(*pPeer, *pSlider, SB_THUMBPOSITION);
        TellScroll(*pPeer, *pSlider, SB_ENDSCROLL);
    });
    return pPeer;
}

namespace {

template <class FUNCTION>
auto OnSlider(const CSliderCtrl& slider, FUNCTION fnSlider) {
    return OnWidget<CSliderWidget>(slider, [&](CSliderWidget& widget) {
        widget.m_bTelling = false;
        if constexpr (std::is_void_v<decltype(fnSlider(widget))>) {
            fnSlider(widget);
            widget.m_bTelling = true;
        } else {
            const auto result = fnSlider(widget);
            widget.m_bTelling = true;
            return result;
        }
    });
}

} // namespace

} // namespace tessara

using tessara::CSliderWidget;
using tessara::OnSlider;

void CSliderCtrl::SetRange(int nMin, int nMax, BOOL) {
    OnSlider(*this, [&](CSliderWidget& slider) {
        slider.setRange(nMin, nMax);
        slider.SetTicks();
    });
}

void CSliderCtrl::GetRange(int& nMin, int& nMax) const {
    std::tie(nMin, nMax) =
        OnSlider(*this, [](CSliderWidget& slider) { return std::pair(slider.minimum(), slider.maximum()); });
}

int CSliderCtrl::GetPos() const {
    return OnSlider(*this, [](CSliderWidget& slider) { return slider.value(); });
}

void CSliderCtrl::SetPos(int nPos) {
    OnSlider(*this, [&](CSliderWidget& slider) { slider.setValue(nPos); });
}

void CSliderCtrl::SetTicFreq(int nFrequency) {
    OnSlider(*this, [&](CSliderWidget& slider) { slider.SetTickEvery(nFrequency); });
}

int CSliderCtrl::SetLineSize(int nSize) {
    return OnSlider(*this, [&](CSliderWidget& slider) {
        const int nPrevious = slider.singleStep();
        slider.setSingleStep(nSize);
        return nPrevious;
    });
}

int CSliderCtrl::SetPageSize(int nSize) {
    return OnSlider(*this, [&](CSliderWidget& slider) {
        const int nPrevious = slider.pageStep();
        slider.setPageStep(nSize);
        return nPrevious;
    });
}
