#include "tessara/platform/ui/controls/Static.h"

#include "tessara/platform/qt/controls/ControlPeer.h"
#include "tessara/platform/qt/controls/Edges.h"
#include "tessara/platform/qt/controls/LabelWidget.h"
#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/qt/drawing/Pictures.h"

namespace tessara {

namespace {

constexpr DWORD SS_KIND = 0x1F;

/// A text with the mnemonic's mark taken out.
QString WithoutPrefix(const QString& strText) {
    QString strPlain;
    for (qsizetype i = 0; i < strText.size(); ++i) {
        if (strText[i] == u'&' && i + 1 < strText.size()) {
            ++i;
        }
        strPlain += strText[i];
    }
    return strPlain;
}

Qt::Alignment ToAlignment(DWORD dwStyle) {
    switch (dwStyle & SS_KIND) {
    case SS_CENTER:
        return Qt::AlignHCenter | Qt::AlignTop;
    case SS_RIGHT:
        return Qt::AlignRight | Qt::AlignTop;
    default:
        return Qt::AlignLeft | Qt::AlignTop;
    }
}

bool IsPicture(DWORD dwStyle) {
    return (dwStyle & SS_KIND) == SS_ICON || (dwStyle & SS_KIND) == SS_BITMAP;
}

} // namespace

void CLabelWidget::SetWindowText(const QString& strText) {
    m_strText = strText;
    ShowText();
}

bool CLabelWidget::HasMnemonic() const {
    return m_bPrefix && WithoutPrefix(m_strText) != m_strText;
}

void CLabelWidget::SetLabelled(QWidget* pWidget) {
    m_pLabelled = pWidget;
    setBuddy(m_bPrefix ? pWidget : nullptr);
    ShowText();
}

void CLabelWidget::ShowText() {
    if (m_pLabelled) {
        m_pLabelled->setAccessibleName(m_bPrefix ? WithoutPrefix(m_strText) : m_strText);
    }
    if (!m_bPicture) {
        setText(buddy() || !m_bPrefix ? m_strText : WithoutPrefix(m_strText));
    }
}

CPeer* MakeStaticPeer(const CWindowDescription& description, QWidget* pParent) {
    const DWORD dwStyle = description.dwStyle;
    auto* const pLabel = new CLabelWidget(pParent, !(dwStyle & SS_NOPREFIX), IsPicture(dwStyle));
    pLabel->setAlignment(ToAlignment(dwStyle));
    pLabel->setWordWrap((dwStyle & SS_KIND) != SS_LEFTNOWORDWRAP);
    pLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
    SetEdge(*pLabel, description);
    if (dwStyle & SS_SUNKEN) {
        pLabel->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        pLabel->lower(); // may lie around other controls
    }
    if (IsPicture(dwStyle) && description.strText.Find('#') == 0) {
        const UINT nID = ToQString(description.strText.Mid(1).View()).toUInt();
        const auto eKind = (dwStyle & SS_KIND) == SS_ICON ? EFileResource::icon : EFileResource::bitmap;
        pLabel->setPixmap(LoadPicture(eKind, nID, pLabel->devicePixelRatioF()));
    }
    return new CControlPeer(description, pLabel, {CTLCOLOR_STATIC});
}

} // namespace tessara
