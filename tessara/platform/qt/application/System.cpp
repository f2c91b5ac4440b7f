#include "tessara/platform/ui/windows/System.h"

#include <QApplication>
#include <QFontInfo>
#include <QPalette>
#include <QScreen>
#include <QStyle>
#include <cmath>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/threads/Mailbox.h"

namespace tessara {

namespace {

/// Which of Qt's colours stands for a number.
QColor SystemColorOf(int nIndex, const QPalette& palette) {
    switch (nIndex) {
    case COLOR_WINDOW:
        return palette.color(QPalette::Base);
    case COLOR_WINDOWTEXT:
        return palette.color(QPalette::Text);
    case COLOR_MENUTEXT:
        return palette.color(QPalette::WindowText);
    case COLOR_BTNTEXT:
    case COLOR_CAPTIONTEXT:
        return palette.color(QPalette::ButtonText);
    case COLOR_GRAYTEXT:
        return palette.color(QPalette::Disabled, QPalette::WindowText);
    case COLOR_HIGHLIGHT:
    case COLOR_ACTIVECAPTION:
        return palette.color(QPalette::Highlight);
    case COLOR_HIGHLIGHTTEXT:
        return palette.color(QPalette::HighlightedText);
    case COLOR_BTNFACE:
    case COLOR_SCROLLBAR:
    case COLOR_MENU:
    case COLOR_INACTIVECAPTION:
        return palette.color(QPalette::Window);
    case COLOR_BTNSHADOW:
    case COLOR_APPWORKSPACE:
        return palette.color(QPalette::Dark);
    case COLOR_3DDKSHADOW:
    case COLOR_WINDOWFRAME:
        return palette.color(QPalette::Shadow);
    case COLOR_BTNHIGHLIGHT:
        return palette.color(QPalette::Light);
    case COLOR_3DLIGHT:
    case COLOR_BACKGROUND:
        return palette.color(QPalette::Midlight);
    case COLOR_INFOTEXT:
        return palette.color(QPalette::ToolTipText);
    case COLOR_INFOBK:
        return palette.color(QPalette::ToolTipBase);
    default:
        return Qt::black;
    }
}

int ToPixels(int nLength, const QScreen& screen) {
    return static_cast<int>(std::lround(nLength * screen.devicePixelRatio()));
}

int StyleMetric(QStyle::PixelMetric eMetric, const QScreen& screen) {
    // A host without widgets has no style.
    const bool bWidgets = qobject_cast<const QApplication*>(QCoreApplication::instance()) != nullptr;
    return bWidgets ? ToPixels(QApplication::style()->pixelMetric(eMetric), screen) : 0;
}

int MetricOf(int nIndex, const QScreen& screen) {
    switch (nIndex) {
    case SM_CXSCREEN:
        return ToPixels(screen.size().width(), screen);
    case SM_CYSCREEN:
        return ToPixels(screen.size().height(), screen);
    case SM_CXFULLSCREEN:
        return ToPixels(screen.availableSize().width(), screen);
    case SM_CYFULLSCREEN:
        return ToPixels(screen.availableSize().height(), screen);
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
        return StyleMetric(QStyle::PM_ScrollBarExtent, screen);
    case SM_CXICON:
    case SM_CYICON:
        return StyleMetric(QStyle::PM_LargeIconSize, screen);
    case SM_CXSMICON:
    case SM_CYSMICON:
        return StyleMetric(QStyle::PM_SmallIconSize, screen);
    default:
        return 0;
    }
}

LOGFONT Describe(const QFont& font, double dRatio) {
    const QFontInfo info(font);
    LOGFONT description{};
    description.lfHeight = -static_cast<LONG>(std::lround(info.pixelSize() * dRatio));
    description.lfWeight = info.weight();
    description.lfItalic = info.italic();
    const std::string strFamily = info.family().toStdString();
    const std::string_view str = CutText(strFamily, sizeof description.lfFaceName - 1);
    str.copy(description.lfFaceName, str.size());
    return description;
}

} // namespace

void RequireWindows() {
    OnMainThread([] { EnsureApplication(ENeed::windows); });
}

LOGFONT WindowFont(const CWnd* pWnd) {
    return OnMainThread([&] {
        EnsureApplication();
        CPeer* const pPeer = pWnd ? CPeer::Find(pWnd->GetSafeHwnd()) : nullptr;
        if (pPeer && pPeer->GetFont()) {
            return *pPeer->GetFont();
        }
        return pPeer ? Describe(pPeer->GetWidget().font(), pPeer->GetRatio())
                     : Describe(QApplication::font(), qApp->devicePixelRatio());
    });
}

double WindowScale(const CWnd* pWnd) {
    return OnMainThread([&] {
        CPeer* const pPeer = pWnd ? CPeer::Find(pWnd->GetSafeHwnd()) : nullptr;
        return pPeer ? pPeer->GetRatio() : 1.0;
    });
}

} // namespace tessara

COLORREF GetSysColor(int nIndex) {
    return tessara::OnMainThread([&] {
        tessara::EnsureApplication();
        const QColor color = tessara::SystemColorOf(nIndex, QApplication::palette());
        return RGB(color.red(), color.green(), color.blue());
    });
}

int GetSystemMetrics(int nIndex) {
    return tessara::OnMainThread([&] {
        tessara::EnsureApplication();
        const QScreen* const pScreen = QApplication::primaryScreen();
        return pScreen ? tessara::MetricOf(nIndex, *pScreen) : 0;
    });
}
