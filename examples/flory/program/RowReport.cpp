#include "examples/flory/program/RowReport.h"

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace flory {

namespace {

volatile std::sig_atomic_t g_nInterrupted = 0;

void Interrupt(int) {
    g_nInterrupted = 1;
}

} // namespace

CRowReport::CRowReport() : m_bTerminal(isatty(STDERR_FILENO) != 0) {
    g_nInterrupted = 0;
    m_pfnPrevious = std::signal(SIGINT, Interrupt);
}

CRowReport::CRowReport(std::chrono::milliseconds patience) : CRowReport() {
    m_bShare = true;
    m_patience = patience;
}

CRowReport::~CRowReport() {
    std::signal(SIGINT, m_pfnPrevious);
    if (m_bTerminal && m_nShown >= 0) {
        std::fputc('\n', stderr);
    }
}

CRowProgress CRowReport::Progress() {
    return [this](int nDone, int nRows) { return Show(nDone, nRows); };
}

bool CRowReport::Show(int nDone, int nRows) {
    m_nDone = nDone;
    m_nRows = nRows;
    const int nSteps = m_bTerminal ? 100 : 10;
    const auto nStep = static_cast<int>(static_cast<long long>(nDone) * nSteps / nRows);
    if (nStep != m_nShown && !IsSilent()) {
        m_nShown = nStep;
        std::fprintf(stderr, m_bTerminal ? "\r%s" : "%s\n", DoneText().c_str());
        std::fflush(stderr);
    }
    return g_nInterrupted == 0;
}

bool CRowReport::IsSilent() const {
    return m_bShare && (!m_bTerminal || std::chrono::steady_clock::now() - m_start < m_patience);
}

std::string CRowReport::DoneText() const {
    if (m_bShare) {
        return std::to_string(100LL * m_nDone / m_nRows) + " %";
    }
    return std::to_string(m_nDone) + " of " + std::to_string(m_nRows) + " rows";
}

void CRowReport::Check(bool bDone) const {
    if (!bDone) {
        throw CAborted("aborted after " + DoneText() + "; nothing was written");
    }
}

} // namespace flory
