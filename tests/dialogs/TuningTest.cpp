#include "tessara/dialogs/TuningParametersDialog.h"

#include <gmock/gmock.h>

#include <QSlider>
#include <QStyleOptionViewItem>

#include "tests/document/Hands.h"

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

} // namespace

} // namespace tessara
