#include "tessara/platform/qt/WindowText.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace tessara {

QString GetText(const QWidget& widget) {
    if (const auto* pButton = qobject_cast<const QAbstractButton*>(&widget)) {
        return pButton->text();
    }
    if (const auto* pLabel = qobject_cast<const QLabel*>(&widget)) {
        return pLabel->text();
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
    } else if (auto* pLabel = qobject_cast<QLabel*>(&widget)) {
        pLabel->setText(strText);
    } else if (auto* pLine = qobject_cast<QLineEdit*>(&widget)) {
        pLine->setText(strText);
    } else if (auto* pText = qobject_cast<QPlainTextEdit*>(&widget)) {
        pText->setPlainText(strText);
    } else if (auto* pGroup = qobject_cast<QGroupBox*>(&widget)) {
        pGroup->setTitle(strText);
    } else {
        widget.setWindowTitle(strText);
    }
}

} // namespace tessara
