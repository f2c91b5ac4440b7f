#include "tessara/platform/ui/WaitCursor.h"

#include <QApplication>
#include <QCursor>

CWaitCursor::CWaitCursor()
    : m_bShown(qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr) {
    if (m_bShown) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

CWaitCursor::~CWaitCursor() {
    if (m_bShown) {
        QGuiApplication::restoreOverrideCursor();
    }
}
