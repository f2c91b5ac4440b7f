#pragma once

#include <QDialog>
#include <memory>

#include "tessara/platform/qt/dialogs/DialogLayout.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

namespace tessara {

/// A dialog's widget. Escape and Enter become the commands that the framework has for them; of QDialog it
/// keeps what push buttons ask of it.
class CDialogWidget : public QDialog {
public:
    CDialogWidget(HWND hDialog, QWidget* pParent, Qt::WindowFlags flags)
        : QDialog(pParent, flags), m_hDialog(hDialog) {}

    /// Without the place that QDialog would choose.
    void setVisible(bool bVisible) override {
        QWidget::setVisible(bVisible); // NOLINT(bugprone-parent-virtual-call)
    }
    void MoveFocus(bool bNext) { focusNextPrevChild(bNext); }

    std::unique_ptr<CDialogLayout> m_pLayout;

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    void PressDefault();
    /// Sends the command of a button, unless that is disabled.
    void SendCommand(UINT nID);

    HWND m_hDialog;
};

} // namespace tessara
