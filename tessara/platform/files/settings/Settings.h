#pragma once

#include <functional>
#include <optional>

#include "tessara/platform/base/String.h"
#include "tessara/platform/files/settings/SettingsText.h"

namespace tessara {

/// A user's settings of one application: sections of named values, below the key "Maker\Application" of the
/// settings store, or "Application" where there is no maker. A section is a key, and may be a path of keys.
///
/// Reading what does not exist gives nothing and makes nothing; a value that cannot be written is dropped in
/// silence. Several programs and threads may write at once. Settings in the INI file of an earlier version
/// (OldSettings.h) count until the application has a key of its own: its first change takes them over, and
/// then the old file is not looked at any more. Any thread.
class CSettings {
public:
    CSettings(const CString& strMaker, const CString& strApplication);

    std::optional<SETTING> Read(const CString& strSection, const CString& strName) const;
    /// These return whether the settings are as asked for then.
    bool Write(const CString& strSection, const CString& strName, const SETTING& value) const;
    bool Remove(const CString& strSection, const CString& strName) const;

    /// One section, while it is read or changed.
    class CSection {
    public:
        CSection(CSettingsText& text, std::string strKey) : m_text(text), m_strKey(std::move(strKey)) {}
        std::optional<SETTING> Read(const CString& strName) const {
            return m_text.Read(m_strKey, strName.View());
        }
        void Write(const CString& strName, const SETTING& value) {
            m_text.Write(m_strKey, strName.View(), value);
        }
        void Remove(const CString& strName) { m_text.Remove(m_strKey, strName.View()); }

    private:
        CSettingsText& m_text;
        std::string m_strKey;
    };

    /// Lets an action change several values of a section at once. It may be called twice, and not at all
    /// where that fails.
    bool Update(const CString& strSection, const std::function<void(CSection&)>& action) const;

private:
    void TakeOver(CSettingsText& text, std::string_view strKey) const;

    std::string m_strPath;
    std::string m_strOldFile;
};

/// A value as text; a number is signed and decimal.
CString SettingText(const SETTING& value);

} // namespace tessara
