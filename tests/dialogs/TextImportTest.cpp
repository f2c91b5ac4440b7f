#include "tessara/dialogs/TextImportDialog.h"

#include <gmock/gmock.h>

#include <QRadioButton>

#include "tests/cli/Folder.h"
#include "tests/document/Hands.h"

namespace tessara {

namespace {

using ::testing::ElementsAre;

constexpr UINT TEXT_IMPORT = CTextImportDialog::TEMPLATE;
constexpr UINT PREVIEW = 1012;
constexpr UINT SEMICOLON = 1013;
constexpr UINT COMMA = 1014;
constexpr UINT TAB = 1015;
constexpr const char* NOT_NUMERIC =
    "The file contains non-numeric text data. Please specify another file and try again.";
constexpr const char* NOT_VALID = "The curve does not satisfy the conditions stated in the manual.\n"
                                  "Please read the manual and/or specify another file.";

/// A dialog that takes every curve, and lets tests into what derived ones may use.
class CAnyTextImport : public CTextImportDialog {
public:
    using CTextImportDialog::CheckDelimiterButton;
    using CTextImportDialog::GetMaxNumOfLineEntries;

protected:
    int IsCurveValid(CMultiCurve&) override { return 1; }
};

class TextImport : public ::testing::Test {
protected:
    static std::vector<std::string> Row(int nRow) {
        std::vector<std::string> texts;
        const QAbstractItemModel& model = *CHands::ListOf(TEXT_IMPORT, PREVIEW).model();
        for (int i = 0; i < model.columnCount(); ++i) {
            texts.push_back(model.index(nRow, i).data().toString().toStdString());
        }
        return texts;
    }
    static bool IsSet(UINT nButton) {
        const auto& button = dynamic_cast<QRadioButton&>(ControlOf(TEXT_IMPORT, nButton));
        return button.isChecked() && DialogOf(TEXT_IMPORT)->focusWidget() == &button;
    }
    /// 150 lines with y from 0.01 to 1.5.
    static std::string Lines() {
        std::string strLines;
        for (int i = 1; i <= 150; ++i) {
            strLines += std::to_string(i) + "\t" + std::to_string(i * 0.01) + "\n";
        }
        return strLines;
    }

