#include "tessara/platform/ui/dialogs/Dialog.h"

#include <QApplication>
#include <QRadioButton>
#include <QScreen>
#include <algorithm>

#include "tessara/platform/qt/controls/LabelWidget.h"
#include "tessara/platform/qt/controls/RadioGroup.h"
#include "tessara/platform/qt/dialogs/DialogWidget.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/qt/windows/WindowBlock.h"
#include "tessara/platform/ui/dialogs/DialogSeam.h"

namespace tessara {

namespace {

std::vector<QWidget*> ControlsOf(HWND hDialog) {
    std::vector<QWidget*> controls;
    for (const HWND hChild : ChildrenOf(hDialog)) {
        const CPeer* const pPeer = CPeer::Find(hChild);
        controls.push_back(pPeer ? &pPeer->GetWidget() : nullptr);
    }
    return controls;
}

/// Whether a text without mnemonic is plainly the label of the control after it: to its left or above it.
bool IsLabelOf(const CDialogItem& label, const CDialogItem& control) {
    constexpr int INDENT = 8;
    return label.x <= control.x + INDENT && label.y <= control.y + INDENT;
}

bool TakesKeyboard(const QWidget* pWidget) {
    return pWidget && (pWidget->focusPolicy() & Qt::TabFocus);
}

/// Finds the control whose label an item is, or null.
QWidget* FindLabelled(const CDialogTemplate& resource, const std::vector<QWidget*>& controls,
                      std::size_t nLabel) {
    const bool bMnemonic = static_cast<const CLabelWidget*>(controls[nLabel])->HasMnemonic();
    for (std::size_t i = nLabel + 1; i < controls.size(); ++i) {
        const bool bNamesItself = qobject_cast<const QAbstractButton*>(controls[i]) != nullptr;
        if (TakesKeyboard(controls[i]) && (bMnemonic || !bNamesItself)) {
            return bMnemonic || IsLabelOf(resource.items[nLabel], resource.items[i]) ? controls[i] : nullptr;
        }
        if (!bMnemonic) {
            return nullptr;
        }
    }
    return nullptr;
}

void TieLabels(const CDialogTemplate& resource, const std::vector<QWidget*>& controls) {
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (auto* const pLabel = dynamic_cast<CLabelWidget*>(controls[i])) {
            pLabel->SetLabelled(FindLabelled(resource, controls, i));
        }
    }
}

/// Puts the radio buttons from one item with WS_GROUP to the next into a group.
void TieRadioButtons(const CDialogTemplate& resource, const std::vector<QWidget*>& controls,
                     QWidget& dialog) {
    QButtonGroup* pGroup = nullptr;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (resource.items[i].dwStyle & WS_GROUP) {
            pGroup = nullptr;
        }
        if (auto* const pButton = qobject_cast<QRadioButton*>(controls[i])) {
            pGroup = pGroup ? pGroup : new QButtonGroup(&dialog);
            pGroup->addButton(pButton);
            SetTabStop(*pGroup);
        }
    }
}

/// A control without WS_TABSTOP is reached by the mouse alone. Of radio buttons Qt lets the one that is set
/// be reached.
void SetTabStops(const CDialogTemplate& resource, const std::vector<QWidget*>& controls) {
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (TakesKeyboard(controls[i]) && !(resource.items[i].dwStyle & WS_TABSTOP) &&
            !qobject_cast<QRadioButton*>(controls[i])) {
            controls[i]->setFocusPolicy(Qt::ClickFocus);
        }
    }
}

void MoveDialog(QWidget& dialog, const CPeer* pOwner, QPointF units, QSizeF unit) {
    const QPoint origin = pOwner ? pOwner->GetClient().mapToGlobal(QPoint(0, 0))
                                 : dialog.screen()->availableGeometry().topLeft();
    const QRect screen = dialog.screen()->availableGeometry();
    const QPoint place = origin + QPointF(units.x() * unit.width(), units.y() * unit.height()).toPoint();
    dialog.move(std::max(screen.left(), std::min(place.x(), screen.right() - dialog.width())),
                std::max(screen.top(), std::min(place.y(), screen.bottom() - dialog.height())));
}

} // namespace

