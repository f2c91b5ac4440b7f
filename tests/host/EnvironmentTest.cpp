#include <gmock/gmock.h>

#include <functional>
#include <future>
#include <thread>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include "tests/host/DisplayServer.h"
#include "tests/host/Programs.h"

using testing::HasSubstr;

namespace {

struct ENVIRONMENT {
    VARIABLES variables;
    const char* pszTried; ///< what a program says that it cannot reach; null where windows are made
};

/// A display that nobody has started.
constexpr const char* DEAD = ":59000";

const ENVIRONMENT ENVIRONMENTS[] = {
    {{}, nullptr},
    {{{"QT_QPA_PLATFORM", "offscreen"}, {"DISPLAY", DEAD}}, nullptr},
    {{{"QT_QPA_PLATFORM", "xcb;offscreen"}, {"DISPLAY", DEAD}}, nullptr},
    {{{"DISPLAY", ""}}, "DISPLAY \"\""},
    {{{"DISPLAY", DEAD}}, "DISPLAY \":59000\""},
    {{{"DISPLAY", "foo"}}, "DISPLAY \"foo\""},
    {{{"DISPLAY", "localhost:59000.0"}}, "DISPLAY \"localhost:59000.0\""},
    {{{"WAYLAND_DISPLAY", "nowhere"}}, "WAYLAND_DISPLAY \"nowhere\""},
    {{{"WAYLAND_DISPLAY", "nowhere"}, {"DISPLAY", DEAD}}, "DISPLAY \":59000\", WAYLAND_DISPLAY \"nowhere\""},
    {{{"QT_QPA_PLATFORM", "xcb"}, {"DISPLAY", DEAD}}, "platform \"xcb\", DISPLAY \":59000\""},
    {{{"QT_QPA_PLATFORM", "xcb"}}, "platform \"xcb\""},
    {{{"QT_QPA_PLATFORM", "nonsense:a=b;xcb"}}, "platform \"nonsense:a=b;xcb\""},
};

std::string Describe(const ENVIRONMENT& environment) {
    std::string strText;
    for (const auto& [strName, value] : environment.variables) {
        strText += strName + "='" + *value + "' ";
    }
    return strText;
}

class HostEnvironment : public testing::Test {
protected:
    HostEnvironment() {
        m_programs.m_files.Write("d.txt", "x y\n1 2\n2 3\n");
        m_programs.m_files.Write("d.json", R"({"format": "tessara-diagram", "version": 1,
            "binodal": [{"x": [0.02, 0.1], "y": [270, 290]}]})");
    }
    ~HostEnvironment() override { EXPECT_THAT(m_programs.m_temporary.List(), testing::IsEmpty()); }
    std::string Path(const char* pszName) const { return m_programs.m_files.Path(pszName); }

    const CPrograms m_programs;
};

TEST_F(HostEnvironment, DrawingNeedsNoDisplayAndSaysNothing) {
    const std::vector<std::vector<std::string>> commands = {
        {TESSARA_COMMAND, "plot", Path("d.txt"), "-o", Path("out.png")},
        {TESSARA_COMMAND, "diagram", Path("d.json"), "-o", Path("out.svg")},
        {TESSARA_COMMAND, "view", Path("d.txt"), "--screenshot", Path("window.png")},
        {TESSARA_FLORY, "--chains", "100", "-o", Path("flory.wmf")}};
    for (const ENVIRONMENT& environment : ENVIRONMENTS) {
        SCOPED_TRACE(Describe(environment));
        EXPECT_EQ(m_programs.Host("draw export wait metrics", environment.variables),
                  "drawn\nexported\nwaited 1\nicon 32\n");
    }
    for (const VARIABLES& variables : {VARIABLES{{"WAYLAND_DISPLAY", "nowhere"}, {"DISPLAY", DEAD}},
                                       VARIABLES{{"QT_QPA_PLATFORM", "nonsense"}}}) {
        for (const auto& command : commands) {
            const PROCESSRESULT result = m_programs.Run(command, variables);
            EXPECT_EQ(result.nExitCode, 0) << command[0] << command[1];
            EXPECT_EQ(result.strOutput + result.strErrors, "") << command[0] << command[1];
        }
    }
    EXPECT_EQ(m_programs.m_files.List().size(), 2 + commands.size());
}

