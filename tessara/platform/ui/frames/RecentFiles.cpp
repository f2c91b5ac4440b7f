#include "tessara/platform/ui/frames/RecentFiles.h"

#include <algorithm>

namespace tessara {

namespace {

constexpr const char* SECTION = "Recent File List";

CString NameOf(std::size_t nFile) {
    CString strName;
    strName.Format("File%zu", nFile + 1);
    return strName;
}

} // namespace

CRecentFiles::CRecentFiles(CSettings settings, std::size_t nMax)
    : m_settings(std::move(settings)), m_nMax(nMax) {
    for (std::size_t i = 0; i < nMax; ++i) {
        const auto strPath = m_settings.Read(SECTION, NameOf(i));
        if (strPath && !strPath->IsEmpty()) {
            m_paths.push_back(*strPath);
        }
    }
}

void CRecentFiles::Add(const CString& strPath) {
    std::erase(m_paths, strPath);
    m_paths.insert(m_paths.begin(), strPath);
    m_paths.resize(std::min(m_paths.size(), m_nMax));
    Write();
}

void CRecentFiles::Remove(const CString& strPath) {
    std::erase(m_paths, strPath);
    Write();
}

void CRecentFiles::Write() {
    for (std::size_t i = 0; i < m_nMax; ++i) {
        if (i < m_paths.size()) {
            m_settings.Write(SECTION, NameOf(i), m_paths[i]);
        } else {
            m_settings.Remove(SECTION, NameOf(i));
        }
    }
}

} // namespace tessara