void LayOutDialog(HWND hDialog, const CDialogTemplate& resource) {
    OnMainThread([&] {
        CPeer* const pPeer = CPeer::Find(hDialog);
        auto* const pDialog = pPeer ? dynamic_cast<CDialogWidget*>(&pPeer->GetWidget()) : nullptr;
        std::vector<QWidget*> controls = ControlsOf(hDialog);
        if (!pDialog || controls.size() != resource.items.size()) {
            return;
        }
        SetTabStops(resource, controls);
        TieLabels(resource, controls);
        TieRadioButtons(resource, controls, *pDialog);
        pDialog->m_pLayout = std::make_unique<CDialogLayout>(*pDialog, resource, controls);
        const auto record = FindWindow(hDialog);
        MoveDialog(*pDialog, record ? CPeer::Find(record->hParent) : nullptr, QPointF(resource.x, resource.y),
                   pDialog->m_pLayout->GetUnit());
    });
}

void FocusFirstControl(HWND hDialog) {
    OnMainThread([&] {
        const CPeer::CEventScope scope;
        const CPeer* const pPeer = CPeer::Find(hDialog);
        for (QWidget* pWidget : ControlsOf(hDialog)) {
            if (pPeer && TakesKeyboard(pWidget) && pWidget->isEnabled() &&
                pWidget->isVisibleTo(&pPeer->GetWidget())) {
                pWidget->setFocus(Qt::TabFocusReason);
                return;
            }
        }
    });
}

bool BlockOwner(HWND hOwner) {
    return OnMainThread([&] {
        const CPeer::CEventScope scope;
        const CPeer* const pPeer = CPeer::Find(hOwner);
        const bool bBlock = pPeer && IsReachable(pPeer->GetWidget());
        if (bBlock) {
            BlockWindow(pPeer->GetWidget(), true);
        }
        return bBlock;
    });
}

void UnblockOwner(HWND hOwner) {
    if (!FindWindow(hOwner)) {
        return;
    }
    OnMainThread([&] {
        const CPeer::CEventScope scope;
        if (const CPeer* const pPeer = CPeer::Find(hOwner)) {
            BlockWindow(pPeer->GetWidget(), false);
        }
        const CPeer* const pPeer = CPeer::Find(hOwner); // unless a handler of WM_ENABLE has destroyed it
        if (pPeer && pPeer->GetWidget().isVisible()) {
            pPeer->GetWidget().raise();
            pPeer->GetWidget().activateWindow();
        }
    });
}

HWND FindActiveWindow() {
    const auto& pOwn = CMailbox::OfThisThread();
    return OnMainThread([&]() -> HWND {
        const QWidget* const pActive = QApplication::activeWindow();
        const CPeer* const pPeer = CPeer::Of(pActive);
        const auto record = pPeer ? FindWindow(pPeer->GetHandle()) : std::nullopt;
        return record && record->pOwner == pOwn ? pPeer->GetHandle() : nullptr;
    });
}

} // namespace tessara

using tessara::CDialogWidget;
using tessara::CPeer;

void CDialog::NextDlgCtrl() const {
    tessara::OnWidget<CDialogWidget>(*this, [](CDialogWidget& dialog) {
        const CPeer::CEventScope scope;
        dialog.MoveFocus(true);
    });
}

void CDialog::PrevDlgCtrl() const {
    tessara::OnWidget<CDialogWidget>(*this, [](CDialogWidget& dialog) {
        const CPeer::CEventScope scope;
        dialog.MoveFocus(false);
    });
}

void CDialog::GotoDlgCtrl(CWnd* pControl) {
    tessara::OnPeer(*pControl, [](CPeer& peer) {
        const CPeer::CEventScope scope;
        peer.GetWidget().setFocus(Qt::TabFocusReason); // selects an edit's text
    });
}
