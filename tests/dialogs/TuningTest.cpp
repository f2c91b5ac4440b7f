#include "tessara/dialogs/TuningParametersDialog.h"

#include <gmock/gmock.h>

#include <QSlider>
#include <random>

#include "tests/document/Hands.h"
#include "tests/files/SettingsFolder.h"

namespace tessara {

namespace {

using ::testing::ElementsAre;

constexpr UINT TUNING = CTuningParametersDialog::TEMPLATE;
constexpr UINT PARAMETERS = 1024;
constexpr UINT SLIDER = 1025;
constexpr UINT VALUE = 1027;

QSlider& Slider() {
    return dynamic_cast<QSlider&>(ControlOf(TUNING, SLIDER));
}

/// What stands at the slider, with whether it can be moved.
std::vector<std::string> Shown() {
    std::vector<std::string> texts;
    for (const UINT nID : {1027U, 1028U, 1029U}) {
        EXPECT_EQ(ControlOf(TUNING, nID).isVisible(), !TextOf(ControlOf(TUNING, nID)).empty());
        texts.push_back(TextOf(ControlOf(TUNING, nID)));
    }
    for (const UINT nID : {1026U, 1027U, 1028U, 1029U}) {
        EXPECT_EQ(ControlOf(TUNING, nID).isEnabled(), Slider().isEnabled());
    }
    texts.emplace_back(Slider().isEnabled() ? "on" : "off");
    return texts;
}

class Tuning : public ::testing::Test {
protected:
    void SetUp() override {
        m_dialog.AddTuningParameter(7, "Damping", 1, 30, 50);
        m_dialog.AddTuningParameter(9, "Step", 0, 80, 20);
        m_dialog.AddTuningParameter(7, "Twin", 1, 1, 2);
    }

    CTuningParametersDialog m_dialog;
};

TEST_F(Tuning, ShowsSwitchesMovesAndResets) {
    {
        CHands hands;
        hands
            .Look(TUNING,
                  [] {
                      EXPECT_THAT(CHands::Lines(TUNING, PARAMETERS), ElementsAre("Damping", "Step", "Twin"));
                      EXPECT_THAT(Shown(), ElementsAre("", "", "", "off"));
                      EXPECT_EQ(Slider().tickInterval(), 10);
                      EXPECT_EQ(Slider().maximum(), 100);
                      EXPECT_EQ(Slider().accessibleName().toStdString(), "Tuning parameter value: ");
                  })
            .Press(TUNING, 3) // Reset, of nothing
            .Select(TUNING, PARAMETERS, 0)
            .Look(TUNING,
                  [] {
                      EXPECT_THAT(Shown(), ElementsAre("30", "0", "100", "on"));
                      EXPECT_EQ(Slider().value(), 30);
                      QTest::keyClick(&Slider(), Qt::Key_Right);
                      EXPECT_THAT(Shown(), ElementsAre("31", "0", "100", "on"));
                      QTest::keyClick(&Slider(), Qt::Key_End);
                      EXPECT_THAT(Shown(), ElementsAre("100", "0", "100", "on"));
                  })
            .Select(TUNING, PARAMETERS, 1)
            .Look(TUNING,
                  [] {
                      EXPECT_THAT(Shown(), ElementsAre("80", "0", "100", "off"));
                      QTest::keyClick(&CHands::ListOf(TUNING, PARAMETERS), Qt::Key_Space);
                      EXPECT_THAT(Shown(), ElementsAre("80", "0", "100", "on"));
                  })
            .Press(TUNING, 3)
            .Look(TUNING, [] { EXPECT_THAT(Shown(), ElementsAre("20", "0", "100", "on")); })
            .Press(TUNING, IDCANCEL);
        EXPECT_EQ(m_dialog.DoModal(), IDCANCEL);
    }
    EXPECT_EQ(m_dialog.GetTuningParameterValue(7), 100);
    EXPECT_EQ(m_dialog.GetTuningParameterValue(9), 20);
    EXPECT_EQ(m_dialog.IsTuningParameterActive(9), 1);
    EXPECT_EQ(m_dialog.GetTuningParameterValue(8), -1);
    EXPECT_EQ(m_dialog.IsTuningParameterActive(8), 0);
}

TEST_F(Tuning, ResetsAll) {
    {
        CHands hands;
        hands.Select(TUNING, PARAMETERS, 2)
            .Press(TUNING, 4)
            .Look(TUNING, [] { EXPECT_THAT(Shown(), ElementsAre("2", "0", "100", "on")); })
            .Press(TUNING, IDOK);
        EXPECT_EQ(m_dialog.DoModal(), IDOK);
    }
    EXPECT_EQ(m_dialog.GetTuningParameterValue(7), 50);
    EXPECT_EQ(m_dialog.GetTuningParameterValue(9), 20);
    EXPECT_EQ(m_dialog.IsTuningParameterActive(9), 0);
}

/// What the dialog should hold, beside its user.
class CTuningClicks {
public:
    explicit CTuningClicks(CTuningParametersDialog& dialog) : m_dialog(dialog) {}

