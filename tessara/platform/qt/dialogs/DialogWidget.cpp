#include "tessara/platform/qt/dialogs/DialogWidget.h"

#include <QKeyEvent>
#include <QPushButton>

#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/threads/Dispatch.h"

namespace tessara {

void CDialogWidget::keyPressEvent(QKeyEvent* pEvent) {
    const CPeer::CEventScope scope;
    const auto eHeld = pEvent->modifiers() & ~Qt::KeypadModifier;
    if (pEvent->matches(QKeySequence::Cancel)) {
        SendCommand(IDCANCEL);
    } else if (!eHeld && (pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter)) {
        PressDefault();
    } else {
        QWidget::keyPressEvent(pEvent); // NOLINT(bugprone-parent-virtual-call): without QDialog's own keys
    }
}

void CDialogWidget::PressDefault() {
    for (QPushButton* pButton : findChildren<QPushButton*>()) {
        if (pButton->isDefault() && pButton->isVisible()) {
            pButton->click(); // does nothing when it is disabled
            return;
        }
    }
    SendCommand(IDOK);
}

void CDialogWidget::SendCommand(UINT nID) {
    const auto* const pButton = findChild<const QWidget*>(QString::number(nID), Qt::FindDirectChildrenOnly);
    if (!pButton || pButton->isEnabled()) {
        Tell(m_hDialog, WM_COMMAND, MAKEWPARAM(nID, BN_CLICKED));
    }
}

CPeer* MakeDialogPeer(const CWindowDescription& description, QWidget* pParent) {
    const DWORD dwFrame = description.dwStyle & DS_MODALFRAME ? DWORD{WS_DLGFRAME} : 0;
    Qt::WindowFlags flags =
        (ToWindowFlags(description.dwStyle | dwFrame) & ~Qt::WindowType_Mask) | Qt::Dialog;
    if (!(description.dwStyle & WS_THICKFRAME)) {
        flags |= Qt::MSWindowsFixedSizeDialogHint;
    }
    auto* const pDialog = new CDialogWidget(description.hWnd, pParent, flags);
    pDialog->setObjectName(QString::number(description.nID));
    return new CPeer(description, pDialog);
}

} // namespace tessara