    const CFolder m_folder;
};

TEST_F(TextImport, MakesACurveOfAFile) {
    CTextImportDialog dialog;
    dialog.m_strFileName = m_folder.Write("even.txt", Lines() + "\n \t\n").c_str();
    dialog.m_strTitle = "Interaction";
    {
        CHands hands;
        hands
            .Look(TEXT_IMPORT,
                  [] {
                      EXPECT_EQ(DialogOf(TEXT_IMPORT)->windowTitle().toStdString(), "Interaction");
                      EXPECT_TRUE(IsSet(TAB));
                      const QAbstractItemModel& model = *CHands::ListOf(TEXT_IMPORT, PREVIEW).model();
                      EXPECT_EQ(model.rowCount(), 152);
                      EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString().toStdString(), "Line #");
                      EXPECT_EQ(model.headerData(2, Qt::Horizontal).toString().toStdString(), "1");
                      EXPECT_THAT(Row(7), ElementsAre("007", "8", "0.080000"));
                  })
            .Press(TEXT_IMPORT, COMMA)
            .Look(TEXT_IMPORT, [] { EXPECT_THAT(Row(7), ElementsAre("007", "8\t0.080000", "")); })
            .Press(TEXT_IMPORT, IDOK)
            .Answer(nullptr, NOT_NUMERIC, QMessageBox::Ok)
            .Look(TEXT_IMPORT, [] { EXPECT_EQ(CHands::Selected(TEXT_IMPORT, PREVIEW), 0); })
            .Press(TEXT_IMPORT, TAB)
            .Press(TEXT_IMPORT, IDOK);
        EXPECT_EQ(dialog.DoModal(), IDOK);
    }
    ASSERT_EQ(dialog.m_curve.m_nPoints, 150);
    ASSERT_EQ(dialog.m_curve.m_nDimensions, 1);
    EXPECT_EQ(dialog.m_curve.m_pX[149], 150);
    EXPECT_EQ(dialog.m_curve.m_ppY[0][149], 1.5);
    EXPECT_EQ(dialog.m_lines.GetSize(), 152);
}

TEST_F(TextImport, TellsWhatItRefuses) {
    const struct {
        std::string strBytes;
        const char* pszMessage;
    } cases[] = {
        {Lines() + "151\t0\n", NOT_VALID},
        {Lines() + "151\t1.5abc\n", NOT_NUMERIC},
        {Lines() + "x151\t1.5\n", NOT_NUMERIC},
        {"", NOT_VALID},
    };
    for (const auto& [strBytes, pszMessage] : cases) {
        CTextImportDialog dialog;
        dialog.m_strFileName = m_folder.Write("refused.txt", strBytes).c_str();
        CHands hands;
        hands.Press(TEXT_IMPORT, IDOK)
            .Answer(nullptr, pszMessage, QMessageBox::Ok)
            .Look(TEXT_IMPORT,
                  [=] {
                      EXPECT_EQ(CHands::Selected(TEXT_IMPORT, PREVIEW), pszMessage == NOT_NUMERIC ? 150 : -1);
                  })
            .Press(TEXT_IMPORT, IDCANCEL);
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
}

TEST_F(TextImport, TellsOfAFileThatCannotBeRead) {
    const struct {
        std::string strFile;
        const char* pszOwn;
        const char* pszMessage;
    } cases[] = {
        {m_folder.Path("none"), "No such curve.", "No such curve."},
        {m_folder.Path("."), "", "The file cannot be opened."},
        {m_folder.Path("huge"), "No such curve.", "The file is too large to be imported."},
    };
    m_folder.Write("huge", "");
    ASSERT_EQ(truncate(m_folder.Path("huge").c_str(), std::int64_t{1} << 40), 0);
    for (const auto& [strFile, pszOwn, pszMessage] : cases) {
        CTextImportDialog dialog;
        dialog.m_strFileName = strFile.c_str();
        dialog.m_strOpenError = pszOwn;
        dialog.m_lines.Add("old");
        CHands hands;
        hands.Answer(nullptr, pszMessage, QMessageBox::Ok)
            .Look(TEXT_IMPORT, [] { EXPECT_THAT(CHands::Lines(TEXT_IMPORT, PREVIEW), ElementsAre()); })
            .Press(TEXT_IMPORT, IDOK)
            .Answer(nullptr, NOT_VALID, QMessageBox::Ok)
            .Press(TEXT_IMPORT, IDCANCEL);
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
}

TEST_F(TextImport, TakesColumnsAndDelimiterOfTheProgram) {
    CAnyTextImport dialog;
    dialog.m_strFileName = m_folder.Write("columns", "1;2;3;4\n5;6\n").c_str();
    dialog.m_nColumns = 3;
    dialog.m_cDelimiter = ';';
    {
        CHands hands;
        hands
            .Look(TEXT_IMPORT,
                  [&] {
                      EXPECT_TRUE(IsSet(SEMICOLON));
                      EXPECT_THAT(Row(0), ElementsAre("000", "1", "2", "3"));
                      EXPECT_THAT(Row(1), ElementsAre("001", "5", "6", ""));
                      EXPECT_EQ(dialog.GetMaxNumOfLineEntries(), 4);
                      EXPECT_EQ(dialog.m_list.GetItemText(1, 2), "6");
                      dialog.CheckDelimiterButton('|');
                      EXPECT_TRUE(IsSet(SEMICOLON));
                      EXPECT_TRUE(ControlOf(TEXT_IMPORT, 1020).isHidden());
                      EXPECT_TRUE(ControlOf(TEXT_IMPORT, 1021).isHidden());
                  })
            .Press(TEXT_IMPORT, IDOK);
        EXPECT_EQ(dialog.DoModal(), IDOK);
    }
    EXPECT_THAT(std::vector(dialog.m_curve.m_ppY[1], dialog.m_curve.m_ppY[1] + 2), ElementsAre(3, 0));
}

} // namespace

} // namespace tessara
