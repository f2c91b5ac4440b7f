#include <gtest/gtest.h>

#include <QGuiApplication>

#include "tessara/platform/base/String.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/qt/application/Application.h"
#include "tessara/platform/qt/drawing/Pictures.h"
#include "tessara/platform/ui/resources/Resources.h"

namespace {

using namespace tessara;

constexpr unsigned char FIRST[] = {'1'};
constexpr unsigned char SECOND[] = {'2'};

TEST(Resources, LaterModulesHideEarlierOnesNumberByNumber) {
    static constexpr CDialogTemplate EARLY[] = {{30001, "early", 0, 0, 10, 10, 0, {}},
                                                {30002, "only", 0, 0, 10, 10, 0, {}}};
    static constexpr CDialogTemplate LATE[] = {{30001, "late", 0, 0, 10, 10, 0, {}}};
    static constexpr CFileResource EARLY_FILES[] = {{EFileResource::icon, 30001, FIRST},
                                                    {EFileResource::bitmap, 30001, SECOND}};
    static constexpr CFileResource LATE_FILES[] = {{EFileResource::icon, 30001, SECOND}};
    AddResources({EARLY, EARLY_FILES});
    AddResources({LATE, LATE_FILES});
    EXPECT_STREQ(FindDialogTemplate(30001)->pszTitle, "late");
    EXPECT_STREQ(FindDialogTemplate(30002)->pszTitle, "only");
    EXPECT_EQ(FindDialogTemplate(30003), nullptr);
    EXPECT_EQ(FindFileResource(EFileResource::icon, 30001)->bytes.data(), SECOND);
    EXPECT_EQ(FindFileResource(EFileResource::bitmap, 30001)->bytes.data(), SECOND);
    EXPECT_EQ(FindFileResource(EFileResource::cursor, 30001), nullptr);
}

TEST(Resources, TheLibrarysAnimationsAreStripsOfPicturesThatDiffer) {
    EnsureApplication();
    for (const UINT nID : {134U, 135U}) {
        CFilm film(nID);
        ASSERT_GE(film.GetCount(), 8);
        EXPECT_EQ(film.Draw(0, 40).size(), QSize(40, 40));
        EXPECT_NE(film.Draw(0, 40).toImage(), film.Draw(film.GetCount() / 2, 40).toImage());
    }
    EXPECT_EQ(CFilm(4711).GetCount(), 0);
}

TEST(Resources, StringsAreLoadedByNumber) {
    static constexpr CStringResource STRINGS[] = {{30001, "text"}};
    AddStringResources(STRINGS);
    CString strText;
    EXPECT_TRUE(strText.LoadString(30001));
    EXPECT_EQ(strText, "text");
    EXPECT_FALSE(strText.LoadString(30002));
    EXPECT_EQ(strText, "");
}

} // namespace
