#include "tessara/dialogs/ChooseCurvesDialog.h"

#include <gmock/gmock.h>

#include <random>

#include "tessara/platform/base/StringResources.h"
#include "tests/document/Hands.h"

namespace tessara {

namespace {

using ::testing::ElementsAre;

constexpr UINT CHOOSE = CChooseCurvesDialog::TEMPLATE;
constexpr UINT COMPUTED = 100;
constexpr UINT DISPLAYED = 150;
constexpr UINT ADD = 1014;
constexpr UINT REMOVE = 1015;
constexpr UINT CLEAR = 400;

std::vector<std::string> Names(const CStringArray& array) {
    std::vector<std::string> names;
    for (int i = 0; i < array.GetSize(); ++i) {
        names.emplace_back(array[i].View());
    }
    return names;
}

std::vector<DWORD> Indices(const CChooseCurvesDialog& dialog) {
    const CDWordArray& array = dialog.m_displayedIndices;
    return {array.GetData(), array.GetData() + array.GetSize()};
}

void AddNames(CStringArray& array, std::initializer_list<const char*> names) {
    for (const char* const pszName : names) {
        array.Add(pszName);
    }
}

TEST(ChooseCurves, AddsAndRemovesElements) {
    CChooseCurvesDialog dialog;
    AddNames(dialog.m_computedNames, {"S22", "s11", "S12", "T"});
    AddNames(dialog.m_displayedNames, {"T", "gone"});
    {
        CHands hands;
        hands
            .Look(CHOOSE,
                  [] { EXPECT_THAT(CHands::Lines(CHOOSE, COMPUTED), ElementsAre("s11", "S12", "S22", "T")); })
            .Press(CHOOSE, ADD) // nothing is selected
            .Select(CHOOSE, COMPUTED, 0)
            .Press(CHOOSE, ADD)
            .Press(CHOOSE, ADD) // full
            .Answer(nullptr, "The List of displayed elements (DE) is full", QMessageBox::Ok)
            .Press(CHOOSE, REMOVE)
            .Look(CHOOSE,
                  [] { EXPECT_THAT(CHands::Lines(CHOOSE, DISPLAYED), ElementsAre("T", "gone", "s11")); })
            .Select(CHOOSE, DISPLAYED, 1)
            .Press(CHOOSE, REMOVE)
            .Look(CHOOSE, [] { EXPECT_EQ(CHands::Selected(CHOOSE, DISPLAYED), -1); })
            .Press(CHOOSE, ADD) // once more
            .Look(CHOOSE, [] { EXPECT_THAT(CHands::Lines(CHOOSE, DISPLAYED), ElementsAre("T", "s11")); })
            .Press(CHOOSE, IDOK);
        EXPECT_EQ(dialog.DoModal(), IDOK);
    }
    EXPECT_THAT(Names(dialog.m_displayedNames), ElementsAre("T", "s11"));
    EXPECT_THAT(Indices(dialog), ElementsAre(3, 0));
}

TEST(ChooseCurves, NeedsAnElementForOK) {
    CChooseCurvesDialog dialog;
    AddNames(dialog.m_computedNames, {"a"});
    AddNames(dialog.m_displayedNames, {"a"});
    CHands hands;
    hands.Press(CHOOSE, CLEAR).Press(CHOOSE, IDOK).Press(CHOOSE, IDOK).Press(CHOOSE, IDCANCEL);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.m_displayedIndices.GetSize(), 0);
}

TEST(ChooseCurves, TakesItsTextsFromAResource) {
    static constexpr CStringResource s_strings[] = {
        {900, "Title\nAll\n\nAdd it\nRemove it\nNone\nhow to add\nhow to\nremove"}, {901, "rest"}};
    AddStringResources(s_strings);
    CChooseCurvesDialog dialog;
    dialog.LoadResourceString(901);
    EXPECT_EQ(dialog.m_strTitle, "");
    EXPECT_EQ(dialog.m_strHintRemove, "rest");
    dialog.LoadResourceString(900);
    dialog.LoadResourceString(999); // there is none
    dialog.m_nMaxDisplayed = 0;
    dialog.m_strDisplayedLabel = "choice";
    dialog.m_computedNames.Add("a");
    CHands hands;
    hands
        .Look(CHOOSE,
              [] {
                  EXPECT_EQ(DialogOf(CHOOSE)->windowTitle().toStdString(), "Title");
                  const struct {
                      UINT nID;
                      const char* pszText;
                  } texts[] = {{1016, "All"}, {1017, "choice"},   {1014, "Add it"},      {1015, "Remove it"},
                               {400, "None"}, {25, "how to add"}, {27, "how to\nremove"}};
                  for (const auto& [nID, pszText] : texts) {
                      EXPECT_EQ(TextOf(ControlOf(CHOOSE, nID)), pszText);
                  }
              })
        .Select(CHOOSE, COMPUTED, 0)
        .Press(CHOOSE, ADD)
        .Answer(nullptr, "The choice is full", QMessageBox::Ok)
        .Press(CHOOSE, IDCANCEL);
    dialog.DoModal();
}

} // namespace

} // namespace tessara
