#pragma once

#include <vector>

#include "tessara/platform/files/settings/Settings.h"

namespace tessara {

/// The files that a program opened or saved last, the newest first, kept in its settings: what another run of
/// it has added meanwhile is kept there too.
class CRecentFiles {
public:
    /// Reads the list from the settings, at most nMax files.
    CRecentFiles(CSettings settings, std::size_t nMax);

    void Add(const CString& strPath);
    void Remove(const CString& strPath);
    const std::vector<CString>& GetPaths() const { return m_paths; }

private:
    void Change(const std::function<void(std::vector<CString>& paths)>& change);

    CSettings m_settings;
    std::size_t m_nMax;
    std::vector<CString> m_paths;
};

} // namespace tessara
