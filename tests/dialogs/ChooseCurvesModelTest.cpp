#include "tests/dialogs/ChooseCurvesModel.h"
#include "tessara/dialogs/ChooseCurvesDialog.h"
#include "tessara/platform/base/StringResources.h"
#include "tests/dialogs/DialogRun.h"

namespace tessara {

namespace {

using models::CChooseCurvesClicks;
using models::CChooseCurvesModel;
using enum CChooseCurvesClicks::EClick;

constexpr UINT CHOOSE = CChooseCurvesDialog::TEMPLATE;
constexpr UINT COMPUTED = 100;
constexpr UINT DISPLAYED = 150;
constexpr UINT ADD = 1014;
constexpr UINT REMOVE = 1015;
constexpr UINT CLEAR = 400;

std::vector<std::string> Texts(const CStringArray& array) {
    std::vector<std::string> texts;
    for (int i = 0; i < array.GetSize(); ++i) {
        texts.emplace_back(array[i].View());
    }
    return texts;
}

/// The dialog and the model beside it, and somebody who clicks in both.
class CChoice {
public:
    explicit CChoice(unsigned nSeed) : m_clicks(nSeed), m_model(m_clicks.Start()) {
        for (const std::string& strName : m_model.sortedNames) {
            m_dialog.m_computedNames.Add(strName.c_str());
        }
        for (const std::string& strName : m_model.displayedNames) {
            m_dialog.m_displayedNames.Add(strName.c_str());
        }
        for (const std::uint32_t nIndex : m_model.displayedIndices) {
            m_dialog.m_displayedIndices.Add(nIndex);
        }
        m_dialog.m_nMaxDisplayed = m_model.nMaxDisplayed;
        m_dialog.m_strDisplayedLabel = m_model.strDisplayedLabel.c_str();
    }

    void Run() {
        const auto nEnd = m_run.Do(m_dialog, CHOOSE, [this] {
            Begin();
            for (const auto& [eClick, nLine] : m_clicks.Steps()) {
                if (::testing::Test::HasFailure() || m_bClosed) {
                    break;
                }
                Click(eClick, nLine);
            }
            return m_bClosed;
        });
        EXPECT_EQ(nEnd, m_bClosed ? IDOK : IDCANCEL);
        Compare();
    }

private:
    /// Takes over the order of the list, and the indices that the dialog found for names without one.
    void Begin() {
        const std::vector<std::string> sorted = CHands::Lines(CHOOSE, COMPUTED);
        EXPECT_TRUE(std::is_permutation(sorted.begin(), sorted.end(), m_model.sortedNames.begin(),
                                        m_model.sortedNames.end()));
        EXPECT_TRUE(CChooseCurvesModel::IsAlphabetical(sorted)) << testing::PrintToString(sorted);
        m_model.sortedNames = sorted;
        for (std::size_t i = m_model.displayedIndices.size(); i < m_model.displayedNames.size(); ++i) {
            const auto found = std::find(sorted.begin(), sorted.end(), m_model.displayedNames[i]);
            m_model.displayedIndices.push_back(
                found == sorted.end() ? 0xFFFFFFFF : static_cast<std::uint32_t>(found - sorted.begin()));
        }
        if (m_model.strDisplayedLabel.empty()) {
            m_model.strDisplayedLabel = "List of displayed elements (DE)";
        }
        Compare();
    }

