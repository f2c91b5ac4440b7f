#pragma once

#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

// Random programs of closing, and a model that says which messages their windows get.

/// What a window can be told about its end, or a dialog about its life.
enum class EHeard { close, destroy, ncDestroy, gone, init, turn };

/// What a program does, at its top level or in a handler.
enum class EDo { destroy, sendClose, postClose, make, runDialog, endDialog, quit };

struct CStep {
    EDo eDo;
    int nWindow; ///< of quit: not used
};

struct CPlannedWindow {
    int nParent = -1; ///< always an earlier one
    bool bChild = false;
    bool bDialog = false; ///< modal, run by a step of its own thread
    bool bLate = false;   ///< made by a step
    int nThread = 0;
};

struct CClosingProgram {
    std::vector<CPlannedWindow> windows;
    std::vector<std::vector<CStep>> steps; ///< of each thread
    std::map<std::pair<int, EHeard>, std::vector<CStep>> handlers;
};

/// A program for that many threads, of which the first is the main one.
CClosingProgram MakeClosingProgram(unsigned nSeed, int nThreads);

/// Runs handlers of a program and writes down what is heard.
class CClosingRun {
public:
    explicit CClosingRun(const CClosingProgram& program) : m_program(program), m_handlers(program.handlers) {}
    virtual ~CClosingRun() = default;

    virtual void Do(const CStep& step) = 0;
    /// Notes it and does what the program has for it, the first time.
    void Hear(int nWindow, EHeard eHeard);
    void Note(int nWindow, const std::string& strWord) {
        m_log.push_back(std::to_string(nWindow) + ' ' + strWord);
    }
    const std::vector<std::string>& GetLog() const { return m_log; }

protected:
    const CClosingProgram& m_program;
    std::map<std::pair<int, EHeard>, std::vector<CStep>> m_handlers;
    std::vector<std::string> m_log;
};

/// What one thread's program should hear, by the rules of docs/framework.md, "How windows end".
class CClosingModel : public CClosingRun {
public:
    explicit CClosingModel(const CClosingProgram& program);
    void Run();
    void Do(const CStep& step) override;

private:
    struct CState {
        bool bTried = false; ///< made, or refused
        bool bThere = false;
        int nEnd = 0; ///< which end it belongs to; 0 while none has begun
        bool bTaken = false;
        bool bOwned = false;
        bool bWidget = false;
        int nWidgetParent = -1;
        bool bRuns = false; ///< a modal dialog
        bool bEnded = false;
        int nResult = 0;
    };

    std::vector<int> Below(int nWindow, bool bChildren) const;
    bool Make(int nWindow);
    void LoseWidget(int nWindow);
    void Destroy(int nWindow);
    void Tell(int nWindow, int nEnd);
    void TakeAway(int nWindow, int nEnd);
    void Close(int nWindow);
    void RunDialog(int nWindow);
    void End(int nWindow, int nResult);
    void DispatchNext();

    std::vector<CState> m_states;
    std::vector<int> m_made; ///< in the order of their making
    std::vector<std::pair<int, EHeard>> m_posted;
    int m_nEnds = 0;
    bool m_bQuit = false;
};
