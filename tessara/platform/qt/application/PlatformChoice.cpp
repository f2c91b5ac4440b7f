#include "tessara/platform/qt/application/PlatformChoice.h"

#include <algorithm>
#include <string_view>

namespace tessara {

namespace {

constexpr const char* NO_DISPLAY = "offscreen"; ///< the plugin that draws in memory
constexpr const char* X_SERVER = "xcb";
constexpr const char* DISPLAYS[] = {"DISPLAY", "WAYLAND_DISPLAY"};

/// Qt takes its options with one dash or two; the last of several counts.
QByteArray TakePlatform(std::vector<char*>& arguments) {
    QByteArray name;
    for (std::size_t i = 1; i + 1 < arguments.size();) {
        const std::string_view str = arguments[i];
        if (str == "-platform" || str == "--platform") {
            name = arguments[i + 1];
            const auto it = arguments.begin() + static_cast<std::ptrdiff_t>(i);
            arguments.erase(it, it + 2);
        } else {
            ++i;
        }
    }
    return name;
}

/// The plugins for the displays of the environment, in the order in which Qt itself tries them. An empty
/// variable names no display.
QByteArrayList PlatformsOfDisplays() {
    QByteArrayList platforms;
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland") {
        platforms << "wayland";
    }
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
        platforms << X_SERVER;
    }
    return platforms;
}

QByteArray NameOf(const QByteArray& platform) {
    return platform.split(':').value(0).toLower();
}

std::string Quote(const char* pszName, const QByteArray& value) {
    return std::string(pszName) + " \"" + value.toStdString() + '"';
}

} // namespace

CPlatformChoice::CPlatformChoice(std::vector<char*>& arguments)
    : m_named(TakePlatform(arguments)),
      m_bDisplay(std::any_of(std::begin(DISPLAYS), std::end(DISPLAYS), &qEnvironmentVariableIsSet)) {
    if (m_named.isEmpty()) {
        m_named = qgetenv("QT_QPA_PLATFORM");
    }
    if (!m_named.isEmpty()) {
        m_wanted = m_named.split(';');
    } else if (m_bDisplay) {
        m_wanted = PlatformsOfDisplays();
    }
}

bool CPlatformChoice::WantsXServer() const {
    return std::any_of(m_wanted.begin(), m_wanted.end(),
                       [](const QByteArray& platform) { return NameOf(platform) == X_SERVER; });
}

QByteArray CPlatformChoice::GetList() const {
    QByteArrayList platforms = m_wanted;
    if (m_bLeaveOut) {
        platforms.removeIf([](const QByteArray& platform) { return NameOf(platform) == X_SERVER; });
    }
    return (platforms + QByteArrayList{NO_DISPLAY}).join(';');
}

bool CPlatformChoice::IsFallback(const QString& strStarted) const {
    const auto fnStarted = [started = strStarted.toUtf8().toLower()](const QByteArray& platform) {
        return NameOf(platform) == started;
    };
    return (m_bDisplay || !m_named.isEmpty()) && std::none_of(m_wanted.begin(), m_wanted.end(), fnStarted);
}

std::string CPlatformChoice::Describe() const {
    std::string strText = m_named.isEmpty() ? std::string() : Quote("platform", m_named);
    for (const char* const pszDisplay : DISPLAYS) {
        if (qEnvironmentVariableIsSet(pszDisplay)) {
            strText += (strText.empty() ? "" : ", ") + Quote(pszDisplay, qgetenv(pszDisplay));
        }
    }
    return strText;
}

} // namespace tessara
