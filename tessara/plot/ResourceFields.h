#pragma once

#include <algorithm>

#include "tessara/platform/base/String.h"

namespace tessara {

/// The lines of a resource string, taken one by one.
class CResourceFields {
public:
    explicit CResourceFields(const char* pszText) : m_strRest(pszText) {}

    bool HasMore() const { return m_strRest.Find('\n') >= 0; }
    /// The text before the next line feed, or nothing when there is none.
    CString Take() {
        const int nEnd = m_strRest.Find('\n');
        CString strField = m_strRest.Left(std::max(nEnd, 0));
        m_strRest = m_strRest.Mid(nEnd + 1);
        return strField;
    }
    /// The text up to the next line feed or the end.
    CString TakeOrRest() { return HasMore() ? Take() : m_strRest; }
    /// All that is left.
    const CString& GetRest() const { return m_strRest; }

private:
    CString m_strRest;
};

} // namespace tessara
