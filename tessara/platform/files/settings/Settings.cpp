#include "tessara/platform/files/settings/Settings.h"

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/SharedFile.h"
#include "tessara/platform/files/settings/OldSettings.h"
#include "tessara/platform/files/settings/SettingsStore.h"

namespace tessara {

namespace {

/// A path and the names of another below it; empty names count as none.
std::string Below(std::string strPath, std::string_view strNames) {
    while (!strNames.empty()) {
        const std::string_view strName = FirstName(strNames);
        if (!strName.empty()) {
            (strPath += strPath.empty() ? "" : "\\") += strName;
        }
        strNames = PathBelowFirst(strNames);
    }
    return strPath;
}

bool Done(const std::function<void()>& action) {
    try {
        WithMemoryException(action);
        return true;
    } catch (const CFileException&) {
        return false;
    }
}

void CheckPath(const std::string& strPath) {
    if (!CSettingsText::IsPath(strPath)) {
        AfxThrowFileException(CFileException::badPath, -1, strPath.c_str());
    }
}

} // namespace

CSettings::CSettings(const CString& strMaker, const CString& strApplication)
    : m_strPath(Below(Below({}, strMaker.View()), strApplication.View())),
      m_strOldFile(OldSettingsPath(strMaker, strApplication)) {}

std::optional<SETTING> CSettings::Read(const CString& strSection, const CString& strName) const {
    std::optional<SETTING> value;
    Done([&] {
        ReadSettings(m_strPath, [&](const CSettingsText& text, std::string_view strKey) {
            if (text.HasKey(strKey)) {
                value = text.Read(Below(std::string(strKey), strSection.View()), strName.View());
                return;
            }
            std::string strBytes;
            CSettingsText old(strBytes);
            TakeOver(old, strKey);
            value = old.Read(Below(std::string(strKey), strSection.View()), strName.View());
        });
    });
    return value;
}

bool CSettings::Write(const CString& strSection, const CString& strName, const SETTING& value) const {
    return Update(strSection, [&](CSection& section) { section.Write(strName, value); });
}

bool CSettings::Remove(const CString& strSection, const CString& strName) const {
    return Update(strSection, [&](CSection& section) { section.Remove(strName); });
}

bool CSettings::Update(const CString& strSection, const std::function<void(CSection&)>& action) const {
    return Done([&] {
        CheckPath(Below(m_strPath, strSection.View()));
        UpdateSettings(m_strPath, [&](CSettingsText& text, std::string_view strKey) {
            if (!text.HasKey(strKey)) {
                TakeOver(text, strKey);
            }
            CSection section(text, Below(std::string(strKey), strSection.View()));
            action(section);
        });
    });
}

/// An old file that cannot be read does not keep the settings from being written.
void CSettings::TakeOver(CSettingsText& text, std::string_view strKey) const {
    std::string strBytes;
    Done([&] { strBytes = CSharedFile(m_strOldFile).Read(); });
    for (const OLDSETTING& old : ReadOldSettings(strBytes)) {
        const std::string strOldKey = Below(std::string(strKey), old.strSection);
        if (CSettingsText::IsPath(strOldKey)) {
            text.Write(strOldKey, old.strName, old.strValue);
        }
    }
}

CString SettingText(const SETTING& value) {
    const auto* const pText = std::get_if<std::string>(&value);
    return pText ? *pText : std::to_string(static_cast<std::int32_t>(std::get<std::uint32_t>(value)));
}

} // namespace tessara
