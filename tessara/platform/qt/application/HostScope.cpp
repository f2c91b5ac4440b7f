#include "tessara/platform/qt/application/HostScope.h"

#include <QString>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace tessara {

namespace {

constexpr const char* RUNTIME_FOLDER = "XDG_RUNTIME_DIR";

QtMessageHandler g_pfnHostHandler = nullptr;

/// What Qt says of platforms, of the locale and of the runtime folder.
bool IsAdvice(QtMsgType eType, const QMessageLogContext& context, const QString& strText) {
    if (eType != QtWarningMsg && eType != QtInfoMsg) {
        return false;
    }
    return (context.category && std::strncmp(context.category, "qt.qpa.", 7) == 0) ||
           strText.startsWith(QLatin1String("Detected locale")) ||
           strText.startsWith(QLatin1String("Detected system locale")) ||
           strText.startsWith(QLatin1String("QStandardPaths:"));
}

void PassOn(QtMsgType eType, const QMessageLogContext& context, const QString& strText) {
    if (!IsAdvice(eType, context, strText)) {
        g_pfnHostHandler(eType, context, strText);
    }
}

/// A new folder that only this user can enter; empty when none can be made.
std::string MakeRuntimeFolder() {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    std::string strPath = (folder / "tessara-XXXXXX").string();
    return mkdtemp(strPath.data()) ? strPath : std::string();
}

void SetVariable(const char* pszName, const std::optional<std::string>& value) {
    if (value) {
        setenv(pszName, value->c_str(), 1);
    } else {
        unsetenv(pszName);
    }
}

} // namespace

CHostScope::CHostScope() : m_strLocale(std::setlocale(LC_ALL, nullptr)) {
    if (const char* const pszFolder = std::getenv(RUNTIME_FOLDER)) {
        m_runtimeVariable = pszFolder;
    }
    if (m_runtimeVariable.value_or("").empty()) {
        m_strRuntimeFolder = MakeRuntimeFolder();
        SetVariable(RUNTIME_FOLDER, m_strRuntimeFolder);
    }
    // Known before messages can come.
    m_pfnHandler = qInstallMessageHandler(nullptr);
    g_pfnHostHandler = m_pfnHandler;
    qInstallMessageHandler(&PassOn);
}

CHostScope::~CHostScope() {
    qInstallMessageHandler(m_pfnHandler);
    if (!m_strRuntimeFolder.empty()) {
        SetVariable(RUNTIME_FOLDER, m_runtimeVariable);
        std::error_code error;
        std::filesystem::remove_all(m_strRuntimeFolder, error);
    }
    std::setlocale(LC_ALL, m_strLocale.c_str());
}

} // namespace tessara
