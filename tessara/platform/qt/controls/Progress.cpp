#include <QProgressBar>
#include <algorithm>
#include <utility>

#include "tessara/platform/qt/controls/ControlPeer.h"
#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/ui/controls/ProgressCtrl.h"

namespace tessara {

namespace {

/// A bar whose range may be empty: Qt would take that for "nobody knows" and move for ever.
class CProgressWidget : public QProgressBar {
public:
    CProgressWidget(DWORD dwStyle, QWidget* pParent) : QProgressBar(pParent) {
        setTextVisible(false);
        setOrientation(dwStyle & PBS_VERTICAL ? Qt::Vertical : Qt::Horizontal);
        ShowPosition();
    }

    void SetRange(int nLower, int nUpper) {
        m_nLower = nLower;
        m_nUpper = std::max(nLower, nUpper);
        SetPosition(m_nPosition);
    }
    int SetPosition(int nPosition) {
        const int nPrevious = std::exchange(m_nPosition, std::clamp(nPosition, m_nLower, m_nUpper));
        ShowPosition();
        return nPrevious;
    }
    int GetPosition() const { return m_nPosition; }
    int Step() {
        const std::int64_t nNext = std::int64_t{m_nPosition} + m_nStep;
        const std::int64_t nLength = std::int64_t{m_nUpper} - m_nLower;
        const bool bBeyond = nNext > m_nUpper && nLength > 0;
        return SetPosition(static_cast<int>(bBeyond ? m_nLower + (nNext - m_nLower) % nLength
                                                    : std::clamp<std::int64_t>(nNext, m_nLower, m_nUpper)));
    }
    int SetStep(int nStep) { return std::exchange(m_nStep, nStep); }

private:
    void ShowPosition() {
        if (m_nLower == m_nUpper) {
            setRange(0, 1);
            setValue(0);
        } else {
            setRange(m_nLower, m_nUpper);
            setValue(m_nPosition);
        }
    }

    int m_nLower = 0;
    int m_nUpper = 100;
    int m_nPosition = 0;
    int m_nStep = 10;
};

} // namespace

CPeer* MakeProgressPeer(const CWindowDescription& description, QWidget* pParent) {
    return new CControlPeer(description, new CProgressWidget(description.dwStyle, pParent),
                            {CControlTraits::NO_COLOR});
}

} // namespace tessara

using tessara::CProgressWidget;
using tessara::OnWidget;

void CProgressCtrl::SetRange(int nLower, int nUpper) {
    OnWidget<CProgressWidget>(*this, [&](CProgressWidget& bar) { bar.SetRange(nLower, nUpper); });
}

int CProgressCtrl::GetPos() const {
    return OnWidget<CProgressWidget>(*this, [](CProgressWidget& bar) { return bar.GetPosition(); });
}

int CProgressCtrl::SetPos(int nPos) {
    return OnWidget<CProgressWidget>(*this, [&](CProgressWidget& bar) { return bar.SetPosition(nPos); });
}

int CProgressCtrl::SetStep(int nStep) {
    return OnWidget<CProgressWidget>(*this, [&](CProgressWidget& bar) { return bar.SetStep(nStep); });
}

int CProgressCtrl::StepIt() {
    return OnWidget<CProgressWidget>(*this, [](CProgressWidget& bar) { return bar.Step(); });
}
