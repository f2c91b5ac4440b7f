#pragma once

#include <random>
#include <string>
#include <vector>

namespace tessara::models {

/// The title of the application's window during a calculation.
///
/// Read here where it is not said: a fraction of the steps is worked out without running over, and steps
/// beyond the last count on.
struct CProgressTitleModel {
    std::string strApplication;
    std::string strTitle; ///< what the window shows
    bool bMinimised = false;

    bool bAborting = false;
    long long nSteps = 0;
    long long nCurrentStep = 0;
    bool bTitleChanged = false;
    std::string strSavedTitle;

    void Begin(int nCount) {
        nSteps = nCount;
        nCurrentStep = 0;
        bTitleChanged = false;
        strSavedTitle = strTitle;
    }
    void Step() {
        if (bAborting) {
            Restore();
            return;
        }
        ++nCurrentStep;
        if (nSteps == 0) {
            return;
        }
        if (bMinimised) {
            strTitle = std::to_string(nCurrentStep * 100 / nSteps) + "% complete - " + strApplication;
            bTitleChanged = true;
        } else {
            Restore();
        }
    }
    void SetPercent() {} // moves the bar alone
    void End() { Restore(); }
    void Abort() { bAborting = true; } // of the calculation; preparations cannot be aborted

private:
    void Restore() {
        if (bTitleChanged) {
            strTitle = strSavedTitle;
            bTitleChanged = false;
        }
    }
};

/// Calculations that are watched by somebody who minimises and restores the window all the time. Each begins
/// its bar first and ends it last, and may do so again; aborted at most once.
class CProgressPrograms {
public:
    enum class EDo { Begin, Step, SetPercent, End, Minimise, Normal, Abort };
    struct CStep {
        EDo eDo;
        int nCount; ///< of Begin
    };

    explicit CProgressPrograms(unsigned nSeed) : m_random(nSeed) {}

    /// Ends cost a quarter of a second each.
    std::vector<CStep> Next(bool bAborts, int nEnds) {
        using enum EDo;
        static constexpr EDo s_dos[] = {Step, Step, Step, Step, SetPercent, Minimise, Normal};
        static constexpr int s_counts[] = {0, 1, 3, 7, 200, 1000, 50'000'000, 2'147'483'647};
        std::vector<CStep> steps;
        for (int nBar = 0; nBar == 0 || nBar < nEnds; ++nBar) {
            steps.push_back({Begin, s_counts[Below(8)]});
            for (int i = Below(30); i > 0; --i) {
                steps.push_back({s_dos[Below(7)], 0});
            }
            if (bAborts && Below(4) == 0) {
                steps.push_back({Abort, 0});
                bAborts = false;
                for (int i = Below(5); i > 0; --i) {
                    steps.push_back({s_dos[Below(7)], 0});
                }
            }
            if (nBar < nEnds) {
                steps.push_back({End, 0});
            }
        }
        return steps;
    }

private:
    int Below(unsigned n) { return static_cast<int>(m_random() % n); }

    std::mt19937 m_random;
};

} // namespace tessara::models
