#include "tessara/platform/ui/FileQuestion.h"

#include <QApplication>
#include <QFileDialog>

#include "tessara/platform/qt/Peer.h"
#include "tessara/platform/ui/Commands.h"
#include "tessara/platform/ui/DocTemplate.h"
#include "tessara/platform/ui/StandardStrings.h"

namespace tessara {

namespace {

/// "Curves (*.crv)" in Qt's form, whatever the template's text says of the pattern.
QString ToFilter(const CDocTemplate& documents, const QString& strExtension) {
    CString strName;
    documents.GetDocString(strName, CDocTemplate::filterName);
    const int nPattern = strName.Find(" (");
    const CString strKind = nPattern < 0 ? strName : strName.Left(nPattern);
    return ToQString(strKind.View()) + QStringLiteral(" (*") + strExtension + QLatin1Char(')');
}

} // namespace

bool AskFileName(CString& strPath, UINT nTitleID, const CDocTemplate* pTemplate) {
    EnsureMainPump();
    const CPeer::CEventScope scope;
    QFileDialog dialog(QApplication::activeWindow(), ToQString(StandardString(nTitleID).View()));
    const bool bSave = nTitleID == AFX_IDS_SAVEFILE;
    dialog.setAcceptMode(bSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(bSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    QStringList filters;
    CString strExtension;
    if (pTemplate && pTemplate->GetDocString(strExtension, CDocTemplate::filterExt)) {
        filters << ToFilter(*pTemplate, ToQString(strExtension.View()));
        dialog.setDefaultSuffix(ToQString(strExtension.View()));
    }
    filters << ToQString(StandardString(AFX_IDS_ALLFILTER).View()) + QStringLiteral(" (*)");
    dialog.setNameFilters(filters);
    if (!strPath.IsEmpty()) {
        dialog.selectFile(ToQString(strPath.View()));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return false;
    }
    strPath = CString(QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString());
    return true;
}

} // namespace tessara
