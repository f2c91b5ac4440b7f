#pragma once

#include <optional>

#include "tessara/platform/base/String.h"

namespace tessara {

/// A user's settings of one application, in a file under the user's configuration folder.
///
/// Values are found by section and name. Reading what does not exist gives nothing and makes nothing; a value
/// that cannot be written is dropped in silence. Two programs may write at once. Main thread.
class CSettings {
public:
    /// The maker's name may be empty. Characters that no file name should have are replaced.
    CSettings(const CString& strMaker, const CString& strApplication);

    std::optional<CString> Read(const CString& strSection, const CString& strName) const;
    void Write(const CString& strSection, const CString& strName, const CString& strValue);
    void Remove(const CString& strSection, const CString& strName);

private:
    CString m_strMaker;
    CString m_strApplication;
};

} // namespace tessara
