#include "tessara/platform/ui/windows/WaitCursor.h"

#include <QApplication>
#include <QCursor>

#include "tessara/platform/ui/threads/CmdTarget.h"

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

void CCmdTarget::BeginWaitCursor() {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

void CCmdTarget::EndWaitCursor() {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        QGuiApplication::restoreOverrideCursor();
    }
}
