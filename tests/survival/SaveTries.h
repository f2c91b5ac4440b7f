#pragma once

#include <string>
#include <vector>

#include "tests/survival/Saves.h"

/// Whether all is to be tried that a test can: TESSARA_SURVIVAL_ALL is set.
bool TryAll();

/// Whether a save was reported as done.
bool IsSaved(const CWatchedEnd& end);

/// Saves that are disturbed, and what is wrong afterwards: a line for each fault, empty for nothing.
class CSaveTries {
public:
    /// The process is killed in each of its calls on the archive.
    std::string FaultsWhenKilled(const CSaver& save, const CTrial& trial);
    /// Each call fails that can have such an error, one in each save.
    std::string FaultsWhenFailed(const CSaver& save, const CTrial& trial, const std::vector<int>& errors);

    CWatchedEnd Save(const CSaver& save, const CTrial& trial,
                     const std::function<CVerdict(const FILECALL&)>& decide);
    /// After a save that was cut off.
    std::string FaultWhenKilled(const CTrial& trial, const CWatchedEnd& end);
    /// After a save in which the system refused something. A file that has got the place of another stays
    /// there, which is told.
    std::string FaultWhenFailed(const CTrial& trial, const CWatchedEnd& end, int nErrno, bool bMustSave);

    const CTrialArchive& GetArchive() const { return m_archive; }
    int GetTried() const { return m_nTried; }

private:
    struct CPlannedCall {
        int nNumber;
        std::string strName;
    };
    std::vector<CPlannedCall> CallsOf(const CSaver& save, const CTrial& trial);
    std::string FaultOf(const CSaver& save, const CTrial& trial, int nCall, int nErrno);
    std::string FaultOfNextSave();

    CTrialArchive m_archive;
    int m_nTried = 0;
};
