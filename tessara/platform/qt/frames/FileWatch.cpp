#include "tessara/platform/ui/frames/FileWatch.h"

#include <sys/stat.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QTimer>
#include <algorithm>
#include <optional>

#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

namespace {

constexpr qint64 REST_MS = 150;      ///< a file that has not changed for so long is complete
constexpr qint64 LONGEST_MS = 2'000; ///< that a change of a file that never rests is kept back

/// What tells two states of a file apart.
struct CFileStamp {
    dev_t nDevice;
    ino_t nInode;
    off_t nSize;
    std::int64_t nSeconds;
    std::int64_t nNanoseconds;
    friend bool operator==(const CFileStamp&, const CFileStamp&) = default;
};

std::optional<CFileStamp> StampOf(const QByteArray& strPath) {
    struct stat status;
    if (stat(strPath.constData(), &status) != 0) {
        return std::nullopt;
    }
    return CFileStamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
                      status.st_mtim.tv_nsec};
}

} // namespace

class CFileWatch::CBody {
public:
    CBody(const QString& strPath, HWND hWnd, UINT nMessage);

private:
    void OnEvent();
    void OnRest();
    void WatchAnew();

    QString m_strPath;
    QByteArray m_strName; ///< the path in the file system's bytes
    HWND m_hWnd;
    UINT m_nMessage;
    std::optional<CFileStamp> m_seen;   ///< at the last event
    std::optional<CFileStamp> m_posted; ///< at the last message
    QFileSystemWatcher m_watcher;
    QTimer m_rest;
    QElapsedTimer m_kept; ///< since the first change that is kept back
};

CFileWatch::CBody::CBody(const QString& strPath, HWND hWnd, UINT nMessage)
    : m_strPath(strPath), m_strName(QFile::encodeName(strPath)), m_hWnd(hWnd), m_nMessage(nMessage) {
    m_rest.setSingleShot(true);
    QObject::connect(&m_rest, &QTimer::timeout, &m_rest, [this] { OnRest(); });
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_rest, [this] { OnEvent(); });
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_rest, [this] { OnEvent(); });
    m_watcher.addPath(QFileInfo(strPath).path());
    WatchAnew();
    m_seen = m_posted = StampOf(m_strName);
}

/// The watcher holds on to the file that had the name when it was told of it, as long as that has another
/// name or a reader.
void CFileWatch::CBody::WatchAnew() {
    m_watcher.removePath(m_strPath);
    if (QFileInfo::exists(m_strPath)) {
        m_watcher.addPath(m_strPath);
    }
}

void CFileWatch::CBody::OnEvent() {
    WatchAnew();
    const auto stamp = StampOf(m_strName);
    if (stamp == m_seen) {
        return; // another file of the folder: it must not put off the message
    }
    m_seen = stamp;
    if (!m_rest.isActive()) {
        m_kept.start();
    }
    m_rest.start(static_cast<int>(std::clamp<qint64>(LONGEST_MS - m_kept.elapsed(), 0, REST_MS)));
}

void CFileWatch::CBody::OnRest() {
    m_seen = StampOf(m_strName);
    if (m_seen && m_seen != m_posted) {
        m_posted = m_seen;
        PostMessage(m_hWnd, m_nMessage, 0, 0);
    }
}

CFileWatch::CFileWatch(const char* pszPath, CWnd& wnd, UINT nMessage) {
    EnsureMainPump();
    const QString strPath = QFileInfo(QFile::decodeName(pszPath)).absoluteFilePath();
    m_pBody = std::make_unique<CBody>(strPath, wnd.GetSafeHwnd(), nMessage);
}

CFileWatch::~CFileWatch() = default;

} // namespace tessara
