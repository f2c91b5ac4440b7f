#include "tessara/platform/qt/controls/ControlPeer.h"

#include <QApplication>
#include <algorithm>
#include <cmath>

#include "tessara/platform/ui/threads/Dispatch.h"
#include "tessara/platform/ui/threads/MessageMap.h"

namespace tessara {

namespace {

COLORREF ToColorRef(const QColor& color) {
    return static_cast<COLORREF>(color.red() | color.green() << 8 | color.blue() << 16);
}

double Luminance(const QColor& color) {
    const auto fnLinear = [](double dPart) {
        return dPart <= 0.04045 ? dPart / 12.92 : std::pow((dPart + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * fnLinear(color.redF()) + 0.7152 * fnLinear(color.greenF()) +
           0.0722 * fnLinear(color.blueF());
}

/// The desktop's colour of text, unless that is hard to read on a ground that a program has fixed without
/// choosing a colour of text: then black or white. The measure is the contrast ratio of the accessibility
/// guidelines, in which 4.5 is the least for text.
QColor ReadableOn(const QColor& ground, const QColor& usual) {
    constexpr double VEIL = 0.05;
    constexpr double LEAST_CONTRAST = 4.5;
    const double dGround = Luminance(ground) + VEIL;
    const double dText = Luminance(usual) + VEIL;
    if (std::max(dGround, dText) / std::min(dGround, dText) >= LEAST_CONTRAST) {
        return usual;
    }
    return dGround * dGround >= VEIL * (1 + VEIL) ? Qt::black : Qt::white;
}

/// Sets a colour of text and, of what is disabled, one half way to the ground.
void SetTextColor(QPalette& palette, const QColor& text, const QColor& ground) {
    const QColor faint((text.red() + ground.red()) / 2, (text.green() + ground.green()) / 2,
                       (text.blue() + ground.blue()) / 2);
    for (const auto eRole : {QPalette::WindowText, QPalette::Text}) {
        palette.setColor(eRole, text);
        palette.setColor(QPalette::Disabled, eRole, faint);
    }
}

/// Asks a control's parent for its colours, on the parent's thread.
CControlColors AskForColors(HWND hControl, UINT nKind, const QColor& usualText) {
    const auto record = FindWindow(hControl);
    if (!record) {
        return {};
    }
    CDC dc; // without device: the handler sets its colours
    dc.SetTextColor(ToColorRef(usualText));
    unpack::CControlColorQuestion question{&dc, record->pWnd, nKind};
    const CReply reply = Tell(record->hParent, WM_CTLCOLOR, 0, reinterpret_cast<LPARAM>(&question));
    const auto* const pBrush = reinterpret_cast<HBRUSH>(reply.lResult);
    const COLORREF text = dc.GetState().textColor;
    CControlColors colors;
    if (reply.bHandled && pBrush && pBrush->IsCreated()) {
        colors.ground = ToQColor(pBrush->GetLogBrush().lbColor);
    }
    if (text != ToColorRef(usualText)) {
        colors.text = ToQColor(text);
    }
    return colors;
}

} // namespace

CControlPeer::CControlPeer(const CWindowDescription& description, QWidget* pWidget,
                           const CControlTraits& traits, QWidget* pClient)
    : CPeer(description, pWidget, pClient), m_traits(traits) {}

void CControlPeer::SetFocusCodes(UINT nSetFocus, UINT nKillFocus) {
    m_traits.nSetFocus = nSetFocus;
    m_traits.nKillFocus = nKillFocus;
}

void CControlPeer::Invalidate(bool bErase) {
    CPeer::Invalidate(bErase);
    if (GetWidget().isVisible()) {
        AskColors();
    }
}

bool CControlPeer::eventFilter(QObject* pWatched, QEvent* pEvent) {
    const bool bTaken = CPeer::eventFilter(pWatched, pEvent);
    if (pWatched != &GetWidget() || !FindWindow(GetHandle())) {
        return bTaken;
    }
    const CEventScope scope;
    if (pEvent->type() == QEvent::Show && !pEvent->spontaneous()) {
        AskColors();
    } else if (pEvent->type() == QEvent::FocusIn && m_traits.nSetFocus) {
        Notify(m_traits.nSetFocus);
    } else if (pEvent->type() == QEvent::FocusOut && m_traits.nKillFocus) {
        Notify(m_traits.nKillFocus);
    }
    return bTaken;
}

void CControlPeer::AskColors() {
    const auto record = FindWindow(GetHandle());
    const auto parent = record ? FindWindow(record->hParent) : std::nullopt;
    const bool bHere = parent && parent->pOwner->IsOfThisThread();
    if (m_traits.nColor == CControlTraits::NO_COLOR || !parent || (!bHere && !parent->bColors)) {
        return;
    }
    const QColor usual = QApplication::palette(&GetWidget()).color(QPalette::WindowText);
    AskParent(EQuestion::colors, [this, hControl = GetHandle(), nKind = m_traits.nColor, usual]() -> CAnswer {
        const CControlColors colors = AskForColors(hControl, nKind, usual);
        return [this, colors] { SetColors(colors); };
    });
}

void CControlPeer::SetColors(const CControlColors& colors) {
    QPalette palette;
    if (colors.ground) {
        palette.setColor(QPalette::Window, *colors.ground);
        palette.setColor(QPalette::Base, *colors.ground);
    }
    const bool bColored = colors.ground || colors.text;
    if (bColored) {
        const QPalette usual = QApplication::palette(&GetWidget());
        const QColor ground = colors.ground.value_or(usual.color(QPalette::Window));
        SetTextColor(palette, colors.text.value_or(ReadableOn(ground, usual.color(QPalette::WindowText))),
                     ground);
    }
    if (bColored || m_bColored) {
        GetWidget().setPalette(palette);
        GetWidget().setAutoFillBackground(colors.ground.has_value());
    }
    m_bColored = bColored;
}

} // namespace tessara
