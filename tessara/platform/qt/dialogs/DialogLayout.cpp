#include "tessara/platform/qt/dialogs/DialogLayout.h"

#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "tessara/platform/qt/controls/LabelWidget.h"
#include "tessara/platform/qt/controls/PeerFactory.h"
#include "tessara/platform/qt/controls/SpinWidget.h"
#include "tessara/platform/qt/dialogs/DialogWidget.h"

namespace tessara {

namespace {

constexpr double MAX_GROWTH = 2.5;
constexpr double GROWTH_STEP = 0.05;

/// A quarter of the mean width of the letters, an eighth of the height of a line.
QSizeF UnitOf(const QWidget& widget) {
    const QString strLetters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    const QFontMetricsF metrics(widget.font());
    return {metrics.horizontalAdvance(strLetters) / static_cast<double>(strLetters.size()) / 4,
            metrics.height() / 8};
}

/// What a control needs for its text; zero where any size will do.
QSize NeedOf(const QWidget& widget) {
    const QFontMetrics metrics = widget.fontMetrics();
    const auto fnWidth = [&](const QString& strText) {
        return metrics.size(Qt::TextShowMnemonic, strText).width();
    };
    if (const auto* pButton = qobject_cast<const QPushButton*>(&widget)) {
        constexpr int MARGIN_X = 16;
        constexpr int MARGIN_Y = 6;
        return {fnWidth(pButton->text()) + MARGIN_X, metrics.height() + MARGIN_Y};
    }
    if (qobject_cast<const QAbstractButton*>(&widget)) {
        return widget.sizeHint();
    }
    if (const auto* pGroup = qobject_cast<const QGroupBox*>(&widget)) {
        constexpr int MARGIN = 20;
        return {fnWidth(pGroup->title()) + MARGIN, 0};
    }
    if (qobject_cast<const QLineEdit*>(&widget)) {
        constexpr int MARGIN = 6;
        return {0, metrics.height() + MARGIN};
    }
    return {0, 0};
}

/// Whether a label shows all of its text in that room.
bool Fits(const CLabelWidget& label, QSizeF room) {
    const int nWrap = label.wordWrap() ? Qt::TextWordWrap : 0;
    const QSize inner = (room - QSizeF(2 * label.frameWidth(), 2 * label.frameWidth())).toSize();
    const QRect bounds = label.fontMetrics().boundingRect(QRect(0, 0, std::max(1, inner.width()), 1 << 20),
                                                          nWrap | Qt::TextShowMnemonic, label.text());
    return bounds.width() <= inner.width() && bounds.height() <= inner.height();
}

/// The width that a dialog's frame asks for: the caption in bold, as many desktops write it, between buttons.
int CaptionNeed(const QWidget& dialog, const CDialogTemplate& resource) {
    constexpr int BUTTONS = 6; ///< each as wide as a line is high; some are margins
    if ((resource.dwStyle & WS_CAPTION) != WS_CAPTION) {
        return 0;
    }
    QFont bold = dialog.font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    return metrics.horizontalAdvance(dialog.windowTitle()) + BUTTONS * metrics.height();
}

double Growth(double dNeed, double dRoom) {
    return dRoom > 0 ? std::min(dNeed / dRoom, MAX_GROWTH) : 1;
}

} // namespace

CDialogLayout::CDialogLayout(QWidget& dialog, const CDialogTemplate& resource,
                             const std::vector<QWidget*>& controls)
    : m_dialog(dialog), m_units(resource.cx, resource.cy), m_unit(UnitOf(dialog)) {
    for (std::size_t i = 0; i < std::min(controls.size(), resource.items.size()); ++i) {
        const CDialogItem& item = resource.items[i];
        m_controls.push_back({controls[i], QRect(item.x, item.y, item.cx, item.cy), QRect()});
    }
    m_dWide = std::max(m_dWide, Growth(CaptionNeed(dialog, resource), m_units.width() * m_unit.width()));
    Grow();
    Place();
}

void CDialogLayout::Fit() {
    if (Grow()) {
        Place();
    }
}

bool CDialogLayout::Grow() {
    const QSizeF before = GetUnit();
    for (const CPlacedControl& control : m_controls) {
        if (control.pWidget) {
            const QSize need = NeedOf(*control.pWidget);
            m_dWide = std::max(m_dWide, Growth(need.width(), control.units.width() * m_unit.width()));
            m_dHigh = std::max(m_dHigh, Growth(need.height(), control.units.height() * m_unit.height()));
        }
    }
    for (const CPlacedControl& control : m_controls) {
        const auto* const pLabel = dynamic_cast<const CLabelWidget*>(control.pWidget.data());
        if (!pLabel || pLabel->text().isEmpty()) {
            continue;
        }
        while (!Fits(*pLabel, ToPlace(control.units).size()) && m_dHigh < MAX_GROWTH) {
            (m_dWide < MAX_GROWTH ? m_dWide : m_dHigh) += GROWTH_STEP;
        }
    }
    return GetUnit() != before;
}

QRect CDialogLayout::ToPlace(const QRect& units) const {
    const QSizeF unit = GetUnit();
    const QPoint first(static_cast<int>(std::floor(units.left() * unit.width())),
                       static_cast<int>(std::floor(units.top() * unit.height())));
    return {first, QSize(static_cast<int>(std::ceil(units.width() * unit.width())),
                         static_cast<int>(std::ceil(units.height() * unit.height())))};
}

void CDialogLayout::Place() {
    for (CPlacedControl& control : m_controls) {
        QWidget* const pWidget = control.pWidget;
        if (pWidget && (control.placed.isNull() || pWidget->geometry() == control.placed)) {
            PlaceNow(*pWidget, ToPlace(control.units));
            control.placed = pWidget->geometry();
        }
    }
    for (CPlacedControl& control : m_controls) {
        if (auto* const pSpin = dynamic_cast<CSpinWidget*>(control.pWidget.data())) {
            pSpin->AlignToBuddy();
        }
    }
    for (CPlacedControl& control : m_controls) {
        control.placed = control.pWidget ? control.pWidget->geometry() : QRect();
    }
    if (!m_placed.isValid() || m_dialog.size() == m_placed) {
        m_placed = ToPlace(QRect(QPoint(0, 0), m_units)).size();
        m_dialog.resize(m_placed);
    }
}

void FitDialog(QWidget& widget) {
    auto* const pDialog = dynamic_cast<CDialogWidget*>(widget.parentWidget());
    if (pDialog && pDialog->m_pLayout) {
        pDialog->m_pLayout->Fit();
    }
}

} // namespace tessara
