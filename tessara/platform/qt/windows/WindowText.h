#pragma once

#include <QString>

class QWidget;

namespace tessara {

/// The text of a widget, wherever its kind keeps it: a caption, a label, what was typed.
QString GetText(const QWidget& widget);
void SetText(QWidget& widget, const QString& strText);

} // namespace tessara
