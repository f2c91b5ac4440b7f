#include "tessara/platform/ui/dialogs/FileQuestion.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

#include "tessara/platform/qt/dialogs/OwnedDialog.h"
#include "tessara/platform/qt/windows/Peer.h"
#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/resources/StandardStrings.h"

namespace tessara {

namespace {

QStringList PatternsOf(const CFileFilter& filter) {
    QStringList patterns = ToQString(filter.strPatterns.View()).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*")); // names without a dot, too
    return patterns;
}

/// "PNG picture (*.png)" in Qt's form, whatever the text itself says of the patterns.
QString ToNameFilter(const CFileFilter& filter) {
    QString strText = ToQString(filter.strText.View());
    const qsizetype nPatterns = strText.lastIndexOf(QLatin1String(" ("));
    if (nPatterns >= 0 && strText.indexOf(QLatin1Char('*'), nPatterns) > 0) {
        strText.truncate(nPatterns);
    }
    return strText + QLatin1String(" (") + PatternsOf(filter).join(QLatin1Char(' ')) + QLatin1Char(')');
}

bool Shows(const CFileFilter& filter, const QString& strExtension) {
    return PatternsOf(filter).contains(QLatin1String("*.") + strExtension);
}

/// "png" of "*.png"; empty where the first pattern leaves it open.
QString ExtensionOf(const CFileFilter& filter) {
    const QString strPattern = PatternsOf(filter).value(0);
    const QString strExtension = strPattern.startsWith(QLatin1String("*.")) ? strPattern.mid(2) : QString();
    return strExtension.contains(QLatin1Char('*')) || strExtension.contains(QLatin1Char('?')) ? QString()
                                                                                              : strExtension;
}

QWidget* OwnerOf(const CFileQuestion& question) {
    const CPeer* const pPeer = CPeer::Find(question.hOwner);
    return pPeer ? pPeer->GetWidget().window() : QApplication::activeWindow();
}

/// Asks about a file that exists for the name as it will be, with its extension. The desktop's own dialogs
/// ask before Qt has completed the name, so they are told not to.
class CQuestionDialog : public QFileDialog {
public:
    explicit CQuestionDialog(const CFileQuestion& question);
    QString ChosenPath() const { return selectedFiles().value(0); }
    bool IsRefused() const { return m_bRefused; }

protected:
    void done(int nResult) override;

private:
    void ShowFilters();
    void OnFilter(const QString& strFilter);
    bool MayBeTaken();

    const CFileQuestion& m_question;
    QString m_strDefault; ///< the default extension, without a dot
    QStringList m_nameFilters;
    bool m_bRefused = false; ///< the last choice, so that another is asked for
};

CQuestionDialog::CQuestionDialog(const CFileQuestion& question)
    : QFileDialog(OwnerOf(question), ToQString(question.strTitle.View())), m_question(question),
      m_strDefault(ToQString(question.strDefaultExtension.View())) {
    if (m_strDefault.startsWith(QLatin1Char('.'))) {
        m_strDefault.remove(0, 1);
    }
    setAcceptMode(question.bSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    setFileMode(question.bSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    setOption(QFileDialog::DontConfirmOverwrite);
    if (!question.strPath.IsEmpty()) {
        selectFile(ToQString(question.strPath.View()));
    }
    ShowFilters();
    connect(this, &QFileDialog::filterSelected, this, &CQuestionDialog::OnFilter);
}

void CQuestionDialog::ShowFilters() {
    for (const CFileFilter& filter : m_question.filters) {
        m_nameFilters << ToNameFilter(filter);
    }
    setNameFilters(m_nameFilters);
    const QString strProposed = QFileInfo(ToQString(m_question.strPath.View())).suffix();
    const QString strExtension = strProposed.isEmpty() ? m_strDefault : strProposed;
    QString strFirst = m_nameFilters.constFirst();
    for (std::size_t i = m_question.filters.size(); i-- > 0;) {
        if (Shows(m_question.filters[i], strExtension)) {
            strFirst = m_nameFilters[static_cast<qsizetype>(i)];
        }
    }
    selectNameFilter(strFirst);
    OnFilter(strFirst);
}

void CQuestionDialog::OnFilter(const QString& strFilter) {
    const qsizetype nFilter = std::max<qsizetype>(0, m_nameFilters.indexOf(strFilter));
    const CFileFilter& filter = m_question.filters[static_cast<std::size_t>(nFilter)];
    const QString strExtension = ExtensionOf(filter);
    setDefaultSuffix(strExtension.isEmpty() || Shows(filter, m_strDefault) ? m_strDefault : strExtension);
}

bool CQuestionDialog::MayBeTaken() {
    if (!m_question.bSave || !m_question.bAskToReplace || !QFileInfo::exists(ChosenPath())) {
        return true;
    }
    QString strText = ToQString(StandardString(AFX_IDP_ASK_TO_REPLACE).View());
    strText.replace(QLatin1String("%s"), QFileInfo(ChosenPath()).fileName());
    const COwnedDialog<QMessageBox> box(QMessageBox::Warning, windowTitle(), strText,
                                        QMessageBox::Yes | QMessageBox::No,
                                        isVisible() ? this : parentWidget());
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(QMessageBox::No);
    return box->exec() == QMessageBox::Yes;
}

void CQuestionDialog::done(int nResult) {
    const QPointer<CQuestionDialog> pThis = this; // goes with its owner, maybe while it asks
    const bool bRefused = nResult == QDialog::Accepted && !MayBeTaken();
    if (!pThis) {
        return;
    }
    m_bRefused = bRefused;
    if (!m_bRefused) {
        QFileDialog::done(nResult);
    }
}

QString AskPath(const CFileQuestion& question) {
    const COwnedDialog<CQuestionDialog> dialog(question);
    int nResult = QDialog::Rejected;
    do { // the desktop's own dialog has closed when its choice is refused
        nResult = dialog->exec();
    } while (dialog && nResult != QDialog::Accepted && dialog->IsRefused());
    return dialog && nResult == QDialog::Accepted ? dialog->ChosenPath() : QString();
}

} // namespace

bool AskFile(CFileQuestion& question) {
    return OnMainThread([&question] {
        if (!CanMakeWindows()) {
            return false;
        }
        EnsureMainPump();
        const CPeer::CEventScope scope;
        const QString strPath = AskPath(question);
        if (strPath.isEmpty()) {
            return false;
        }
        question.strPath = CString(QFile::encodeName(strPath).toStdString());
        return true;
    });
}

} // namespace tessara
