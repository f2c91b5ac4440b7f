#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "tessara/platform/qt/controls/ControlPeer.h"
#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/qt/controls/SpinWidget.h"
#include "tessara/platform/qt/windows/WindowText.h"
#include "tessara/platform/ui/controls/SpinButtonCtrl.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

CSpinWidget::CSpinWidget(DWORD dwStyle, QWidget* pParent) : QWidget(pParent), m_dwStyle(dwStyle) {
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    for (const int nSign : {1, -1}) {
        auto* const pButton = new QToolButton(this);
        pButton->setArrowType(nSign > 0 ? Qt::UpArrow : Qt::DownArrow);
        pButton->setAccessibleName(nSign > 0 ? QStringLiteral("Increase") : QStringLiteral("Decrease"));
        pButton->setAutoRepeat(true);
        pButton->setFocusPolicy(Qt::NoFocus);
        pButton->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        connect(pButton, &QToolButton::clicked, this, [this, nSign] { Step(nSign); });
        pLayout->addWidget(pButton);
    }
}

namespace {

/// A number, perhaps with a comma before each three digits: the same in every locale, as all numbers are.
QString ToText(int nNumber, bool bCommas) {
    QString strText = QString::number(nNumber);
    const qsizetype nFirst = nNumber < 0 ? 1 : 0;
    for (qsizetype i = strText.size() - 3; bCommas && i > nFirst; i -= 3) {
        strText.insert(i, u',');
    }
    return strText;
}

} // namespace

void CSpinWidget::SetRange(int nLower, int nUpper) {
    m_nLower = nLower;
    m_nUpper = nUpper;
    m_nPosition = Hold(m_nPosition);
}

int CSpinWidget::Hold(int nPosition) const {
    return std::clamp(nPosition, std::min(m_nLower, m_nUpper), std::max(m_nLower, m_nUpper));
}

int CSpinWidget::GetPosition() const {
    bool bNumber = false;
    const QString strShown = m_pBuddy && (m_dwStyle & UDS_SETBUDDYINT) ? GetText(*m_pBuddy) : QString();
    const int nShown = QString(strShown).remove(u',').toInt(&bNumber);
    return bNumber ? Hold(nShown) : m_nPosition;
}

int CSpinWidget::SetPosition(int nPosition) {
    const int nPrevious = GetPosition();
    m_nPosition = Hold(nPosition);
    if (m_pBuddy && (m_dwStyle & UDS_SETBUDDYINT)) {
        SetText(*m_pBuddy, ToText(m_nPosition, !(m_dwStyle & UDS_NOTHOUSANDS)));
    }
    return nPrevious;
}

void CSpinWidget::SetBuddy(QWidget* pBuddy) {
    if (m_pBuddy) {
        m_pBuddy->removeEventFilter(this);
    }
    m_pBuddy = pBuddy;
    if (pBuddy && (m_dwStyle & UDS_ARROWKEYS)) {
        pBuddy->installEventFilter(this);
    }
}

void CSpinWidget::AlignToBuddy() {
    if (!m_pBuddy || !(m_dwStyle & UDS_ALIGNRIGHT)) {
        return;
    }
    const QRect place = m_pBuddy->geometry();
    const int nWidth = std::min(place.width() / 2, place.height() * 3 / 4);
    m_pBuddy->setGeometry(place.adjusted(0, 0, -nWidth, 0));
    setGeometry(place.right() + 1 - nWidth, place.top(), nWidth, place.height());
}

bool CSpinWidget::eventFilter(QObject*, QEvent* pEvent) {
    const int nKey = pEvent->type() == QEvent::KeyPress ? static_cast<const QKeyEvent*>(pEvent)->key() : 0;
    if (nKey != Qt::Key_Up && nKey != Qt::Key_Down) {
        return false;
    }
    Step(nKey == Qt::Key_Up ? 1 : -1);
    return true;
}

