// Shows a dialog with every control and saves its picture, or makes and destroys it many times:
//
//     ui_gallery [--dark] [--font POINTS] [--long] PICTURE.png
//     ui_gallery --rounds 10000

#include <malloc.h>

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
#include <QTest>
#include <QTimer>
#include <cstdio>

#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/windows/WindowTable.h"
#include "tests/ui/Specimen.h"

namespace {

QPalette MakeDarkPalette() {
    QPalette palette(QColor(53, 53, 53), QColor(45, 45, 45));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    return palette;
}

void PrintState(const char* pszWhen) {
    std::printf("%s: %zu bytes of heap, %lld widgets, %zu windows\n", pszWhen, mallinfo2().uordblks,
                static_cast<long long>(QApplication::allWidgets().size()), tessara::CountWindows());
}

void RunOnce() {
    CSpecimen modeless;
    modeless.Open();
    modeless.ShowWindow(SW_SHOW);
    CSpecimen modal;
    QTimer::singleShot(0, [&] {
        QApplication::processEvents();
        modal.EndDialog(IDOK);
    });
    modal.DoModal();
    modeless.DestroyWindow();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int RunRounds(int nRounds) {
    constexpr int WARM_UP = 50;
    for (int i = 0; i < WARM_UP; ++i) {
        RunOnce();
    }
    PrintState("before");
    for (int i = 0; i < nRounds; ++i) {
        RunOnce();
    }
    PrintState("after");
    return 0;
}

int SavePicture(const QString& strFile, bool bLong) {
    CSpecimen specimen;
    specimen.Open();
    if (bLong) {
        specimen.SetDlgItemText(ID_NAME_LABEL, "&Name der Polymerverbindung in der Mischung:");
        specimen.SetDlgItemText(ID_APPLY, "&Alle Werte zurücksetzen");
    }
    static_cast<CListBox&>(*specimen.GetDlgItem(ID_DRAWN)).SetCurSel(1);
    specimen.m_checks.SetCurSel(2);
    specimen.m_table.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    specimen.ShowWindow(SW_SHOW);
    QTest::qWait(500);
    QWidget& widget = tessara::CPeer::Find(specimen.m_hWnd)->GetWidget();
    return widget.grab().save(strFile) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QStringList arguments = QApplication::arguments();
    const auto fnNumber = [&](const QString& strOption) {
        const auto nOption = arguments.indexOf(strOption);
        return nOption > 0 ? arguments.value(nOption + 1).toInt() : 0;
    };
    if (const int nRounds = fnNumber(QStringLiteral("--rounds"))) {
        return RunRounds(nRounds);
    }
    if (arguments.contains(QStringLiteral("--dark"))) {
        QApplication::setPalette(MakeDarkPalette());
    }
    if (const int nPoints = fnNumber(QStringLiteral("--font"))) {
        QFont font = QApplication::font();
        font.setPointSize(nPoints);
        QApplication::setFont(font);
    }
    return SavePicture(arguments.last(), arguments.contains(QStringLiteral("--long")));
}
