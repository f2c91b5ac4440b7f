#pragma once

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/ui/dialogs/Dialog.h"
#include "tests/document/Hands.h"

namespace tessara {

/// Runs a modal dialog for a user who does everything at once and confirms every message; tells what the
/// messages were. The user returns whether the dialog must be closing now. If not it is cancelled, and also
/// when it does not close.
class CDialogRun {
public:
    std::vector<std::string> m_messages;

    int Do(CDialog& dialog, UINT nTemplate, const std::function<bool()>& user) {
        EnsureApplication(ENeed::windows);
        QTimer boxes;
        QObject::connect(&boxes, &QTimer::timeout, [this] {
            if (auto* const pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                m_messages.push_back(pBox->text().toStdString());
                QTest::mouseClick(pBox->button(QMessageBox::Ok), Qt::LeftButton);
            }
        });
        boxes.start(0);
        QTimer::singleShot(0, &boxes, [&] {
            QTimer::singleShot(user() ? LIMIT : 0, &boxes, [nTemplate] {
                if (DialogOf(nTemplate)) {
                    QTest::mouseClick(&ControlOf(nTemplate, IDCANCEL), Qt::LeftButton);
                }
            });
        });
        return dialog.DoModal();
    }

private:
    static constexpr int LIMIT = 10'000; ///< milliseconds
};

/// How many random trials to make: so many, or what an environment variable says.
inline int TrialCount(const char* pszVariable, int nQuick) {
    const char* const pszCount = std::getenv(pszVariable);
    return pszCount ? std::atoi(pszCount) : nQuick;
}

} // namespace tessara
