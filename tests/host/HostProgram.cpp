// A program as a host of the library: does what its arguments say, one after the other, and prints what it
// finds. The tests run it in environments of their making.

#include <QApplication>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <locale>
#include <map>
#include <string>
#include <thread>

#include "tessara/tessara.h"

namespace {

void Draw() {
    double temperatures[] = {290, 310, 330};
    double chi[] = {0.543, 0.489, 0.442};
    COutputCurve plot;
    plot.SetNames("Polystyrene in cyclohexane", "c~G", "Temperature", "T, K~N");
    plot.SetOutputData(temperatures, chi, 3);
    CImageDC dc(400, 288);
    plot.Paint(&dc, dc.GetClientRect(), nullptr);
    int nDrawn = 0;
    for (int x = 0; x < 400; ++x) {
        nDrawn += dc.GetPixel(x, 144) != RGB(255, 255, 255);
    }
    std::puts(nDrawn > 2 ? "drawn" : "nothing drawn");
}

void Export() {
    double x[] = {0.5, 1.5};
    COutputCurve plot;
    plot.SetOutputData(x, x, 2);
    char szFolder[] = "/tmp/tessara-host-XXXXXX";
    const std::filesystem::path folder = mkdtemp(szFolder);
    CPdfDC page((folder / "page.pdf").c_str(), 160, 115);
    const int bExported = plot.Export(&page, page.GetClientRect(), (folder / "plot.wmf").c_str());
    page.Close();
    CSvgDC((folder / "page.svg").c_str(), 160, 115).Close();
    CPrinterDC("Plot", (folder / "print.pdf").c_str()).Close();
    std::filesystem::remove_all(folder);
    std::puts(bExported ? "exported" : "not exported");
}

/// What a program sees of its locale: as text, in numbers, and in C++.
void PrintLocale() {
    std::printf("%s %.1f %.1f %s\n", std::setlocale(LC_ALL, nullptr), 1.5, std::strtod("2,5", nullptr),
                std::locale().name().c_str());
}

void ShowWindow() {
    CWnd wnd;
    const BOOL bCreated =
        wnd.Create(nullptr, "A window", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 80, 60), nullptr, 0);
    std::puts(bCreated ? "window" : "no window");
}

void ShowDialog() {
    static constexpr tessara::CDialogTemplate DIALOGS[] = {{129, "About", 0, 0, 90, 40, WS_POPUP, {}}};
    tessara::AddResources({DIALOGS, {}});
    std::printf("dialog %d\n", static_cast<int>(CDialog(129).DoModal()));
}

void ShowMessage() {
    std::printf("answer %d\n", AfxMessageBox("The disk is full.", MB_YESNOCANCEL));
}

void OnWorker(const std::function<void()>& fnRun) {
    std::thread([&] {
        try {
            fnRun();
        } catch (const std::exception& error) {
            std::printf("thrown: %s\n", error.what());
        }
    }).join();
}

void PrintVariable(const char* pszName) {
    const char* const pszValue = std::getenv(pszName);
    std::printf("%s=%s\n", pszName, pszValue ? pszValue : "(none)");
}

template <class APPLICATION>
void MakeApplication() {
    static int s_nArguments = 1;
    static char s_szName[] = "host";
    static char* s_arguments[] = {s_szName, nullptr};
    new APPLICATION(s_nArguments, s_arguments); // lives as long as the program
}

void HearMessages() {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& strText) {
        std::printf("heard: %s\n", qPrintable(strText));
    });
}

/// Makes a window when it starts, and ends with it.
class CWindowApp : public CWinApp {
    BOOL InitInstance() override {
        ShowWindow();
        return FALSE;
    }
};

/// The whole program on a thread that is not the process's first.
void RunApplicationElsewhere() {
    OnWorker([] {
        CWindowApp app;
        char szName[] = "host";
        char* arguments[] = {szName, nullptr};
        std::printf("ended %d\n", AfxRunApplication(1, arguments));
    });
}

const std::map<std::string, std::function<void()>> ACTIONS = {
    {"draw", &Draw},
    {"export", &Export},
    {"locale", &PrintLocale},
    {"window", &ShowWindow},
    {"dialog", &ShowDialog},
    {"message", &ShowMessage},
    {"clipboard", [] { tessara::SetClipboard({}); }},
    {"metrics", [] { std::printf("icon %d\n", GetSystemMetrics(SM_CXICON)); }},
    {"wait",
     [] { std::printf("waited %d\n", WaitForSingleObject(CreateEvent(nullptr, 1, 1, nullptr), 0) == 0); }},
    {"application-elsewhere", &RunApplicationElsewhere},
    {"worker-draw", [] { OnWorker(&Draw); }},
    {"worker-measure",
     [] {
         OnWorker([] {
             CMetaFileDC().GetTextExtent("x", 1);
             std::puts("measured");
         });
     }},
    {"core-application", &MakeApplication<QCoreApplication>},
    {"gui-application", &MakeApplication<QGuiApplication>},
    {"application", &MakeApplication<QApplication>},
    {"hear-messages", &HearMessages},
    {"say", [] { qWarning("spoken"); }},
    {"environment",
     [] {
         PrintVariable("QT_QPA_PLATFORM");
         PrintVariable("XDG_RUNTIME_DIR");
     }},
};

void Do(const std::string& strAction) {
    constexpr const char SET_LOCALE[] = "setlocale:";
    constexpr const char SET_GLOBAL[] = "global:";
    if (strAction.starts_with(SET_LOCALE)) {
        const char* const pszName = std::setlocale(LC_ALL, strAction.c_str() + sizeof SET_LOCALE - 1);
        std::puts(pszName ? pszName : "no such locale");
    } else if (strAction.starts_with(SET_GLOBAL)) {
        std::locale::global(std::locale(strAction.c_str() + sizeof SET_GLOBAL - 1));
    } else {
        ACTIONS.at(strAction)();
    }
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        try {
            Do(argv[i]);
        } catch (const CException& exception) {
            std::printf("thrown: %s\n", exception.what());
        }
        std::fflush(stdout);
    }
}