    void DoOne() {
        switch (m_random() % 4) {
        case 0:
            ClickLine(static_cast<int>(m_random() % 3), m_random() % 2);
            break;
        case 1:
            m_random() % 4 ? Reset(m_nSelected, m_nSelected + 1, 3) : Reset(0, 3, 4);
            break;
        case 2:
            if (m_nSelected >= 0) {
                QTest::keyClick(&CHands::ListOf(TUNING, PARAMETERS), Qt::Key_Space);
                m_values[m_nSelected].bActive ^= true;
            }
            break;
        default:
            Slide();
        }
        Check();
    }

private:
    struct PARAMETER {
        bool bActive;
        int nValue;
        int nDefault;
    };

    void ClickLine(int nLine, bool bBox) {
        auto& list = CHands::ListOf(TUNING, PARAMETERS);
        const QRect line = list.visualRect(list.model()->index(nLine, 0));
        constexpr int IN_BOX = 10;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          bBox ? QPoint(line.left() + IN_BOX, line.center().y()) : line.center());
        m_nSelected = nLine;
        m_values[nLine].bActive ^= bBox;
    }
    void Reset(int nFrom, int nTo, UINT nButton) {
        QTest::mouseClick(&ControlOf(TUNING, nButton), Qt::LeftButton);
        for (int i = std::max(nFrom, 0); i < nTo; ++i) {
            m_values[i].nValue = m_values[i].nDefault;
        }
    }
    void Slide() {
        static constexpr std::pair<Qt::Key, int> s_keys[] = {{Qt::Key_Right, 1},    {Qt::Key_Left, -1},
                                                             {Qt::Key_Home, -1000}, {Qt::Key_End, 1000},
                                                             {Qt::Key_PageUp, 20},  {Qt::Key_PageDown, -20}};
        const auto [eKey, nBy] = s_keys[m_random() % std::size(s_keys)];
        if (m_nSelected >= 0 && m_values[m_nSelected].bActive) {
            QTest::keyClick(&Slider(), eKey);
            int& nValue = m_values[m_nSelected].nValue;
            nValue = std::clamp(nValue + nBy, 0, 100);
        }
    }
    void Check() const {
        for (int i = 0; i < 3; ++i) {
            ASSERT_EQ(m_dialog.m_parameters[i].m_nValue, m_values[i].nValue) << i;
            ASSERT_EQ(m_dialog.m_parameters[i].m_bActive, m_values[i].bActive) << i;
            ASSERT_EQ(m_dialog.m_listParameters.GetCheck(i), m_values[i].bActive) << i;
        }
        if (m_nSelected >= 0) {
            const PARAMETER& selected = m_values[m_nSelected];
            ASSERT_THAT(Shown(), ElementsAre(std::to_string(selected.nValue), "0", "100",
                                             selected.bActive ? "on" : "off"));
            ASSERT_EQ(Slider().value(), selected.nValue);
        }
    }

    CTuningParametersDialog& m_dialog;
    PARAMETER m_values[3] = {{true, 30, 50}, {false, 80, 20}, {true, 1, 2}};
    int m_nSelected = -1;
    std::mt19937 m_random{9};
};

TEST_F(Tuning, FollowsAPlainModelThroughRandomClicks) {
    CHands hands;
    hands
        .Look(TUNING,
              [this] {
                  CTuningClicks clicks(m_dialog);
                  const unsigned nClicks = RoundsFrom("TESSARA_DIALOG_CLICKS", 400);
                  for (unsigned i = 0; i < nClicks && !HasFailure(); ++i) {
                      clicks.DoOne();
                  }
              })
        .Press(TUNING, IDCANCEL);
    m_dialog.DoModal();
}

} // namespace

} // namespace tessara
