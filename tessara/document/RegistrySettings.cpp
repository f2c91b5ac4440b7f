#include "tessara/document/RegistrySettings.h"

#include "tessara/platform/base/String.h"
#include "tessara/platform/files/settings/RegKey.h"
#include "tessara/platform/ui/frames/WinApp.h"

namespace {

CString PathOf(const char* lpszSection) {
    const CWinApp* const pApp = AfxGetApp();
    return CString(pApp ? pApp->m_pszRegistryKey : nullptr) + "\\" + lpszSection;
}

} // namespace

unsigned long ReadRegistryDword(const char* lpszSection, const char* lpszValueName, unsigned long dwDefault) {
    CRegKey key;
    unsigned long dwValue = dwDefault;
    if (key.Open(HKEY_CURRENT_USER, PathOf(lpszSection), KEY_ALL_ACCESS) == ERROR_SUCCESS) {
        key.QueryValue(dwValue, lpszValueName); // leaves the default where it fails
    }
    return dwValue;
}

void WriteRegistryDword(const char* lpszSection, const char* lpszValueName, unsigned long dwValue) {
    CRegKey key;
    if (key.Create(HKEY_CURRENT_USER, PathOf(lpszSection)) == ERROR_SUCCESS) {
        key.SetValue(dwValue, lpszValueName);
    }
}
