#include <QAbstractItemView>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "cli/view/ScaleDialog.h"
#include "cli/view/ViewerKeysDialog.h"
#include "tests/cli/ViewerFixture.h"

using namespace tessara;

namespace {

constexpr UINT X = CScaleDialog::IDC_X_AUTOMATIC;
constexpr UINT Y = CScaleDialog::IDC_Y_AUTOMATIC;

class ViewerDialog : public CViewerFixture {
protected:
    static QString Text(QWidget& dialog, UINT nField) { return ChildOf<QLineEdit>(dialog, nField).text(); }
    static void Enter(QWidget& dialog, UINT nFirst, const QStringList& texts) {
        for (const QString& strText : texts) {
            auto& edit = ChildOf<QLineEdit>(dialog, ++nFirst);
            edit.selectAll();
            QTest::keyClick(&edit, Qt::Key_Delete);
            QTest::keyClicks(&edit, strText);
        }
    }
    static QString Press(QWidget& dialog, UINT nButton) {
        QTest::mouseClick(&ChildOf<QPushButton>(dialog, nButton), Qt::LeftButton);
        return ChildOf<QLabel>(dialog, CScaleDialog::IDC_PROBLEM).text();
    }
};

TEST_F(ViewerDialog, CustomScaleShowsAutomaticScalesGreyedAndTakesGoodEntries) {
    WhenModal([](QWidget& dialog) {
        auto& automatic = ChildOf<QCheckBox>(dialog, X);
        EXPECT_TRUE(automatic.isChecked());
        EXPECT_FALSE(ChildOf<QLineEdit>(dialog, X + 1).isEnabled());
        EXPECT_EQ((Text(dialog, X + 1) + " " + Text(dialog, X + 2) + " " + Text(dialog, X + 3)).toStdString(),
                  "0 10 2");
        QTest::mouseClick(&automatic, Qt::LeftButton, {}, QPoint(5, automatic.height() / 2));
        EXPECT_TRUE(ChildOf<QLineEdit>(dialog, X + 1).isEnabled());
        EXPECT_FALSE(ChildOf<QLineEdit>(dialog, Y + 1).isEnabled());
        Enter(dialog, X, {"-0.5", "1e1", "0.25", "-2"});
        Press(dialog, IDOK);
    });
    Key(Qt::Key_K, Qt::ControlModifier);
    const CAxisScales scales = Plot().GetScales();
    ASSERT_TRUE(scales.x && !scales.y);
    EXPECT_EQ(scales.x->dFrom, -0.5);
    EXPECT_EQ(scales.x->dTo, 10);
    EXPECT_EQ(scales.x->dStep, 0.25);
    EXPECT_EQ(scales.x->nExponent, -2);
}

TEST_F(ViewerDialog, CustomScaleSaysWhatIsWrongAndStaysOpen) {
    Plot().SetScales({AXISSCALE{0, 1.0 / 3, 0.1, 0}, AXISSCALE{0, 50, 10, 0}});
    const std::pair<QStringList, const char*> tries[] = {
        {{"", "1", "1", "0"}, "Horizontal axis: From is empty"},
        {{"0", "abc", "1", "0"}, "Horizontal axis: To: \"abc\" is not a number"},
        {{"0", "inf", "1", "0"}, "Horizontal axis: To: \"inf\" is not a number"},
        {{"2", "1", "1", "0"}, "Horizontal axis: From must be below To"},
        {{"0", "1", "0", "0"}, "Horizontal axis: Step must be above 0"},
        {{"0", "1", "0.001", "0"}, "Horizontal axis: more than 200 steps"},
        {{"0", "1", "1", "1.5"}, "Horizontal axis: Exponent must be a whole number from -8 to 8"},
        {{"11", "12", "1", "0"}, "nothing lies within the scales"}};
    WhenModal([&](QWidget& dialog) {
        EXPECT_EQ(Text(dialog, X + 2).toDouble(), 1.0 / 3);
        for (const auto& [texts, pszProblem] : tries) {
            Enter(dialog, X, texts);
            EXPECT_EQ(Press(dialog, IDOK), pszProblem);
            EXPECT_TRUE(dialog.isVisible());
        }
        Press(dialog, IDCANCEL);
    });
    Key(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(Plot().GetScales().x->dTo, 1.0 / 3);
}

TEST_F(ViewerDialog, ScalesThatEndAZoomAreAnEntryOfItsHistory) {
    Wheel({300, 200}, 120);
    const CZoomState zoom = Plot().GetZoom();
    WhenModal([](QWidget& dialog) { Press(dialog, IDOK); });
    Key(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(Plot().GetZoom(), std::nullopt);
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Plot().GetZoom(), zoom);
}

TEST_F(ViewerDialog, KeysListsEveryKeyWithAMeaning) {
    int nRows = 0;
    WhenModal([&](QWidget& dialog) {
        const QAbstractItemModel& model =
            *ChildOf<QAbstractItemView>(dialog, CViewerKeysDialog::IDC_KEYS).model();
        nRows = model.rowCount();
        for (int i = 0; i < nRows; ++i) {
            EXPECT_FALSE(model.index(i, 0).data().toString().isEmpty());
            EXPECT_FALSE(model.index(i, 1).data().toString().isEmpty())
                << model.index(i, 0).data().toString().toStdString();
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    Key(Qt::Key_F1);
    EXPECT_GT(nRows, static_cast<int>(FindAcceleratorResource(IDR_VIEWER)->accelerators.size()));
}

TEST_F(ViewerDialog, AboutTellsTheVersion) {
    QStringList texts;
    WhenModal([&](QWidget& dialog) {
        const auto labels = dialog.findChildren<QLabel*>();
        for (const QLabel* const pLabel : labels) {
            texts << pLabel->text();
        }
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    Key(Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_TRUE(texts.contains("tessara 1.2.3"));
}

} // namespace
