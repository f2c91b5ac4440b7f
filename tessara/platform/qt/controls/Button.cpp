#include "tessara/platform/ui/controls/Button.h"

#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "tessara/platform/qt/controls/ControlPeer.h"
#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/qt/controls/RadioGroup.h"

namespace tessara {

namespace {

/// A frame around other controls, which are its siblings. Its mnemonic leads to the control after it.
class CGroupWidget : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

    bool event(QEvent* pEvent) override {
        if (pEvent->type() != QEvent::Shortcut) {
            return QGroupBox::event(pEvent);
        }
        QWidget* pNext = nextInFocusChain();
        while (pNext != this &&
               (!(pNext->focusPolicy() & Qt::TabFocus) || !pNext->isVisible() || !pNext->isEnabled())) {
            pNext = pNext->nextInFocusChain();
        }
        pNext->setFocus(Qt::ShortcutFocusReason);
        return true;
    }
};

QAbstractButton* MakeButton(DWORD nKind, QWidget* pParent) {
    switch (nKind) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
        return new QCheckBox(pParent);
    case BS_AUTO3STATE: {
        auto* const pBox = new QCheckBox(pParent);
        pBox->setTristate();
        return pBox;
    }
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return new QRadioButton(pParent);
    default: {
        auto* const pButton = new QPushButton(pParent);
        pButton->setDefault(nKind == BS_DEFPUSHBUTTON);
        return pButton;
    }
    }
}

CPeer* MakeGroupPeer(const CWindowDescription& description, QWidget* pParent) {
    auto* const pGroup = new CGroupWidget(pParent);
    pGroup->setAttribute(Qt::WA_TransparentForMouseEvents);
    pGroup->lower(); // the controls in it are its siblings
    return new CControlPeer(description, pGroup, {CTLCOLOR_STATIC});
}

/// Clears or sets a button that may be one of an exclusive group, where Qt clears none by itself.
void SetChecked(QAbstractButton& button, bool bCheck) {
    QButtonGroup* const pGroup = button.group();
    if (pGroup && !bCheck) {
        pGroup->setExclusive(false);
    }
    const bool bExclusive = button.autoExclusive();
    button.setAutoExclusive(bExclusive && bCheck);
    button.setChecked(bCheck);
    button.setAutoExclusive(bExclusive);
    if (pGroup) {
        pGroup->setExclusive(true);
        SetTabStop(*pGroup);
    }
}

} // namespace

CPeer* MakeButtonPeer(const CWindowDescription& description, QWidget* pParent) {
    const DWORD nKind = description.dwStyle & BS_TYPEMASK;
    if (nKind == BS_GROUPBOX) {
        return MakeGroupPeer(description, pParent);
    }
    QAbstractButton* const pButton = MakeButton(nKind, pParent);
    const bool bPush = qobject_cast<QPushButton*>(pButton) != nullptr;
    auto* const pPeer =
        new CControlPeer(description, pButton, {bPush ? CControlTraits::NO_COLOR : UINT{CTLCOLOR_STATIC}});
    OnSignal(*pPeer, pButton, &QAbstractButton::clicked, [pPeer](bool) { pPeer->Notify(BN_CLICKED); });
    return pPeer;
}

} // namespace tessara

using tessara::OnWidget;

int CButton::GetCheck() const {
    return OnWidget<QAbstractButton>(*this, [](QAbstractButton& button) {
        const auto* const pBox = qobject_cast<const QCheckBox*>(&button);
        if (pBox && pBox->checkState() == Qt::PartiallyChecked) {
            return 2;
        }
        return button.isChecked() ? 1 : 0;
    });
}

void CButton::SetCheck(int nCheck) {
    OnWidget<QAbstractButton>(*this, [&](QAbstractButton& button) {
        auto* const pBox = qobject_cast<QCheckBox*>(&button);
        if (pBox && pBox->isTristate()) {
            pBox->setCheckState(nCheck == 2 ? Qt::PartiallyChecked : nCheck ? Qt::Checked : Qt::Unchecked);
        } else {
            tessara::SetChecked(button, nCheck != 0);
        }
    });
}

void CButton::SetButtonStyle(UINT nStyle, BOOL) {
    ModifyStyle(BS_TYPEMASK, nStyle & BS_TYPEMASK);
    OnWidget<QPushButton>(
        *this, [&](QPushButton& button) { button.setDefault((nStyle & BS_TYPEMASK) == BS_DEFPUSHBUTTON); });
}
