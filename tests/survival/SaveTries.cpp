#include "tests/survival/SaveTries.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "tessara/platform/base/Exception.h"

namespace {

constexpr const char* FILE_LEFT = "a file is left";
const CVerdict HAPPENS;

bool CanBeInterrupted(const std::string& strCall) {
    constexpr const char* CALLS[] = {"open",     "openat",    "creat",    "read",     "pread64",   "write",
                                     "pwrite64", "writev",    "close",    "fsync",    "fdatasync", "syncfs",
                                     "flock",    "ftruncate", "truncate", "fallocate"};
    return std::find(std::begin(CALLS), std::end(CALLS), strCall) != std::end(CALLS);
}

} // namespace

bool TryAll() {
    return std::getenv("TESSARA_SURVIVAL_ALL") != nullptr;
}

bool IsSaved(const CWatchedEnd& end) {
    return end.strReported.find("saved\n") != std::string::npos;
}

CWatchedEnd CSaveTries::Save(const CSaver& save, const CTrial& trial,
                             const std::function<CVerdict(const FILECALL&)>& decide) {
    ++m_nTried;
    return m_archive.Run(save, trial, decide);
}

std::string CSaveTries::FaultWhenKilled(const CTrial& trial, const CWatchedEnd& end) {
    const std::string strFault = m_archive.Fault(trial);
    if (!strFault.empty()) {
        return strFault;
    }
    if (IsSaved(end) && !m_archive.IsNew(trial)) {
        return "what was reported as saved is not there";
    }
    return FaultOfNextSave();
}

std::string CSaveTries::FaultOfNextSave() {
    return !m_archive.CanSave({EWay::over, 100}) ? "the next save failed"
           : m_archive.Strays().empty()          ? ""
                                                 : "a file is left after the next save";
}

/// What a save does that nobody disturbs. The calls before the last ones of a new file are the same in both
/// ways.
std::vector<CSaveTries::CPlannedCall> CSaveTries::CallsOf(const CSaver& save, const CTrial& trial) {
    m_archive.Fill(trial);
    const auto names = Save(save, trial, [](const FILECALL&) { return HAPPENS; }).calls;
    std::vector<CPlannedCall> calls;
    for (std::size_t i = 0; i < names.size(); ++i) {
        calls.push_back({static_cast<int>(i), names[i]});
    }
    if (trial.eWay == EWay::asNewByLink) {
        calls.erase(calls.begin(), std::find_if(calls.begin(), calls.end(), [](const CPlannedCall& call) {
                        return call.strName == "renameat2";
                    }));
    }
    return calls;
}

std::string CSaveTries::FaultsWhenKilled(const CSaver& save, const CTrial& trial) {
    std::string strFaults;
    for (const auto& [nCall, strName] : CallsOf(save, trial)) {
        m_archive.Fill(trial);
        const CWatchedEnd end = Save(save, trial, [nCall = nCall](const FILECALL& call) {
            return call.nNumber == nCall ? CVerdict{CVerdict::EKind::kills} : HAPPENS;
        });
        const std::string strFault = end.nSignal == SIGKILL ? FaultWhenKilled(trial, end) : "was not killed";
        if (!strFault.empty()) {
            strFaults +=
                trial.GetText() + ", call " + std::to_string(nCall) + " " + strName + ": " + strFault + "\n";
        }
    }
    return strFaults;
}

std::string CSaveTries::FaultWhenFailed(const CTrial& trial, const CWatchedEnd& end, int nErrno,
                                        bool bMustSave) {
    const auto has = [&](const std::string& str) { return end.strReported.find(str) != std::string::npos; };
    const bool bInPlace =
        has("the new content is in place") && trial.eWay != EWay::asNew && trial.eWay != EWay::asNewByLink;
    const bool bTold = has("told ") && has(m_archive.TargetOf(trial)) &&
                       (has(std::strerror(nErrno)) || has(CFileException::FromErrno(nErrno, nullptr).what()));
    const bool bSaved = IsSaved(end);
    const std::string strFault = m_archive.Fault(trial);
    return !strFault.empty()                                ? strFault
           : end.bKilled                                    ? "the process died"
           : bMustSave && !bSaved                           ? "is not saved"
           : bSaved && has("\nmodified")                    ? "is saved, but modified"
           : !bSaved && !has("\nmodified")                  ? "is not saved, but unmodified"
           : !bSaved && !bTold                              ? "the user was told: " + end.strReported
           : m_archive.IsNew(trial) != (bSaved || bInPlace) ? "reported " + end.strReported
           : !m_archive.Strays().empty()                    ? FILE_LEFT
                                                            : "";
}

std::string CSaveTries::FaultsWhenFailed(const CSaver& save, const CTrial& trial,
                                         const std::vector<int>& errors) {
    std::string strFaults;
    for (const auto& [nCall, strName] : CallsOf(save, trial)) {
        for (std::size_t i = 0; i < (TryAll() ? errors.size() : 1); ++i) {
            const int nErrno = errors[(static_cast<std::size_t>(nCall) + i) % errors.size()];
            if (nErrno != EINTR || CanBeInterrupted(strName)) {
                strFaults += FaultOf(save, trial, nCall, nErrno);
            }
        }
    }
    return strFaults;
}

std::string CSaveTries::FaultOf(const CSaver& save, const CTrial& trial, int nCall, int nErrno) {
    m_archive.Fill(trial);
    std::string strCall;
    const CWatchedEnd end = Save(save, trial, [&](const FILECALL& call) {
        if (call.nNumber != nCall) {
            return HAPPENS;
        }
        strCall = call.strName + " " + call.strPath;
        return CVerdict{CVerdict::EKind::fails, nErrno};
    });
    std::string strFault = FaultWhenFailed(trial, end, nErrno, nErrno == EINTR);
    if (strFault == FILE_LEFT && strCall.starts_with("unlinkat")) { // what could not be removed then
        strFault = FaultOfNextSave();
    }
    return strFault.empty() ? ""
                            : trial.GetText() + ", " + std::strerror(nErrno) + " in call " +
                                  std::to_string(nCall) + ", " + strCall + ": " + strFault + "\n";
}
