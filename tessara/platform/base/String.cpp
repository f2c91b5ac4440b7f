#include "tessara/platform/base/String.h"

#include <algorithm>
#include <cstdarg>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/Number.h"
#include "tessara/platform/base/StringResources.h"

using tessara::WithMemoryException;

namespace {

constexpr std::string_view WHITE_SPACE = " \t\n\v\f\r";

// The C functions of these names follow the process's locale.
char UpperOf(char ch) {
    return ch >= 'a' && ch <= 'z' ? static_cast<char>(ch - 'a' + 'A') : ch;
}

char LowerOf(char ch) {
    return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch;
}

std::size_t CheckIndex(const std::string& str, int nIndex) {
    if (nIndex < 0 || static_cast<std::size_t>(nIndex) >= str.size()) {
        AfxThrowInvalidArgException();
    }
    return static_cast<std::size_t>(nIndex);
}

std::size_t ClipCount(int nCount) {
    return static_cast<std::size_t>(std::max(nCount, 0));
}

/// A found position as the framework reports it.
int Position(std::size_t nFound) {
    return nFound == std::string::npos ? -1 : static_cast<int>(nFound);
}

} // namespace

CString::CString(const char* psz) : CString(std::string_view(psz ? psz : "")) {}

CString::CString(std::string_view str) : m_str(WithMemoryException([&] { return std::string(str); })) {}

CString::CString(const CString& src) : CString(src.View()) {}

CString& CString::operator=(const CString& src) {
    WithMemoryException([&] { m_str = src.m_str; });
    return *this;
}

CString::CString(char ch, int nRepeat)
    : m_str(WithMemoryException([&] { return std::string(ClipCount(nRepeat), ch); })) {}

char CString::GetAt(int nIndex) const {
    return m_str[CheckIndex(m_str, nIndex)];
}

void CString::SetAt(int nIndex, char ch) {
    m_str[CheckIndex(m_str, nIndex)] = ch;
}

CString& CString::operator+=(const CString& str) {
    WithMemoryException([&] { m_str += str.m_str; });
    return *this;
}

CString& CString::operator+=(const char* psz) {
    WithMemoryException([&] { m_str += psz ? psz : ""; });
    return *this;
}

CString& CString::operator+=(char ch) {
    WithMemoryException([&] { m_str += ch; });
    return *this;
}

CString CString::Left(int nCount) const {
    return Mid(0, nCount);
}

CString CString::Mid(int nFirst) const {
    return Mid(nFirst, GetLength());
}

CString CString::Mid(int nFirst, int nCount) const {
    return View().substr(std::min(ClipCount(nFirst), m_str.size()), ClipCount(nCount));
}

CString CString::Right(int nCount) const {
    return View().substr(m_str.size() - std::min(ClipCount(nCount), m_str.size()));
}

int CString::Find(char ch, int nStart) const {
    return nStart < 0 ? -1 : Position(m_str.find(ch, static_cast<std::size_t>(nStart)));
}

int CString::Find(const char* psz, int nStart) const {
    return nStart < 0 || !psz ? -1 : Position(m_str.find(psz, static_cast<std::size_t>(nStart)));
}

int CString::ReverseFind(char ch) const {
    return Position(m_str.rfind(ch));
}

int CString::Compare(const char* psz) const {
    return m_str.compare(psz ? psz : "");
}

int CString::CompareNoCase(const char* psz) const {
    CString strOwn(*this);
    CString strOther(psz);
    strOwn.MakeLower();
    strOther.MakeLower();
    return strOwn.m_str.compare(strOther.m_str);
}

void CString::MakeUpper() {
    std::transform(m_str.begin(), m_str.end(), m_str.begin(), UpperOf);
}

void CString::MakeLower() {
    std::transform(m_str.begin(), m_str.end(), m_str.begin(), LowerOf);
}

void CString::TrimLeft() {
    m_str.erase(0, m_str.find_first_not_of(WHITE_SPACE));
}

void CString::TrimRight() {
    m_str.erase(m_str.find_last_not_of(WHITE_SPACE) + 1);
}

void CString::Format(const char* pszFormat, ...) {
    std::va_list arguments;
    va_start(arguments, pszFormat);
    std::optional<std::string> strText = tessara::FormatArguments(pszFormat, arguments);
    va_end(arguments);
    if (!strText) {
        AfxThrowMemoryException();
    }
    m_str = std::move(*strText);
}

BOOL CString::LoadString(UINT nID) {
    const char* const pszText = tessara::FindStringResource(nID);
    *this = CString(pszText);
    return pszText != nullptr;
}

CString operator+(const CString& a, const CString& b) {
    CString str(a);
    str += b;
    return str;
}

CString operator+(const CString& a, const char* b) {
    CString str(a);
    str += b;
    return str;
}

CString operator+(const char* a, const CString& b) {
    return CString(a) + b;
}

CString operator+(const CString& a, char b) {
    CString str(a);
    str += b;
    return str;
}
