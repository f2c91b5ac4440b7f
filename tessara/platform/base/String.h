#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <utility>

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

/// A string of bytes. How bytes become characters on screen is said in Text.h.
///
/// Positions and lengths count bytes. A position outside the string throws CInvalidArgException where a
/// single character is asked for; Left, Mid and Right clip to the string. Running out of memory throws
/// CMemoryException; the string is then as it was.
class TESSARA_API CString {
public:
    CString() = default;
    CString(const char* psz);
    CString(std::string_view str);
    CString(std::string str) : m_str(std::move(str)) {}
    CString(const CString& src);
    CString(CString&& src) noexcept = default;
    CString& operator=(const CString& src);
    CString& operator=(CString&& src) noexcept = default;
    ~CString() = default;
    explicit CString(char ch, int nRepeat = 1);

    operator const char*() const { return m_str.c_str(); }
    std::string_view View() const { return m_str; }

    int GetLength() const { return static_cast<int>(m_str.size()); }
    BOOL IsEmpty() const { return m_str.empty(); }
    void Empty() { m_str.clear(); }
    char GetAt(int nIndex) const;
    char operator[](int nIndex) const { return GetAt(nIndex); }
    void SetAt(int nIndex, char ch);

    CString& operator+=(const CString& str);
    CString& operator+=(const char* psz);
    CString& operator+=(char ch);

    CString Left(int nCount) const;
    CString Mid(int nFirst) const;
    CString Mid(int nFirst, int nCount) const;
    CString Right(int nCount) const;

    /// The first position at or after nStart, or -1.
    int Find(char ch, int nStart = 0) const;
    int Find(const char* psz, int nStart = 0) const;
    int ReverseFind(char ch) const;

    /// Negative, zero or positive as this string sorts before, with or after psz, byte by byte.
    int Compare(const char* psz) const;
    /// The same for ASCII letters of either case.
    int CompareNoCase(const char* psz) const;

    void MakeUpper(); ///< ASCII letters only
    void MakeLower(); ///< ASCII letters only
    void TrimLeft();
    void TrimRight();

    /// printf into this string; numbers always use '.'. The format is a literal of the caller: formats that
    /// come from applications go through FormatValue (Number.h).
    void Format(const char* pszFormat, ...) __attribute__((format(printf, 2, 3)));

    /// The text of a string resource. Returns zero, and is empty, when there is none.
    BOOL LoadString(UINT nID);

    friend bool operator==(const CString& a, const CString& b) { return a.m_str == b.m_str; }
    friend bool operator==(const CString& a, const char* b) { return a.m_str == (b ? b : ""); }
    friend std::strong_ordering operator<=>(const CString& a, const CString& b) {
        return a.m_str <=> b.m_str;
    }
    friend std::strong_ordering operator<=>(const CString& a, const char* b) {
        return a.m_str <=> std::string_view(b ? b : "");
    }

private:
    std::string m_str;
};

TESSARA_API CString operator+(const CString& a, const CString& b);
TESSARA_API CString operator+(const CString& a, const char* b);
TESSARA_API CString operator+(const char* a, const CString& b);
TESSARA_API CString operator+(const CString& a, char b);
