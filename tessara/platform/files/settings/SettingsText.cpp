#include "tessara/platform/files/settings/SettingsText.h"

#include <algorithm>

#include "tessara/platform/files/settings/SettingsSyntax.h"

namespace tessara {

namespace {

constexpr std::size_t MAX_NAME = 255;
constexpr std::ptrdiff_t MAX_NAMES = 512; ///< what walks through a tree may go as deep

/// The path of what lies below a key when a section is there, else nothing; the whole section below the root.
std::optional<std::string_view> Below(std::string_view strKey, std::string_view strSection) {
    if (strKey.empty()) {
        return strSection.empty() ? std::nullopt : std::optional(strSection);
    }
    const bool bBelow = strSection.size() > strKey.size() && strSection[strKey.size()] == '\\' &&
                        IsSameName(strSection.substr(0, strKey.size()), strKey);
    return bBelow ? std::optional(strSection.substr(strKey.size() + 1)) : std::nullopt;
}

} // namespace

CSettingsText::CSettingsText(std::string& strBytes) : m_text(CSettingsSyntax::Get(), strBytes) {}

bool CSettingsText::IsPath(std::string_view strPath) {
    if (std::count(strPath.begin(), strPath.end(), '\\') >= MAX_NAMES) {
        return false;
    }
    for (std::size_t nBegin = 0; nBegin < strPath.size();) {
        const std::size_t nEnd = std::min(strPath.find('\\', nBegin), strPath.size());
        if (nEnd == nBegin || nEnd - nBegin > MAX_NAME) {
            return false;
        }
        nBegin = nEnd + 1;
    }
    return !strPath.ends_with('\\');
}

std::optional<SETTING> CSettingsText::Read(std::string_view strKey, std::string_view strName) const {
    const auto value = m_text.Find(strKey, strName);
    return value ? CSettingsSyntax::ReadValue(*value) : std::nullopt;
}

void CSettingsText::Write(std::string_view strKey, std::string_view strName, const SETTING& value) {
    m_text.Set(strKey, strName, CSettingsSyntax::WriteValue(value));
}

bool CSettingsText::HasKey(std::string_view strKey) const {
    const auto sections = m_text.Sections();
    return std::any_of(sections.begin(), sections.end(), [&](const std::string& strSection) {
        return strKey.empty() || IsSameName(strSection, strKey) || Below(strKey, strSection);
    });
}

void CSettingsText::AddKey(std::string_view strKey) {
    if (!HasKey(strKey)) {
        m_text.AddSection(strKey);
    }
}

void CSettingsText::RemoveKey(std::string_view strKey) {
    m_text.RemoveSection(strKey);
    if (!strKey.empty()) {
        const std::size_t nName = strKey.rfind('\\');
        AddKey(nName == std::string_view::npos ? std::string_view() : strKey.substr(0, nName));
    }
}

std::vector<std::string> CSettingsText::Subkeys(std::string_view strKey) const {
    CNameList names;
    for (const std::string& strSection : m_text.Sections()) {
        if (const auto path = Below(strKey, strSection)) {
            names.Add(path->substr(0, path->find('\\')));
        }
    }
    return names.Take();
}

} // namespace tessara
