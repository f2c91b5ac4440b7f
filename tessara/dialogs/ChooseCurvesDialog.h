#pragma once

#include "tessara/platform/base/DWordArray.h"
#include "tessara/platform/base/StringArray.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

/// Picks a few of the elements that a calculation has produced, in the order in which they shall be shown.
///
/// The list of computed elements is sorted, and m_displayedIndices refers to that order: alphabetical
/// whatever the case of the letters, the same in every locale. The choice holds also after Cancel. Elements
/// that are displayed from the start and have no index get theirs when the dialog opens, 0xFFFFFFFF where
/// they are not among the computed ones.
///
///     CChooseCurvesDialog dialog(this);
///     dialog.m_computedNames.Add("S11");
///     if (dialog.DoModal() == IDOK) Show(dialog.m_displayedNames);
class TESSARA_API CChooseCurvesDialog : public CDialog {
    DECLARE_DYNAMIC(CChooseCurvesDialog)

public:
    static constexpr UINT TEMPLATE = 16422;

    explicit CChooseCurvesDialog(CWnd* pParent = nullptr);

    CListBox m_listDisplayed;
    CListBox m_listComputed;
    int m_nMaxDisplayed = 3;        ///< how many elements can be displayed
    CDWordArray m_displayedIndices; ///< of each displayed element, in the sorted list of computed ones
    CStringArray m_computedNames;
    CStringArray m_displayedNames; ///< in their order

    // The dialog's texts; the template's where they are empty.
    CString m_strTitle;
    CString m_strComputedLabel;
    CString m_strDisplayedLabel;
    CString m_strAddButton;
    CString m_strRemoveButton;
    CString m_strClearButton;
    CString m_strHintAdd;
    CString m_strHintRemove;

    /// Takes all these texts, in this order, from a string resource with line feeds between them. What lacks
    /// its line feed is empty, and its text is left to the following ones; the last takes all that remains.
    /// Does nothing without such a resource.
    void LoadResourceString(UINT nID);
    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnAddToList();
    void OnRemove();
    void OnClearList();
    void OnDblclkComputedList();
    void OnDblclkDisplayedList();
    DECLARE_MESSAGE_MAP()

private:
    void SetTexts();
    void FillLists();
    DWORD ComputedIndexOf(const CString& strName) const;
    bool IsDisplayed(const CString& strName) const;
    void TellFull();
};