TEST_F(HostEnvironment, AWindowThatNobodyCouldSeeIsNotMadeAndItsMessageIsNotLost) {
    for (const ENVIRONMENT& environment : ENVIRONMENTS) {
        SCOPED_TRACE(Describe(environment));
        if (!environment.pszTried) {
            VARIABLES quiet = environment.variables;
            quiet["QT_LOGGING_RULES"] = "*.warning=false"; // the offscreen platform's, about sizes of windows
            EXPECT_EQ(m_programs.Host("draw window", quiet), "drawn\nwindow\n");
            continue;
        }
        const std::string strLine =
            std::string("there is no display to show a window on (") + environment.pszTried + ")";
        EXPECT_EQ(m_programs.Host("window dialog message clipboard draw window", environment.variables),
                  "no window\ndialog -1\nanswer 0\nthrown: " + strLine +
                      "\ndrawn\nno window\nhost_program: The disk is full.\n");
        const PROCESSRESULT view =
            m_programs.Run({TESSARA_COMMAND, "view", Path("d.txt")}, environment.variables);
        EXPECT_EQ(view.nExitCode, 2);
        EXPECT_EQ(view.strErrors, "tessara: " + strLine + "; --screenshot needs none\n");
        const PROCESSRESULT frame = m_programs.Run({TESSARA_FRAME_EXAMPLE}, environment.variables);
        EXPECT_EQ(frame.nExitCode, 1);
        EXPECT_EQ(frame.strErrors, "frame: " + strLine + "\n");
    }
}

TEST_F(HostEnvironment, TheOptionsOfTheWindowSystemComeBeforeTheEnvironment) {
    const PROCESSRESULT named =
        m_programs.Run({TESSARA_FRAME_EXAMPLE, "-platform", "offscreen", "--screenshot", Path("frame.png")},
                       {{"DISPLAY", DEAD}, {"QT_LOGGING_RULES", "*.warning=false"}});
    EXPECT_EQ(named.nExitCode, 0);
    EXPECT_EQ(named.strErrors, "");
    EXPECT_EQ(m_programs.m_files.Read("frame.png").substr(0, 4), "\x89PNG");
    const PROCESSRESULT unknown =
        m_programs.Run({TESSARA_FRAME_EXAMPLE, "--platform", "nonsense"}, {{"QT_QPA_PLATFORM", "offscreen"}});
    EXPECT_EQ(unknown.nExitCode, 1);
    EXPECT_THAT(unknown.strErrors, HasSubstr("(platform \"nonsense\")"));
}

TEST_F(HostEnvironment, WhatTheStartChangesInTheProcessIsPutBack) {
    EXPECT_EQ(m_programs.Host("draw environment", {{"DISPLAY", DEAD}}),
              "drawn\nQT_QPA_PLATFORM=(none)\nXDG_RUNTIME_DIR=(none)\n");
    const CFolder runtime;
    EXPECT_EQ(m_programs.Host("draw environment", {{"XDG_RUNTIME_DIR", runtime.Path("")}}),
              "drawn\nQT_QPA_PLATFORM=(none)\nXDG_RUNTIME_DIR=" + runtime.Path("") + "\n");
    EXPECT_EQ(m_programs.Host("hear-messages draw say", {{"DISPLAY", DEAD}}), "drawn\nheard: spoken\n");
}

TEST_F(HostEnvironment, AHostsOwnApplicationIsUsedForWhatItHas) {
    const std::string strNoFonts =
        "thrown: the program's QCoreApplication has no fonts to draw with: a QGuiApplication has\n";
    const std::string strNoWindows = "no window\ndialog -1\nanswer 0\n";
    const std::string strMessage = "host: The disk is full.\n";
    const VARIABLES quiet = {{"QT_QPA_PLATFORM", "offscreen"},
                             {"XDG_RUNTIME_DIR", m_programs.m_files.Path("")}};
    EXPECT_EQ(m_programs.Host("core-application draw export worker-draw worker-measure wait metrics", quiet),
              strNoFonts + strNoFonts + strNoFonts + strNoFonts + "waited 1\n" + strNoFonts);
    EXPECT_EQ(m_programs.Host("core-application window dialog message", quiet), strNoWindows + strMessage);
    EXPECT_EQ(m_programs.Host("gui-application draw export worker-draw wait clipboard", quiet),
              "drawn\nexported\ndrawn\nwaited 1\n");
    EXPECT_EQ(m_programs.Host("gui-application metrics window dialog message", quiet),
              "icon 0\n" + strNoWindows + strMessage);
    EXPECT_EQ(m_programs.Host("application draw worker-draw window metrics", quiet),
              "drawn\ndrawn\nwindow\nicon 32\n");
}

