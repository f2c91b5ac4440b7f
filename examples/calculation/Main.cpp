// A program that computes something slow behind a progress dialog: how far apart the ends of a chain are,
// from random chains. A click computes anew. With --screenshot FILE it writes a picture of the result and
// ends.
#include <algorithm>
#include <random>
#include <tessara/tessara.h>

namespace {
constexpr int LENGTHS = 40;
constexpr int SAMPLES = 3000; // of each length

// The squared distance of the ends of a random chain on a line.
double SampleChain(int nBonds, std::minstd_rand& random) {
    double dEnd = 0;
    for (int i = 0; i < nBonds; ++i) {
        dEnd += random() % 2 ? 1 : -1;
    }
    return dEnd * dEnd;
}

class CChainThread : public CBaseCalculationThread {
public:
    CChainThread(HWND hNotify, CCurve& result)
        : CBaseCalculationThread(hNotify, nullptr, 0), m_result(result) {}
    int Calculate() override {
        std::minstd_rand random(std::random_device{}());
        BeginProgressBar(LENGTHS);
        for (int i = 0; i < LENGTHS; ++i) {
            m_result.m_pX[i] = 50 * i;
            m_result.m_pY[i] = 0;
            for (int nSample = 0; nSample < SAMPLES; ++nSample) {
                if (IsCalculationAborted()) {
                    return 0; // the window is told -1, whatever this is
                }
                m_result.m_pY[i] += SampleChain(50 * i, random) / SAMPLES;
            }
            StepProgressBar();
        }
        EndProgressBar();
        return 1;
    }
    CCurve& m_result;
};

class CChainWnd : public CWnd {
public:
    CString m_strPicture; // write the result there and end, unless empty
    BOOL Compute() {
        m_bComputing = m_bComputing || (new CChainThread(m_hWnd, m_result))->CreateThread();
        return m_bComputing;
    }

protected:
    LRESULT OnDone(WPARAM wParam, LPARAM) {
        AwaitThread();
        if (static_cast<int>(wParam) == 1) { // else the curve is not whole
            std::copy_n(m_result.m_pX, LENGTHS, m_shown.m_pX);
            std::copy_n(m_result.m_pY, LENGTHS, m_shown.m_pY);
            m_plot.SetNames("Random chains", "R~N2~H", "Bonds", "N~N");
            m_plot.SetOutputData(&m_shown);
            Invalidate();
        }
        if (!m_strPicture.IsEmpty()) {
            SaveImage(m_strPicture);
            PostMessage(WM_CLOSE);
        }
        return 0;
    }
    // The dialog went first, and that counts as an abort: the thread ends soon.
    void OnDestroy() { AwaitThread(); }
    // Until it has gone, the thread may still use the curve.
    void AwaitThread() {
        if (std::exchange(m_bComputing, FALSE)) {
            WaitForSingleObject(CChainThread::m_hEventCalculationThreadKilled, INFINITE);
        }
    }
    void OnLButtonUp(UINT, CPoint) { Compute(); }
    void OnPaint() {
        CPaintDC dc(this);
        CRect client;
        GetClientRect(&client);
        dc.FillRect(&client, static_cast<CBrush*>(tessara::GetStockObject(WHITE_BRUSH)));
        dc.SetBkMode(TRANSPARENT);
        m_plot.Paint(&dc, client, nullptr);
    }
    DECLARE_MESSAGE_MAP()

private:
    BOOL m_bComputing = FALSE;
    CCurve m_result{LENGTHS}; // the thread's, while it computes
    CCurve m_shown{LENGTHS};
    COutputCurve m_plot;
};
BEGIN_MESSAGE_MAP(CChainWnd, CWnd)
ON_WM_PAINT()
ON_WM_DESTROY()
ON_WM_LBUTTONUP()
ON_MESSAGE(WM_CALCULATION_DONE, OnDone)
END_MESSAGE_MAP()

struct CChainApp : CWinApp {
    BOOL InitInstance() override {
        CChainThread::m_hEventCalculationThreadKilled = CreateEvent(nullptr, FALSE, FALSE, nullptr);
        CCommandLineInfo info;
        ParseCommandLine(info);
        m_window.m_strPicture = info.m_strFileName;
        m_pMainWnd = &m_window;
        return m_window.Create(nullptr, "Random chains", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                               CRect(0, 0, 800, 575), nullptr, 0) &&
               m_window.Compute();
    }
    CChainWnd m_window;
} theApp;
} // namespace

int main(int argc, char* argv[]) {
    return AfxRunApplication(argc, argv);
}
