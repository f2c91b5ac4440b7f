#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/String.h"

/// A monomer's name and the abbreviation that applications use for it.
class TESSARA_API CMonomerAbbreviation {
public:
    CMonomerAbbreviation() = default;
    CMonomerAbbreviation(const char* lpszShortName, const char* lpszFullName)
        : m_strFullName(lpszFullName), m_strShortName(lpszShortName) {}
    CMonomerAbbreviation(const CMonomerAbbreviation&) = default;
    CMonomerAbbreviation(CMonomerAbbreviation&&) noexcept = default;
    CMonomerAbbreviation& operator=(const CMonomerAbbreviation&) = default;
    CMonomerAbbreviation& operator=(CMonomerAbbreviation&&) noexcept = default;
    virtual ~CMonomerAbbreviation();

    CString m_strFullName;
    CString m_strShortName;
};
