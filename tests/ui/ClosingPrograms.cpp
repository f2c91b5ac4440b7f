#include "tests/ui/ClosingPrograms.h"

#include <algorithm>

#include "tessara/platform/ui/windows/Styles.h"

namespace {

const char* NameOf(EHeard eHeard) {
    constexpr const char* NAMES[] = {"close", "destroy", "ncdestroy", "gone", "init", "turn"};
    return NAMES[static_cast<int>(eHeard)];
}

} // namespace

CClosingProgram MakeClosingProgram(unsigned nSeed, int nThreads) {
    std::mt19937 random(nSeed);
    const auto fnPick = [&](int nBelow) {
        return static_cast<int>(random() % static_cast<unsigned>(nBelow));
    };
    CClosingProgram program;
    const int nWindows = 3 + fnPick(6);
    for (int i = 0; i < nWindows; ++i) {
        CPlannedWindow window;
        window.nParent = i > 0 && fnPick(5) ? fnPick(i) : -1;
        window.bDialog = i > 0 && fnPick(4) == 0;
        window.bChild = !window.bDialog && window.nParent >= 0 && fnPick(3);
        window.bLate = window.bDialog || fnPick(5) == 0;
        while (window.bDialog && window.nParent >= 0 &&
               program.windows[static_cast<std::size_t>(window.nParent)].bChild) {
            window.nParent = program.windows[static_cast<std::size_t>(window.nParent)].nParent;
        }
        window.nThread = window.bChild ? program.windows[static_cast<std::size_t>(window.nParent)].nThread
                                       : fnPick(nThreads);
        program.windows.push_back(window);
    }
    const auto fnSteps = [&](int nCount) {
        constexpr EDo KINDS[] = {EDo::destroy,   EDo::destroy,   EDo::destroy,   EDo::destroy,
                                 EDo::sendClose, EDo::sendClose, EDo::postClose, EDo::postClose,
                                 EDo::make,      EDo::make,      EDo::runDialog, EDo::runDialog,
                                 EDo::runDialog, EDo::endDialog};
        std::vector<CStep> steps;
        for (int i = 0; i < nCount; ++i) {
            const EDo eDo = fnPick(40) == 0 ? EDo::quit : KINDS[fnPick(std::size(KINDS))];
            steps.push_back({eDo, fnPick(nWindows)});
        }
        return steps;
    };
    for (int i = 0; i < nThreads; ++i) {
        program.steps.push_back(fnSteps(2 + fnPick(4)));
    }
    for (int i = 0; i < nWindows * 2; ++i) {
        program.handlers[{fnPick(nWindows), static_cast<EHeard>(fnPick(6))}] = fnSteps(1 + fnPick(3));
    }
    return program;
}

void CClosingRun::Hear(int nWindow, EHeard eHeard) {
    Note(nWindow, NameOf(eHeard));
    const auto it = m_handlers.find({nWindow, eHeard});
    if (it == m_handlers.end()) {
        return;
    }
    const auto steps = std::move(it->second);
    m_handlers.erase(it);
    for (const CStep& step : steps) {
        Do(step);
    }
}

CClosingModel::CClosingModel(const CClosingProgram& program)
    : CClosingRun(program), m_states(program.windows.size()) {}

void CClosingModel::Run() {
    for (int i = 0; i < static_cast<int>(m_states.size()); ++i) {
        if (!m_program.windows[static_cast<std::size_t>(i)].bLate &&
            !m_states[static_cast<std::size_t>(i)].bTried) {
            Make(i);
        }
    }
    for (const CStep& step : m_program.steps[0]) {
        Do(step);
    }
    m_bQuit = false;
    while (!m_posted.empty()) {
        DispatchNext();
        m_bQuit = false; // that loop has ended; the next begins
    }
    const auto fnIsThere = [](const CState& state) { return state.bThere; };
    while (std::any_of(m_states.begin(), m_states.end(), fnIsThere)) {
        for (int i = 0; i < static_cast<int>(m_states.size()); ++i) {
            Destroy(i);
        }
    }
}

void CClosingModel::Do(const CStep& step) {
    CState& state = m_states[static_cast<std::size_t>(step.nWindow)];
    const bool bDialog = m_program.windows[static_cast<std::size_t>(step.nWindow)].bDialog;
    switch (step.eDo) {
    case EDo::destroy:
        Destroy(step.nWindow);
        break;
    case EDo::sendClose:
        Close(step.nWindow);
        break;
    case EDo::postClose:
        if (state.bThere) {
            m_posted.emplace_back(step.nWindow, EHeard::close);
        }
        break;
    case EDo::make:
        if (!bDialog && !state.bTried) {
            Make(step.nWindow);
        }
        break;
    case EDo::runDialog:
        if (bDialog && !state.bTried) {
            RunDialog(step.nWindow);
        }
        break;
    case EDo::endDialog:
        if (state.bThere) {
            End(step.nWindow, 1000 + step.nWindow);
        }
        break;
    case EDo::quit:
        m_bQuit = true;
        break;
    }
}

