#include "tessara/platform/ui/dialogs/MessageBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <array>
#include <cstdio>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/qt/dialogs/OwnedDialog.h"
#include "tessara/platform/qt/windows/PaintScope.h"
#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

namespace {

/// The buttons of one kind of message box, in the framework's order.
struct CButtons {
    std::array<QMessageBox::StandardButton, 3> buttons;
    QMessageBox::StandardButton eEscape;
};

constexpr auto NONE = QMessageBox::NoButton;
constexpr CButtons BUTTONS[] = {
    {{QMessageBox::Ok, NONE, NONE}, QMessageBox::Ok},
    {{QMessageBox::Ok, QMessageBox::Cancel, NONE}, QMessageBox::Cancel},
    {{QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore}, NONE},
    {{QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}, QMessageBox::Cancel},
    {{QMessageBox::Yes, QMessageBox::No, NONE}, NONE},
    {{QMessageBox::Retry, QMessageBox::Cancel, NONE}, QMessageBox::Cancel},
};

QMessageBox::Icon ToIcon(UINT nType) {
    switch (nType & MB_ICONMASK) {
    case MB_ICONSTOP:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::Warning;
    }
}

int ToAnswer(int nButton) {
    switch (nButton) {
    case QMessageBox::Ok:
        return IDOK;
    case QMessageBox::Abort:
        return IDABORT;
    case QMessageBox::Retry:
        return IDRETRY;
    case QMessageBox::Ignore:
        return IDIGNORE;
    case QMessageBox::Yes:
        return IDYES;
    case QMessageBox::No:
        return IDNO;
    default:
        return IDCANCEL;
    }
}

int ShowMessage(const char* pszText, const QString& strCaption, UINT nType) {
    if (!CanMakeWindows()) {
        // What the user is to know must not be lost.
        std::fprintf(stderr, "%s: %s\n", strCaption.toUtf8().constData(), pszText);
        return 0;
    }
    EnsureMainPump();
    const CPeer::CEventScope scope;
    const CPaintHold hold; // a handler that paints may have thrown
    const CButtons& kind = BUTTONS[std::min<std::size_t>(nType & MB_TYPEMASK, std::size(BUTTONS) - 1)];
    const COwnedDialog<QMessageBox> box(ToIcon(nType), strCaption, ToQString(pszText), QMessageBox::NoButton,
                                        QApplication::activeWindow());
    box->setTextFormat(Qt::PlainText);
    const std::size_t nDefault = nType & MB_DEFBUTTON3 ? 2 : nType & MB_DEFBUTTON2 ? 1 : 0;
    for (std::size_t i = 0; i < kind.buttons.size() && kind.buttons[i] != NONE; ++i) {
        box->addButton(kind.buttons[i]);
        if (i == nDefault) {
            box->setDefaultButton(kind.buttons[i]);
        }
    }
    if (kind.eEscape != NONE) {
        box->setEscapeButton(kind.eEscape);
    }
    return ToAnswer(box->exec());
}

} // namespace

} // namespace tessara

int AfxMessageBox(const char* pszText, UINT nType, UINT) {
    return tessara::OnMainThread([&] {
        return tessara::ShowMessage(pszText ? pszText : "", QApplication::applicationDisplayName(), nType);
    });
}

int AfxMessageBox(UINT nTextID, UINT nType, UINT nHelpID) {
    const char* const pszText = tessara::FindStringResource(nTextID);
    if (!pszText) {
        AfxThrowResourceException();
    }
    return AfxMessageBox(pszText, nType, nHelpID);
}

int CWnd::MessageBox(const char* pszText, const char* pszCaption, UINT nType) {
    return tessara::OnMainThread([&] {
        const QString strCaption =
            pszCaption ? tessara::ToQString(pszCaption) : QApplication::applicationDisplayName();
        return tessara::ShowMessage(pszText ? pszText : "", strCaption, nType);
    });
}
