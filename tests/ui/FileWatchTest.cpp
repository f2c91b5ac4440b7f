#include "tessara/platform/ui/frames/FileWatch.h"

#include <filesystem>
#include <fstream>

#include "tests/ui/Frames.h"

namespace {

constexpr UINT WM_WATCHED = WM_USER + 1;
constexpr UINT WM_OTHER = WM_USER + 2;
constexpr int PATIENCE_MS = 20'000; ///< for what must come

class CListener : public CWnd {
public:
    int m_nWatched = 0;
    int m_nOther = 0;

protected:
    LRESULT OnWatched(WPARAM, LPARAM) { return ++m_nWatched; }
    LRESULT OnOther(WPARAM, LPARAM) { return ++m_nOther; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CListener, CWnd)
ON_MESSAGE(WM_WATCHED, OnWatched)
ON_MESSAGE(WM_OTHER, OnOther)
END_MESSAGE_MAP()

class FileWatchTest : public ::testing::Test {
protected:
    FileWatchTest() {
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
        m_listener.Create(nullptr, "", WS_OVERLAPPEDWINDOW, CRect(0, 0, 50, 50), nullptr, 0);
        Write(FILE, "one");
        m_pWatch = Watch(FILE, WM_WATCHED);
    }
    std::unique_ptr<tessara::CFileWatch> Watch(const char* pszName, UINT nMessage) {
        return std::make_unique<tessara::CFileWatch>((m_folder / pszName).c_str(), m_listener, nMessage);
    }
    void Write(const char* pszName, const char* pszText) { std::ofstream(m_folder / pszName) << pszText; }
    void Rename(const char* pszFrom, const char* pszTo) {
        std::filesystem::rename(m_folder / pszFrom, m_folder / pszTo);
    }
    bool ComesTo(const int& nCount, int nExpected) {
        return QTest::qWaitFor([&] { return nCount >= nExpected; }, PATIENCE_MS) && nCount == nExpected;
    }
    /// Lets a later watch tell of a change of its own file: what the first one had to tell was told before.
    void ExpectStill(int nWatched) {
        Write("later", "one");
        const auto pLater = Watch("later", WM_OTHER);
        const int nOther = m_listener.m_nOther;
        Write("later", "other");
        EXPECT_TRUE(ComesTo(m_listener.m_nOther, nOther + 1));
        EXPECT_EQ(m_listener.m_nWatched, nWatched);
    }

    static constexpr const char* FILE = "curve.pdg";
    const std::filesystem::path m_folder = std::filesystem::path(::testing::TempDir()) /
                                           ::testing::UnitTest::GetInstance()->current_test_info()->name();
    CListener m_listener;
    std::unique_ptr<tessara::CFileWatch> m_pWatch;
};

TEST_F(FileWatchTest, TellsOfEachWayToChangeTheFileOnce) {
    Write(FILE, "written in place");
    EXPECT_TRUE(ComesTo(m_listener.m_nWatched, 1));
    Write("new", "put in its place");
    Rename("new", FILE);
    EXPECT_TRUE(ComesTo(m_listener.m_nWatched, 2));
    Write(FILE, "the one put in its place, written");
    EXPECT_TRUE(ComesTo(m_listener.m_nWatched, 3));
    std::filesystem::remove(m_folder / FILE);
    ExpectStill(3);
    Write(FILE, "made again");
    EXPECT_TRUE(ComesTo(m_listener.m_nWatched, 4));
    ExpectStill(4);
}

TEST_F(FileWatchTest, FollowsTheNameWhenTheOldFileLivesOn) {
    std::filesystem::create_hard_link(m_folder / FILE, m_folder / "backup");
    Write("new", "put in its place");
    Rename("new", FILE);
    EXPECT_TRUE(ComesTo(m_listener.m_nWatched, 1));
    Write(FILE, "written in place afterwards");
    EXPECT_TRUE(ComesTo(m_listener.m_nWatched, 2));
    Write("backup", "no longer the file");
    ExpectStill(2);
}

TEST_F(FileWatchTest, AMissingFileIsWaitedFor) {
    const auto pMissing = Watch("missing", WM_OTHER);
    Write("missing", "there");
    EXPECT_TRUE(ComesTo(m_listener.m_nOther, 1));
}

TEST_F(FileWatchTest, AFileThatNeverRestsIsToldOfAllTheSame) {
    QTimer writer;
    QObject::connect(&writer, &QTimer::timeout,
                     [&] { std::ofstream(m_folder / FILE, std::ios::app) << "more"; });
    writer.start(20);
    EXPECT_TRUE(ComesTo(m_listener.m_nWatched, 1));
}

TEST_F(FileWatchTest, EndsWithTheObjectAndOutlivesTheWindow) {
    m_pWatch.reset();
    Write(FILE, "written in place");
    ExpectStill(0);
    m_pWatch = Watch(FILE, WM_WATCHED);
    CListener survivor;
    survivor.Create(nullptr, "", WS_OVERLAPPEDWINDOW, CRect(0, 0, 50, 50), nullptr, 0);
    const tessara::CFileWatch later((m_folder / FILE).c_str(), survivor, WM_WATCHED);
    m_listener.DestroyWindow();
    Write(FILE, "written again");
    EXPECT_TRUE(ComesTo(survivor.m_nWatched, 1)); // after the first watch has told a window that has gone
}

} // namespace
