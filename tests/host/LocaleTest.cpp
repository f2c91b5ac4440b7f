#include <gmock/gmock.h>

#include <algorithm>

#include "tests/host/Programs.h"

namespace {

struct LOCALECASE {
    const char* pszSetUp; ///< what the program does about its locale before it draws
    const char* pszSeen;  ///< and sees from then on: name, numbers written and read, name in C++
};

/// The environment names one locale, and the program has chosen another, or none.
const LOCALECASE LOCALES[] = {
    {"", "C 1.5 2.0 C\n"},
    {"setlocale:de_DE.UTF-8", "de_DE.UTF-8 1,5 2,5 C\n"},
    {"setlocale:tr_TR.UTF-8", "tr_TR.UTF-8 1,5 2,5 C\n"},
    {"setlocale:ja_JP.EUC-JP", "ja_JP.EUC-JP 1.5 2.0 C\n"},
    {"global:de_DE.UTF-8", "de_DE.UTF-8 1,5 2,5 de_DE.UTF-8\n"},
};

TEST(HostLocale, IsAsItWasAfterPicturesWindowsAndWaits) {
    const CPrograms programs;
    for (const char* const pszOfUser : {"de_DE.UTF-8", "ja_JP.EUC-JP", "C.UTF-8", "C"}) {
        for (const LOCALECASE& locale : LOCALES) {
            const std::string strSetUp = locale.pszSetUp;
            const std::string strShown =
                programs.Host(strSetUp + " locale draw locale export locale window locale wait locale",
                              {{"LC_ALL", pszOfUser}});
            const std::string strSeen = locale.pszSeen;
            const std::string strChosen =
                strSetUp.starts_with("setlocale:") ? strSetUp.substr(strSetUp.find(':') + 1) + "\n" : "";
            EXPECT_EQ(strShown, strChosen + strSeen + "drawn\n" + strSeen + "exported\n" + strSeen +
                                    "window\n" + strSeen + "waited 1\n" + strSeen)
                << strSetUp << " under " << pszOfUser;
        }
    }
}

} // namespace
