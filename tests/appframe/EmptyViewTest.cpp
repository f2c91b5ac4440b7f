#include "tessara/appframe/EmptyView.h"

#include <gmock/gmock.h>

#include <fstream>

#include "tessara/appframe/FrameControls.h"
#include "tessara/document/DialogControls.h"
#include "tessara/document/RegistrySettings.h"
#include "tessara/platform/ui/windows/System.h"
#include "tests/appframe/Variants.h"
#include "tests/document/VariantFiles.h"

namespace tessara {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A program that starts: its view becomes active when its frame appears.
class EmptyView : public ::testing::Test {
protected:
    std::string WriteVariant(const char* pszName, const char* pszData) {
        const std::string strPath = m_program.m_strArchive + pszName;
        std::ofstream(strPath, std::ios::binary)
            << CVariantFile{.strName = "first", .strData = pszData}.Bytes();
        return strPath;
    }
    static std::string Enabled() {
        std::string strEnabled;
        for (const UINT nID : {IDC_NEW_VARIANT, IDC_LAST_VARIANT, IDC_EXISTING_VARIANT}) {
            strEnabled += ControlOf(IDD_WELCOME, nID).isEnabled() ? '1' : '0';
        }
        return strEnabled;
    }
    static long ShowWelcome() {
        return static_cast<long>(ReadRegistryDword("Preferences", "ShowWelcomeDialog", 77));
    }

    CVariantProgram<CEmptyView> m_program{RUNTIME_CLASS(CEmptyView)};
};

TEST_F(EmptyView, WithoutAnArchiveOnlyANewVariantCanBeMade) {
    EXPECT_EQ(ShowWelcome(), 77);
    {
        CHands hands;
        hands.Look(IDD_WELCOME, [] { EXPECT_EQ(Enabled(), "100"); }).Press(IDD_WELCOME, IDOK);
        m_program.m_app.OnFileNew();
    }
    EXPECT_THAT(m_program.Document().m_choices, ElementsAre(0));
    EXPECT_EQ(ShowWelcome(), 1);
    CEmptyView& view = m_program.View();
    m_program.Frame().SetActiveView(nullptr); // not a second time for the same view
    m_program.Frame().SetActiveView(&view);
    EXPECT_EQ(m_program.View().m_bWelcomeDone, 1);
}

TEST_F(EmptyView, LoadsTheLastVariant) {
    const std::string strPath = WriteVariant("bas00001.bva", "the last");
    CItemsDocument().WriteLastBaseVariantFile(strPath.c_str());
    {
        CHands hands;
        hands.Look(IDD_WELCOME, [] { EXPECT_EQ(Enabled(), "111"); })
            .Press(IDD_WELCOME, IDC_DONT_SHOW)
            .Press(IDD_WELCOME, IDOK);
        m_program.m_app.OnFileNew();
    }
    EXPECT_EQ(m_program.Document().m_strText, "the last");
    EXPECT_EQ(ShowWelcome(), 0);
}

TEST_F(EmptyView, LoadsAVariantOfTheArchive) {
    WriteVariant("bas00001.bva", "of the archive");
    {
        CHands hands;
        hands.Look(IDD_WELCOME, [] { EXPECT_EQ(Enabled(), "101"); })
            .Press(IDD_WELCOME, IDOK)
            .Select(IDD_SELECT_BASE, IDC_BASES, 0)
            .Press(IDD_SELECT_BASE, IDC_NEXT)
            .Press(IDD_LOAD_VARIANT, IDOK);
        m_program.m_app.OnFileNew();
    }
    EXPECT_EQ(m_program.Document().m_strText, "of the archive");
    EXPECT_EQ(ShowWelcome(), 1);
}

TEST_F(EmptyView, ACancelDoesNothingAndASwitchedOffWelcomeIsNotShown) {
    {
        CHands hands;
        hands.Press(IDD_WELCOME, IDC_DONT_SHOW).Press(IDD_WELCOME, IDCANCEL);
        m_program.m_app.OnFileNew();
    }
    EXPECT_THAT(m_program.Document().m_choices, IsEmpty());
    EXPECT_EQ(ShowWelcome(), 0);
    m_program.Close();
    m_program.m_app.OnFileNew(); // a dialog would wait for ever
    EXPECT_EQ(m_program.View().m_bWelcomeDone, 1);
    EXPECT_EQ(ShowWelcome(), 0);
    m_program.View().UpdateWindow();
    EXPECT_EQ(CClientDC(&m_program.View()).GetPixel(0, 0), GetSysColor(COLOR_APPWORKSPACE));
}

} // namespace

} // namespace tessara
