#pragma once

#include "tessara/dialogs/MonomerAbbreviation.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

/// Asks for a monomer's name and abbreviation, neither of which may be empty.
class CAddAbbreviationDialog : public CDialog {
    DECLARE_DYNAMIC(CAddAbbreviationDialog)

public:
    static constexpr UINT TEMPLATE = 16454;

    CAddAbbreviationDialog(CWnd* pParent, CMonomerAbbreviation abbreviation);

    CMonomerAbbreviation m_abbreviation; ///< what the fields start with, and what OK found in them

    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    void DoDataExchange(CDataExchange* pDX) override;
};
