// A window that draws a chain, a dialog that asks for its length, and a worker thread that computes it: an
// ideal chain, each bond in a random direction. With --screenshot FILE it writes a picture of the first chain
// and ends.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <random>
#include <vector>

#include <tessara/tessara.h>

namespace {
constexpr UINT WM_CHAIN_READY = WM_USER + 1; ///< LPARAM: the CChain, which the window takes over
constexpr int MAX_BONDS = 1000000;

struct CChain {
    int nBonds;
    std::vector<POINT> atoms; ///< hundredths of a bond
};

// What a thread gets to do: where the answer goes, and the question. Handles may be used after their window
// has gone.
struct CChainOrder {
    HWND hWindow;
    int nBonds;
    unsigned nSeed;
};

UINT ComputeChain(void* pParam) {
    const std::unique_ptr<CChainOrder> pOrder(static_cast<CChainOrder*>(pParam));
    auto pChain = std::make_unique<CChain>(CChain{pOrder->nBonds, {{0, 0}}});
    std::mt19937 random(pOrder->nSeed);
    std::uniform_real_distribution<double> angle(0, 2 * std::numbers::pi);
    double dX = 0;
    double dY = 0;
    for (int i = 0; i < pOrder->nBonds; ++i) {
        const double dAngle = angle(random);
        dX += 100 * std::cos(dAngle);
        dY += 100 * std::sin(dAngle);
        pChain->atoms.push_back({static_cast<LONG>(std::lround(dX)), static_cast<LONG>(std::lround(dY))});
    }
    // Zero when the window has gone; the chain is then still ours.
    if (PostMessage(pOrder->hWindow, WM_CHAIN_READY, 0, reinterpret_cast<LPARAM>(pChain.get()))) {
        static_cast<void>(pChain.release());
    }
    return 0;
}

constexpr UINT IDD_LENGTH = 200;
constexpr UINT IDC_BONDS = 1001;
constexpr tessara::CDialogItem LENGTH_ITEMS[] = {
    {"Static", 0xFFFF, "&Bonds:", 7, 9, 40, 8, WS_VISIBLE},
    {"Edit", IDC_BONDS, "", 54, 7, 60, 12, WS_VISIBLE | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL},
    {"Button", IDOK, "OK", 7, 26, 50, 14, WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON},
    {"Button", IDCANCEL, "Cancel", 64, 26, 50, 14, WS_VISIBLE | WS_TABSTOP}};
constexpr tessara::CDialogTemplate DIALOGS[] = {
    {IDD_LENGTH, "Length", 0, 0, 121, 47, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, LENGTH_ITEMS}};

class CLengthDialog : public CDialog {
public:
    CLengthDialog(CWnd* pOwner, int nBonds) : CDialog(IDD_LENGTH, pOwner), m_nBonds(nBonds) {}
    int m_nBonds;

protected:
    BOOL OnInitDialog() override {
        SetDlgItemInt(IDC_BONDS, static_cast<UINT>(m_nBonds));
        return CDialog::OnInitDialog();
    }
    void OnOK() override {
        CString strBonds;
        GetDlgItemText(IDC_BONDS, strBonds);
        const int nBonds = std::atoi(strBonds);
        if (nBonds < 1 || nBonds > MAX_BONDS) {
            MessageBox("A chain has 1 to 1000000 bonds.", "Length", MB_OK | MB_ICONEXCLAMATION);
            return; // and the dialog stays
        }
        m_nBonds = nBonds;
        CDialog::OnOK();
    }
};

class CChainWnd : public CWnd {
public:
    void Order(int nBonds) {
        m_nBonds = nBonds;
        AfxBeginThread(ComputeChain, new CChainOrder{m_hWnd, nBonds, ++m_nSeed});
    }
    CString m_strPicture; ///< write the first chain there and end, unless empty

protected:
    void OnPaint() {
        CPaintDC dc(this);
        CRect client;
        GetClientRect(&client);
        CBrush white(RGB(255, 255, 255));
        dc.FillRect(&client, &white);
        dc.TextOut(10, 10, "Click for another chain");
        DrawChain(dc, client);
    }
    void OnLButtonUp(UINT, CPoint) {
        CLengthDialog dialog(this, m_nBonds);
        if (dialog.DoModal() == IDOK) {
            Order(dialog.m_nBonds);
        }
    }
    LRESULT OnChainReady(WPARAM, LPARAM lParam) {
        m_pChain.reset(reinterpret_cast<CChain*>(lParam));
        Invalidate();
        if (!m_strPicture.IsEmpty()) {
            SaveImage(m_strPicture);
            PostMessage(WM_CLOSE);
        }
        return 0;
    }
    DECLARE_MESSAGE_MAP()

private:
    void DrawChain(CDC& dc, const CRect& client) const;

    std::unique_ptr<CChain> m_pChain;
    int m_nBonds = 0;
    unsigned m_nSeed = 0;
};
BEGIN_MESSAGE_MAP(CChainWnd, CWnd)
ON_WM_PAINT()
ON_WM_LBUTTONUP()
ON_MESSAGE(WM_CHAIN_READY, OnChainReady)
END_MESSAGE_MAP()

// Fits the chain into the window, the same scale in both directions.
void CChainWnd::DrawChain(CDC& dc, const CRect& client) const {
    if (!m_pChain) {
        return;
    }
    const std::vector<POINT>& atoms = m_pChain->atoms;
    const auto [left, right] = std::ranges::minmax(atoms, {}, &POINT::x);
    const auto [top, bottom] = std::ranges::minmax(atoms, {}, &POINT::y);
    const CRect box(left.x, top.y, right.x, bottom.y);
    const CPoint middle = client.CenterPoint();
    dc.SaveDC();
    dc.SetMapMode(MM_ISOTROPIC);
    dc.SetWindowOrg(box.CenterPoint().x, box.CenterPoint().y);
    dc.SetWindowExt(box.Width() * 5 / 4 + 1, box.Height() * 5 / 4 + 1);
    dc.SetViewportExt(client.Width(), client.Height());
    dc.SetViewportOrg(middle.x, middle.y);
    CPen pen(PS_SOLID, 0, RGB(0, 0, 160)); // one pixel, whatever the scale
    CPen* const pOld = dc.SelectObject(&pen);
    dc.Polyline(atoms.data(), static_cast<int>(atoms.size()));
    dc.SelectObject(pOld);
    dc.RestoreDC(-1);
}

class CChainApp : public CWinApp {
public:
    CChainApp() : CWinApp("Chain") {}

protected:
    BOOL InitInstance() override {
        tessara::AddResources({DIALOGS, {}});
        CCommandLineInfo info;
        ParseCommandLine(info);
        m_pMainWnd = &m_window;
        if (!m_window.Create(nullptr, "An ideal chain", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                             CRect(0, 0, 640, 480), nullptr, 0)) {
            return FALSE;
        }
        m_window.m_strPicture = info.m_strFileName;
        m_window.Order(1000);
        return TRUE;
    }

private:
    CChainWnd m_window;
};
CChainApp theApp;
} // namespace

int main(int argc, char* argv[]) {
    return AfxRunApplication(argc, argv);
}
