#pragma once

#include <QAbstractButton>
#include <QButtonGroup>

namespace tessara {

/// Lets Tab stop in a group of radio buttons once: at the one that is set, or else at the first.
inline void SetTabStop(const QButtonGroup& group) {
    const QList<QAbstractButton*> buttons = group.buttons();
    const QAbstractButton* const pStop = group.checkedButton() ? group.checkedButton() : buttons.value(0);
    for (QAbstractButton* pButton : buttons) {
        const int nOthers = pButton->focusPolicy() & ~Qt::TabFocus;
        pButton->setFocusPolicy(
            static_cast<Qt::FocusPolicy>(pButton == pStop ? nOthers | Qt::TabFocus : nOthers));
    }
}

} // namespace tessara
