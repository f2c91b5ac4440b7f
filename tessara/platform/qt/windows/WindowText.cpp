#include "tessara/platform/qt/windows/WindowText.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "tessara/platform/qt/controls/LabelWidget.h"

namespace tessara {

QString GetText(const QWidget& widget) {
    if (const auto* pButton = qobject_cast<const QAbstractButton*>(&widget)) {
        return pButton->text();
    }
    if (const auto* pLabel = dynamic_cast<const CLabelWidget*>(&widget)) {
        return pLabel->GetWindowText();
    }
    if (const auto* pLine = qobject_cast<const QLineEdit*>(&widget)) {
        return pLine->text();
    }
    if (const auto* pText = qobject_cast<const QPlainTextEdit*>(&widget)) {
        return pText->toPlainText();
    }
    if (const auto* pGroup = qobject_cast<const QGroupBox*>(&widget)) {
        return pGroup->title();
    }
    return widget.windowTitle();
}

void SetText(QWidget& widget, const QString& strText) {
    if (auto* pButton = qobject_cast<QAbstractButton*>(&widget)) {
        pButton->setText(strText);
    } else if (auto* pLabel = dynamic_cast<CLabelWidget*>(&widget)) {
        pLabel->SetWindowText(strText);
    } else if (auto* pLine = qobject_cast<QLineEdit*>(&widget)) {
        const QValidator* const pValidator = pLine->validator(); // of what the user types
        pLine->setValidator(nullptr);
        pLine->setText(strText);
        pLine->setValidator(pValidator);
    } else if (auto* pText = qobject_cast<QPlainTextEdit*>(&widget)) {
        const QSignalBlocker blocker(pText); // only the user's changes are told
        pText->setPlainText(strText);
    } else if (auto* pGroup = qobject_cast<QGroupBox*>(&widget)) {
        pGroup->setTitle(strText);
    } else {
        widget.setWindowTitle(strText);
    }
}

} // namespace tessara
