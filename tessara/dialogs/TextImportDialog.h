#pragma once

#include "tessara/numeric/MultiCurve.h"
#include "tessara/platform/base/StringArray.h"
#include "tessara/platform/ui/controls/ListCtrl.h"
#include "tessara/platform/ui/dialogs/Dialog.h"
#include "tessara/platform/ui/threads/Messages.h"

/// Imports a curve from a text file: shows the file's lines split into columns by a delimiter that the user
/// chooses, and makes a multi-curve of them on OK. Field 0 of a line is the abscissa, the further fields are
/// the columns.
///
/// Every field that is imported must be a number as strtod reads it, whatever the locale; what a short line
/// lacks is 0, and lines without text are no points. A refused file is told, the first line that is no number
/// is selected, and the dialog stays. The whole file is read when the dialog opens (see the limits in
/// TextLines.h), its lines are split when they come into view.
///
///     CTextImportDialog dialog(this);
///     dialog.m_strFileName = "interaction.txt";
///     dialog.m_strOpenError = "The file cannot be opened.";
///     if (dialog.DoModal() == IDOK) Take(dialog.m_curve);
class TESSARA_API CTextImportDialog : public CDialog {
    DECLARE_DYNAMIC(CTextImportDialog)

public:
    static constexpr UINT TEMPLATE = 16423;

    explicit CTextImportDialog(CWnd* pParent = nullptr);

    CListCtrl m_list;       ///< the preview
    CString m_strFileName;  ///< the file to import
    CMultiCurve m_curve;    ///< the result of OK
    CString m_strTitle;     ///< the caption, unless empty
    CString m_strPrompt;    ///< the text of control 1022, where a template has one, unless empty
    CString m_strOpenError; ///< shown when the file cannot be opened; a text of the library's when empty
    int m_nColumns = 2;     ///< how many columns to import, with the abscissa
    char m_cDelimiter = '\t';
    CStringArray m_lines; ///< the file's lines, without their ends

    BOOL OnInitDialog() override;
    void OnSeparatorSemicolon();
    void OnSeparatorComma();
    void OnSeparatorSpace();
    void OnSeparatorTab();

protected:
    /// Whether a curve meets the conditions of the application. DEFAULT: 100 points or more, ordinates above
    /// 0 and at most 5, and within each column no step longer than a hundredth of the column's range.
    virtual int IsCurveValid(CMultiCurve& curve);

    void OnOK() override;
    void DoDataExchange(CDataExchange* pDX) override;
    /// Shows the lines by the delimiter.
    void DisplayReadData();
    /// The largest number of fields in a line, at least 1.
    int GetMaxNumOfLineEntries();
    /// Sets the radio button of a delimiter and gives it the keyboard; does nothing for other characters.
    void CheckDelimiterButton(char cDelimiter);
    void OnGetDisplayInfo(NMHDR* pNotice, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

private:
    void ReadFile();
    void InsertColumns();
    void SetDelimiter(char cDelimiter);
    CString CellText(int nLine, int nColumn) const;
    void SelectLine(int nLine);
};
