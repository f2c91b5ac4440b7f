#pragma once

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
class CRowReport {
public:
    CRowReport();
    ~CRowReport();
    CRowReport(const CRowReport&) = delete;
    CRowReport& operator=(const CRowReport&) = delete;

    CRowProgress Progress();
    /// Throws CAborted when the calculation was.
    void Check(bool bDone) const;

private:
    bool Show(int nDone, int nRows);

    bool m_bTerminal;
    void (*m_pfnPrevious)(int); ///< who had Ctrl-C before
    int m_nDone = 0;
    int m_nRows = 0;
    int m_nShown = -1; ///< steps of the report
};

} // namespace flory
