#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "tessara/platform/ui/resources/Resources.h"

namespace tessara {

/// Where a dialog's controls are. Their template says it in dialog units; a unit is as large as the dialog's
/// font asks for, and larger, in the whole dialog, when a text or the caption would not fit. The dialog grows
/// and never shrinks; what the program has placed otherwise stays there.
class CDialogLayout {
public:
    CDialogLayout(QWidget& dialog, const CDialogTemplate& resource, const std::vector<QWidget*>& controls);

    /// Looks at the texts again.
    void Fit();
    QSizeF GetUnit() const { return {m_unit.width() * m_dWide, m_unit.height() * m_dHigh}; }

private:
    struct CPlacedControl {
        QPointer<QWidget> pWidget;
        QRect units;
        QRect placed; ///< null before the first time
    };
    bool Grow();
    void Place();
    QRect ToPlace(const QRect& units) const;

    QWidget& m_dialog;
    QSize m_units;
    QSizeF m_unit; ///< of the font
    double m_dWide = 1;
    double m_dHigh = 1;
    QSize m_placed;
    std::vector<CPlacedControl> m_controls;
};

/// After a text has changed: lets the dialog that the widget belongs to grow, if it is one.
void FitDialog(QWidget& widget);

} // namespace tessara
