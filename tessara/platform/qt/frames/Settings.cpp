#include "tessara/platform/ui/frames/Settings.h"

#include <QSettings>
#include <memory>

#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

namespace {

/// A name that can be a file's: without the characters that mean something in paths.
QString ToName(const CString& strText) {
    QString strName = ToQString(strText.View());
    for (QChar& ch : strName) {
        if (ch == QLatin1Char('/') || ch == QLatin1Char('\\') || ch.unicode() < 0x20) {
            ch = QLatin1Char('_');
        }
    }
    const bool bFolder = strName.isEmpty() || strName == QLatin1String(".") || strName == QLatin1String("..");
    return bFolder ? QStringLiteral("_") : strName;
}

std::unique_ptr<QSettings> Open(const CString& strMaker, const CString& strApplication) {
    const QString strName = ToName(strApplication);
    const QString strFolder = strMaker.IsEmpty() ? strName : ToName(strMaker);
    auto pSettings =
        std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, strFolder, strName);
    pSettings->setFallbacksEnabled(false);
    return pSettings;
}

QString ToKey(const CString& strSection, const CString& strName) {
    return ToName(strSection) + QLatin1Char('/') + ToName(strName);
}

} // namespace

CSettings::CSettings(const CString& strMaker, const CString& strApplication)
    : m_strMaker(strMaker), m_strApplication(strApplication) {}

std::optional<CString> CSettings::Read(const CString& strSection, const CString& strName) const {
    const QVariant value = Open(m_strMaker, m_strApplication)->value(ToKey(strSection, strName));
    return value.isValid() ? std::optional<CString>(ToCString(value.toString())) : std::nullopt;
}

void CSettings::Write(const CString& strSection, const CString& strName, const CString& strValue) {
    Open(m_strMaker, m_strApplication)->setValue(ToKey(strSection, strName), ToQString(strValue.View()));
}

void CSettings::Remove(const CString& strSection, const CString& strName) {
    Open(m_strMaker, m_strApplication)->remove(ToKey(strSection, strName));
}

} // namespace tessara
