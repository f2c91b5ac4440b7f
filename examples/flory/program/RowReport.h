#pragma once

#include <chrono>
#include <string>

#include "examples/flory/model/Progress.h"
#include "tessara/platform/base/Exception.h"

namespace flory {

/// A long calculation was ended by Ctrl-C.
class CAborted : public CException {
public:
    using CException::CException;
};

/// Reports the rows of a long calculation on standard error, and lets Ctrl-C end it between two rows while
/// the object lives. On a terminal there is one line that changes, otherwise a line for each tenth. One
/// object at a time.
///
///     CRowReport report;
///     report.Check(map.Compute(report.Progress()));
///
/// Of a calculation that is mostly short only a share is told, on a terminal, once someone has waited:
///
///     CRowReport report(CRowReport::PATIENCE);
class CRowReport {
public:
    static constexpr std::chrono::milliseconds PATIENCE{2000};

    CRowReport();
    /// Tells nothing before this time has passed, and nothing at all where there is no terminal.
    explicit CRowReport(std::chrono::milliseconds patience);
    ~CRowReport();
    CRowReport(const CRowReport&) = delete;
    CRowReport& operator=(const CRowReport&) = delete;

    CRowProgress Progress();
    /// Throws CAborted when the calculation was.
    void Check(bool bDone) const;

private:
    bool Show(int nDone, int nRows);
    bool IsSilent() const;
    std::string DoneText() const;

    bool m_bTerminal;
    void (*m_pfnPrevious)(int); ///< who had Ctrl-C before
    bool m_bShare = false;      ///< a percentage, and not rows
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::chrono::milliseconds m_patience{0};
    int m_nDone = 0;
    int m_nRows = 0;
    int m_nShown = -1; ///< steps of the report
};

} // namespace flory