    void Click(CChooseCurvesClicks::EClick eClick, int nLine) {
        m_run.m_messages.clear();
        std::string strMessage;
        switch (eClick) {
        case SelectComputed:
            ClickLine(COMPUTED, nLine, false);
            break;
        case SelectDisplayed:
            ClickLine(DISPLAYED, nLine, false);
            break;
        case Add:
            strMessage = m_model.Add(m_dialog.m_listComputed.GetCurSel());
            Press(ADD);
            break;
        case Remove:
            m_model.Remove(m_dialog.m_listDisplayed.GetCurSel());
            Press(REMOVE);
            break;
        case Clear:
            m_model.Clear();
            Press(CLEAR);
            break;
        case AddTwice:
            strMessage = m_model.Add(LineOf(COMPUTED, nLine));
            ClickLine(COMPUTED, nLine, true);
            break;
        case RemoveTwice: {
            const int nRemoved = LineOf(DISPLAYED, nLine);
            ClickLine(DISPLAYED, nLine, true);
            m_model.Remove(nRemoved);
            break;
        }
        case Ok:
            m_bClosed = m_model.MayClose();
            Press(IDOK);
            break;
        }
        EXPECT_EQ(m_run.m_messages,
                  strMessage.empty() ? std::vector<std::string>{} : std::vector<std::string>{strMessage});
        Compare();
    }

    static int LineOf(UINT nList, int nLine) {
        const int nLines = CHands::ListOf(CHOOSE, nList).model()->rowCount();
        return nLines == 0 ? -1 : nLine % nLines;
    }
    static void Press(UINT nButton) { QTest::mouseClick(&ControlOf(CHOOSE, nButton), Qt::LeftButton); }
    static void ClickLine(UINT nList, int nLine, bool bTwice) {
        QAbstractItemView& list = CHands::ListOf(CHOOSE, nList);
        const QModelIndex line = list.model()->index(LineOf(nList, nLine), 0);
        if (line.isValid()) {
            list.scrollTo(line);
            const QPoint point = list.visualRect(line).center();
            bTwice ? QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, point)
                   : QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, point);
        }
    }

    void Compare() {
        EXPECT_EQ(Texts(m_dialog.m_displayedNames), m_model.displayedNames);
        const CDWordArray& indices = m_dialog.m_displayedIndices;
        EXPECT_EQ(std::vector<std::uint32_t>(indices.GetData(), indices.GetData() + indices.GetSize()),
                  m_model.displayedIndices);
        if (DialogOf(CHOOSE)) {
            EXPECT_EQ(CHands::Lines(CHOOSE, DISPLAYED), m_model.displayedNames);
        }
    }

    CChooseCurvesDialog m_dialog;
    CChooseCurvesClicks m_clicks;
    CChooseCurvesModel m_model;
    CDialogRun m_run;
    bool m_bClosed = false;
};

TEST(ChooseCurvesModel, HasTheSameListsUnderRandomClicks) {
    const int nPrograms = TrialCount("TESSARA_CLICK_PROGRAMS", 100);
    for (int i = 0; i < nPrograms && !HasFailure(); ++i) {
        SCOPED_TRACE(testing::Message() << "program " << i);
        CChoice(static_cast<unsigned>(i)).Run();
    }
}

TEST(ChooseCurvesModel, SplitsTheSameTextsOfAResource) {
    static constexpr UINT FIRST = 5000;
    static std::vector<std::string> s_texts; // the resources are there to the program's end
    static std::vector<CStringResource> s_resources;
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        std::string& strText = s_texts.emplace_back();
        for (auto n = random() % 20; n > 0; --n) {
            strText += "\n\nab"[random() % 4];
        }
    }
    for (const std::string& strText : s_texts) {
        s_resources.push_back({FIRST + static_cast<UINT>(s_resources.size()), strText.c_str()});
    }
    AddStringResources(s_resources);
    for (const CStringResource& resource : s_resources) {
        CChooseCurvesDialog dialog;
        dialog.LoadResourceString(resource.nID);
        const CString* const texts[] = {&dialog.m_strTitle,          &dialog.m_strComputedLabel,
                                        &dialog.m_strDisplayedLabel, &dialog.m_strAddButton,
                                        &dialog.m_strRemoveButton,   &dialog.m_strClearButton,
                                        &dialog.m_strHintAdd,        &dialog.m_strHintRemove};
        const auto expected = CChooseCurvesModel::SplitTexts(resource.pszText);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(texts[i]->View(), expected[i])
                << i << " of " << testing::PrintToString(resource.pszText);
        }
    }
}

} // namespace

} // namespace tessara
