#pragma once

#include "tessara/platform/files/settings/IniText.h"
#include "tessara/platform/files/settings/SettingsText.h"

namespace tessara {

/// How a settings file writes names and values, so that any bytes come back as they were and a person can
/// read and change them.
///
/// A text in quotes has escapes (\\ \" \n \r \t and \xHH), and can be any bytes; written so, it is always
/// UTF-8. A name without quotes stands for itself. A number is decimal; one above 2147483647 is written as
/// the negative number of the same 32 bits, and both are read.
class CSettingsSyntax : public CIniSyntax {
public:
    static const CSettingsSyntax& Get();

    std::optional<std::string> ReadHeader(std::string_view strLine) const override;
    std::optional<INIENTRY> ReadEntry(std::string_view strLine) const override;
    std::string WriteHeader(std::string_view strSection) const override;
    std::string WriteName(std::string_view strName) const override;

    static std::optional<SETTING> ReadValue(std::string_view strValue);
    static std::string WriteValue(const SETTING& value);
};

} // namespace tessara
