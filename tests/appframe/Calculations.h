#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <filesystem>
#include <functional>
#include <vector>

#include "tessara/appframe/BaseCalculationThread.h"
#include "tessara/appframe/FrameControls.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/windows/WindowTable.h"
#include "tests/support/PlotWindow.h"

namespace tessara {

constexpr int LIMIT = 60'000; ///< milliseconds: what does not come fails the test

/// A calculation that does what a test gives it to do.
class CTestCalculation : public CBaseCalculationThread {
public:
    using CWork = std::function<int(CTestCalculation&)>;
    CTestCalculation(HWND hNotify, int nMode, CWork work)
        : CBaseCalculationThread(hNotify, nullptr, nMode), m_work(std::move(work)) {}

    int Calculate() override { return m_work(*this); }
    int Prepare() override { return 1000 + m_work(*this); }
    LRESULT ProcessWndProcException(const std::exception& exception, const MSG* pMsg) override {
        if (!s_pTold) {
            return CBaseCalculationThread::ProcessWndProcException(exception, pMsg);
        }
        s_pTold->push_back(exception.what());
        return 0;
    }
    static std::vector<std::string>* s_pTold; ///< takes what exceptions say instead of a message box

private:
    CWork m_work;
};

/// The window of a program that calculates.
class CCalculatingWnd : public CWnd {
public:
    struct CEnd {
        UINT nMessage;
        WPARAM wParam;
        bool bDialogThere; ///< when the end was told
        friend bool operator==(const CEnd&, const CEnd&) = default;
    };
    std::vector<CEnd> m_ends;
    std::function<void()> m_fnOnEnd;

protected:
    LRESULT OnEnd(UINT nMessage, WPARAM wParam) {
        m_ends.push_back({nMessage, wParam, DialogOf(IDD_CALCULATION) || DialogOf(IDD_PREPARATIONS)});
        if (m_fnOnEnd) {
            m_fnOnEnd();
        }
        return 0;
    }
    LRESULT OnCalculation(WPARAM wParam, LPARAM) { return OnEnd(WM_CALCULATION_DONE, wParam); }
    LRESULT OnPreparation(WPARAM wParam, LPARAM) { return OnEnd(WM_PREPARATION_DONE, wParam); }
    DECLARE_MESSAGE_MAP()
};

/// A program with such a window.
class CalculationTest : public ::testing::Test {
protected:
    using CWork = CTestCalculation::CWork;

    void SetUp() override {
        CBaseCalculationThread::m_hEventCalculationThreadKilled = CreateEvent(nullptr, FALSE, FALSE, nullptr);
        Open();
    }
    void TearDown() override {
        m_wnd.DestroyWindow();
        CloseHandle(CBaseCalculationThread::m_hEventCalculationThreadKilled);
        CBaseCalculationThread::m_hEventCalculationThreadKilled = nullptr;
        CTestCalculation::s_pTold = nullptr;
    }

    void Open() {
        ASSERT_TRUE(m_wnd.CreateEx(0, nullptr, "Untitled - Flory", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                   CRect(100, 100, 700, 500), nullptr, 0));
    }
    void Start(CWork work, int nMode = 0) {
        ASSERT_TRUE((new CTestCalculation(m_wnd.m_hWnd, nMode, std::move(work)))->CreateThread());
    }
    static bool WaitFor(const std::function<bool()>& fnCondition) {
        return QTest::qWaitFor(fnCondition, LIMIT);
    }
    void AwaitEnd(std::size_t nEnds = 1) {
        ASSERT_TRUE(WaitFor([&] { return m_wnd.m_ends.size() >= nEnds; }));
    }
    static DWORD AwaitKilled() {
        return WaitForSingleObject(CBaseCalculationThread::m_hEventCalculationThreadKilled, LIMIT);
    }
    std::string Title() {
        CString strTitle;
        m_wnd.GetWindowText(strTitle);
        return std::string(strTitle);
    }
    static CCalculatingWnd::CEnd Done(int nResult) {
        return {WM_CALCULATION_DONE, static_cast<unsigned>(nResult), false};
    }

    CWinApp m_app{"Flory"};
    CCalculatingWnd m_wnd;
};

} // namespace tessara