std::vector<int> CClosingModel::Below(int nWindow, bool bChildren) const {
    std::vector<int> found;
    for (const int nOther : m_made) {
        const auto& planned = m_program.windows[static_cast<std::size_t>(nOther)];
        const CState& state = m_states[static_cast<std::size_t>(nOther)];
        if (state.bThere && state.bOwned && planned.nParent == nWindow && planned.bChild == bChildren) {
            found.push_back(nOther);
        }
    }
    return found;
}

bool CClosingModel::Make(int nWindow) {
    const auto& planned = m_program.windows[static_cast<std::size_t>(nWindow)];
    CState& state = m_states[static_cast<std::size_t>(nWindow)];
    state.bTried = true;
    const CState* const pParent =
        planned.nParent >= 0 ? &m_states[static_cast<std::size_t>(planned.nParent)] : nullptr;
    state.bOwned = pParent && pParent->bThere;
    if ((planned.bChild && !(state.bOwned && pParent->bWidget)) || (state.bOwned && pParent->bTaken)) {
        Hear(nWindow, EHeard::gone);
        return false;
    }
    state.bThere = state.bWidget = true;
    state.nWidgetParent = state.bOwned && pParent->bWidget ? planned.nParent : -1;
    while (!planned.bChild && state.nWidgetParent >= 0 &&
           m_program.windows[static_cast<std::size_t>(state.nWidgetParent)].bChild) {
        state.nWidgetParent = m_program.windows[static_cast<std::size_t>(state.nWidgetParent)].nParent;
    }
    m_made.push_back(nWindow);
    return true;
}

void CClosingModel::Destroy(int nWindow) {
    CState& state = m_states[static_cast<std::size_t>(nWindow)];
    if (state.bThere && !state.nEnd) {
        const int nEnd = ++m_nEnds;
        Tell(nWindow, nEnd);
        TakeAway(nWindow, nEnd);
    }
}

void CClosingModel::Tell(int nWindow, int nEnd) {
    CState& state = m_states[static_cast<std::size_t>(nWindow)];
    if (!state.bThere || state.nEnd) {
        return;
    }
    state.nEnd = nEnd;
    for (const int nOwned : Below(nWindow, false)) {
        Destroy(nOwned);
    }
    Hear(nWindow, EHeard::destroy);
    for (const int nChild : Below(nWindow, true)) {
        Tell(nChild, nEnd);
    }
}

void CClosingModel::TakeAway(int nWindow, int nEnd) {
    CState& state = m_states[static_cast<std::size_t>(nWindow)];
    if (!state.bThere || state.nEnd != nEnd || state.bTaken) {
        return;
    }
    state.bTaken = true;
    for (const int nOther : std::vector(m_made)) { // handlers make some more
        const auto& planned = m_program.windows[static_cast<std::size_t>(nOther)];
        if (planned.nParent == nWindow && m_states[static_cast<std::size_t>(nOther)].bOwned) {
            Destroy(nOther);
            TakeAway(nOther, nEnd);
        }
    }
    LoseWidget(nWindow);
    Hear(nWindow, EHeard::ncDestroy);
    state.bThere = false;
    Hear(nWindow, EHeard::gone);
}

/// With a widget go those in it and over it, also of windows whose own end has not come so far.
void CClosingModel::LoseWidget(int nWindow) {
    m_states[static_cast<std::size_t>(nWindow)].bWidget = false;
    for (const int nOther : m_made) {
        const CState& other = m_states[static_cast<std::size_t>(nOther)];
        if (other.bWidget && other.nWidgetParent == nWindow) {
            LoseWidget(nOther);
        }
    }
}

void CClosingModel::Close(int nWindow) {
    if (!m_states[static_cast<std::size_t>(nWindow)].bThere) {
        return;
    }
    Hear(nWindow, EHeard::close);
    if (!m_program.windows[static_cast<std::size_t>(nWindow)].bDialog) {
        Destroy(nWindow);
    } else if (m_states[static_cast<std::size_t>(nWindow)].bThere) {
        End(nWindow, IDCANCEL);
    }
}

void CClosingModel::RunDialog(int nWindow) {
    CState& state = m_states[static_cast<std::size_t>(nWindow)];
    state.nResult = IDCANCEL;
    state.bRuns = true;
    int nResult = -1;
    if (Make(nWindow)) {
        m_posted.emplace_back(nWindow, EHeard::turn);
        Hear(nWindow, EHeard::init);
        while (!m_bQuit && !state.bEnded && state.bThere) {
            DispatchNext();
        }
        nResult = m_bQuit ? -1 : state.nResult;
    }
    Destroy(nWindow);
    state.bRuns = false;
    Note(nWindow, "returned " + std::to_string(nResult));
}

void CClosingModel::End(int nWindow, int nResult) {
    CState& state = m_states[static_cast<std::size_t>(nWindow)];
    if (state.bRuns) {
        state.bEnded = true;
        state.nResult = nResult;
    }
}

void CClosingModel::DispatchNext() {
    const auto [nWindow, eHeard] = m_posted.front();
    m_posted.erase(m_posted.begin());
    if (eHeard == EHeard::close) {
        Close(nWindow);
    } else if (m_states[static_cast<std::size_t>(nWindow)].bThere) {
        Hear(nWindow, EHeard::turn);
        End(nWindow, 2000 + nWindow);
    }
}