TEST_F(HostEnvironment, TheFirstSurfaceOfAProgramIsMadeOnItsMainThread) {
    const std::string strRefused = "thrown: nothing can be drawn before the main thread has made a surface\n";
    EXPECT_EQ(m_programs.Host("worker-draw worker-measure draw worker-draw worker-measure", {}),
              strRefused + strRefused + "drawn\ndrawn\nmeasured\n");
}

TEST_F(HostEnvironment, TheMainThreadIsTheOneThatMakesTheApplication) {
    EXPECT_EQ(m_programs.Host("application-elsewhere", {}), "window\nended 0\n");
    const std::string strSaid =
        ": another thread than the main one has made the program's application object\n";
    const VARIABLES quiet = {{"QT_QPA_PLATFORM", "offscreen"},
                             {"XDG_RUNTIME_DIR", m_programs.m_files.Path("")}};
    const std::string strHeard = m_programs.Host("application application-elsewhere", quiet);
    EXPECT_THAT(strHeard, testing::StartsWith("ended 1\n"));
    EXPECT_THAT(strHeard, testing::EndsWith(strSaid));
}

/// A server behind a network that takes connections and says nothing, as one does whose machine sleeps.
class CSilentServer {
public:
    CSilentServer() : m_nSocket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        for (int nDisplay = 100; m_strName.empty() && nDisplay < 1000; ++nDisplay) {
            address.sin_port = htons(static_cast<std::uint16_t>(6000 + nDisplay));
            if (bind(m_nSocket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
                m_strName = "127.0.0.1:" + std::to_string(nDisplay);
            }
        }
        listen(m_nSocket, 100);
    }
    ~CSilentServer() { close(m_nSocket); }
    CSilentServer(const CSilentServer&) = delete;
    CSilentServer& operator=(const CSilentServer&) = delete;

    const std::string& GetName() const { return m_strName; }

private:
    int m_nSocket;
    std::string m_strName;
};

TEST_F(HostEnvironment, ADrawingDoesNotWaitForADisplayThatDoesNotAnswer) {
    const CSilentServer server;
    for (const char* pszPlatform : {"", "xcb"}) {
        const VARIABLES variables = {{"DISPLAY", server.GetName()}, {"QT_QPA_PLATFORM", pszPlatform}};
        EXPECT_EQ(m_programs.Host("draw window", variables), "drawn\nno window\n");
        EXPECT_EQ(m_programs.Host("wait export", variables), "waited 1\nexported\n");
    }
}

TEST_F(HostEnvironment, WindowsAppearOnADisplayThatIsThere) {
    const CDisplayServer server;
    for (const VARIABLES& extra : {VARIABLES{}, VARIABLES{{"WAYLAND_DISPLAY", "nowhere"}}}) {
        VARIABLES variables = extra;
        variables["DISPLAY"] = server.GetName();
        EXPECT_EQ(m_programs.Host("draw window locale", variables), "drawn\nwindow\nC 1.5 2.0 C\n");
    }
}

/// Waits until another program has read a file.
void AwaitReader(const std::string& strPath, const std::function<void()>& fnReady) {
    const int nWatch = inotify_init1(IN_CLOEXEC);
    inotify_add_watch(nWatch, strPath.c_str(), IN_CLOSE_NOWRITE);
    fnReady();
    constexpr int MAX_MILLISECONDS = 100'000; // a viewer that fails reads nothing
    pollfd watched{nWatch, POLLIN, 0};
    EXPECT_EQ(poll(&watched, 1, MAX_MILLISECONDS), 1);
    close(nWatch);
}

TEST_F(HostEnvironment, TheViewerSaysThatItHasLostItsDisplay) {
    CDisplayServer server;
    std::promise<void> watching;
    std::thread end([&] {
        AwaitReader(Path("d.txt"), [&] { watching.set_value(); }); // its window is there by then
        server.Stop();
    });
    watching.get_future().wait();
    const PROCESSRESULT view =
        m_programs.Run({TESSARA_COMMAND, "view", Path("d.txt")},
                       {{"DISPLAY", server.GetName()}, {"XDG_CONFIG_HOME", m_programs.m_files.Path("")}});
    end.join();
    EXPECT_EQ(view.nExitCode, 2);
    // The library of the display may have words of its own before that, as it is asked first or not.
    EXPECT_THAT(view.strErrors, testing::EndsWith("tessara: the connection to the display is lost\n"));
}

} // namespace
