#pragma once

#include "tessara/platform/base/Types.h"
#include "tessara/platform/files/settings/IniText.h"

namespace tessara {

/// The bytes of a profile file, read and changed in place (docs/settings.md says what they mean). Values are
/// given and taken without the quotes around them.
class CProfileText : private CIniText {
public:
    explicit CProfileText(std::string& strBytes);

    using CIniText::Entries;
    using CIniText::Remove;
    using CIniText::RemoveSection;
    using CIniText::Sections;

    std::optional<std::string> Find(std::string_view strSection, std::string_view strKey) const;
    /// All values of a section, of each key the first.
    CIniValues Values(std::string_view strSection) const;
    /// REQUIRES: the keys differ, and names and values have no line ends.
    void SetAll(std::string_view strSection, CIniValues values);
};

/// The number that a value begins with, 0 where it begins with none; numbers beyond 32 bits wrap round.
UINT ProfileNumber(std::string_view strValue);

} // namespace tessara
