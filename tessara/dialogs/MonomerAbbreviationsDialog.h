#pragma once

#include "tessara/dialogs/MonomerAbbreviation.h"
#include "tessara/platform/base/Array.h"
#include "tessara/platform/ui/controls/ListCtrl.h"
#include "tessara/platform/ui/dialogs/Dialog.h"
#include "tessara/platform/ui/threads/Messages.h"

/// Edits the user's table of monomer names and their abbreviations, which is kept in the profile file
/// "Monomers.ini" beside the program's executable; in the user's data folder where that one cannot be
/// written. The table is read when the dialog opens and written on OK; the dialog stays when it cannot be.
///
/// Names are compared byte by byte. Entries of equal keys are in the order in which an exchange sort leaves
/// them, so that tables sort as they ever did.
class TESSARA_API CMonomerAbbreviationsDialog : public CDialog {
    DECLARE_DYNAMIC(CMonomerAbbreviationsDialog)

public:
    static constexpr UINT TEMPLATE = 16453;

    explicit CMonomerAbbreviationsDialog(CWnd* pParent = nullptr);

    CListCtrl m_list;
    int m_bSortByName = 0; ///< nonzero sorts by full name, zero by abbreviation
    CArray<CMonomerAbbreviation> m_abbreviations;

    void AddAbbreviation(const char* lpszShortName, const char* lpszFullName);
    /// Sorts by m_bSortByName and shows the table anew, with nothing selected.
    void DisplayAbbreviations();
    void SortAbbreviations(int bByName);
    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnAdd();
    void OnEdit();
    void OnDelete();
    void OnDblclkAbbreviations(NMHDR* pNotice, LRESULT* pResult);
    void OnColumnclickAbbreviations(NMHDR* pNotice, LRESULT* pResult);
    void OnGetDisplayInfo(NMHDR* pNotice, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

private:
    void InsertColumns();
    void ReadTable();
    const CString& CellText(int nEntry, int nColumn) const;
    /// The selected entry, or tells the user to select one and gives -1.
    int AskForSelected();
    void DisplayWith(const CMonomerAbbreviation& abbreviation);
};