void CSpinWidget::Step(int nSign) {
    const CPeer::CEventScope scope;
    if (!m_pPeer) {
        return;
    }
    m_pPeer->AskParent(EQuestion::notice, [this, hSpin = m_pPeer->GetHandle(), nSign]() -> CAnswer {
        NMUPDOWN notice = OnPeer(hSpin, [&](CPeer&) {
            return NMUPDOWN{{}, GetPosition(), m_nLower <= m_nUpper ? nSign : -nSign};
        });
        if (SendNotice(hSpin, notice.hdr, UDN_DELTAPOS) != 0) {
            return nullptr;
        }
        return [this, notice] { Move(notice.iPos, notice.iDelta); };
    });
}

void CSpinWidget::Move(int nFrom, int nDelta) {
    const auto record = FindWindow(m_pPeer->GetHandle());
    const std::int64_t nTo = std::int64_t{nFrom} + nDelta;
    const bool bBeyond = nTo < std::min(m_nLower, m_nUpper) || nTo > std::max(m_nLower, m_nUpper);
    const bool bUp = nTo > nFrom;
    const int nEnd =
        bUp == bool(m_dwStyle & UDS_WRAP) ? std::min(m_nLower, m_nUpper) : std::max(m_nLower, m_nUpper);
    SetPosition(bBeyond ? nEnd : static_cast<int>(nTo));
    Tell(record->hParent, WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, static_cast<UINT>(m_nPosition)),
         reinterpret_cast<LPARAM>(m_pPeer->GetHandle()));
}

CPeer* MakeSpinPeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pSpin = new CSpinWidget(description.dwStyle, pParent);
    auto* const pPeer = new CControlPeer(description, pSpin, {CControlTraits::NO_COLOR});
    pSpin->SetPeer(pPeer);
    const std::vector<HWND> siblings = ChildrenOf(description.hParent);
    if ((description.dwStyle & UDS_AUTOBUDDY) && siblings.size() >= 2) {
        const CPeer* const pBuddy =
            CPeer::Find(siblings[siblings.size() - 2]); // the last is the control itself
        pSpin->SetBuddy(pBuddy ? &pBuddy->GetWidget() : nullptr);
        pSpin->AlignToBuddy();
    }
    return pPeer;
}

} // namespace tessara

using tessara::CPeer;
using tessara::CSpinWidget;
using tessara::OnWidget;

void CSpinButtonCtrl::SetRange(int nLower, int nUpper) {
    OnWidget<CSpinWidget>(*this, [&](CSpinWidget& spin) { spin.SetRange(nLower, nUpper); });
}

void CSpinButtonCtrl::GetRange(int& nLower, int& nUpper) const {
    std::tie(nLower, nUpper) =
        OnWidget<CSpinWidget>(*this, [](CSpinWidget& spin) { return spin.GetRange(); });
}

int CSpinButtonCtrl::GetPos() const {
    return OnWidget<CSpinWidget>(*this, [](CSpinWidget& spin) { return spin.GetPosition(); });
}

int CSpinButtonCtrl::SetPos(int nPos) {
    return OnWidget<CSpinWidget>(*this, [&](CSpinWidget& spin) {
        const CPeer::CEventScope scope;
        return spin.SetPosition(nPos);
    });
}

CWnd* CSpinButtonCtrl::SetBuddy(CWnd* pBuddy) {
    CWnd* const pPrevious = GetBuddy();
    OnWidget<CSpinWidget>(*this, [&](CSpinWidget& spin) {
        CPeer* const pPeer = CPeer::Find(pBuddy ? pBuddy->GetSafeHwnd() : nullptr);
        spin.SetBuddy(pPeer ? &pPeer->GetWidget() : nullptr);
        spin.AlignToBuddy();
    });
    return pPrevious;
}

CWnd* CSpinButtonCtrl::GetBuddy() const {
    return OnWidget<CSpinWidget>(*this, [](CSpinWidget& spin) -> CWnd* {
        const CPeer* const pPeer = spin.GetBuddy() ? CPeer::Of(spin.GetBuddy()) : nullptr;
        return pPeer ? CWnd::FromHandle(pPeer->GetHandle()) : nullptr;
    });
}
