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

void AddTo(std::vector<CString>& paths, const std::optional<SETTING>& value) {
    if (value && !SettingText(*value).IsEmpty()) {
        paths.push_back(SettingText(*value));
    }
}

} // namespace

CRecentFiles::CRecentFiles(CSettings settings, std::size_t nMax)
    : m_settings(std::move(settings)), m_nMax(nMax) {
    for (std::size_t i = 0; i < nMax; ++i) {
        AddTo(m_paths, m_settings.Read(SECTION, NameOf(i)));
    }
}

void CRecentFiles::Add(const CString& strPath) {
    Change([&](std::vector<CString>& paths) {
        std::erase(paths, strPath);
        paths.insert(paths.begin(), strPath);
    });
}

void CRecentFiles::Remove(const CString& strPath) {
    Change([&](std::vector<CString>& paths) { std::erase(paths, strPath); });
}

/// Changes the list as it is in the settings by then; where these cannot be written the program has its own.
void CRecentFiles::Change(const std::function<void(std::vector<CString>&)>& change) {
    std::vector<CString> kept;
    const bool bDone = m_settings.Update(SECTION, [&](CSettings::CSection& section) {
        kept.clear();
        for (std::size_t i = 0; i < m_nMax; ++i) {
            AddTo(kept, section.Read(NameOf(i)));
        }
        change(kept);
        kept.resize(std::min(kept.size(), m_nMax));
        for (std::size_t i = 0; i < m_nMax; ++i) {
            if (i < kept.size()) {
                section.Write(NameOf(i), std::string(kept[i].View()));
            } else {
                section.Remove(NameOf(i));
            }
        }
    });
    if (bDone) {
        m_paths = std::move(kept);
    } else {
        change(m_paths);
        m_paths.resize(std::min(m_paths.size(), m_nMax));
    }
}

} // namespace tessara
