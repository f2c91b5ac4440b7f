#pragma once

#include "tessara/platform/ui/dialogs/Dialog.h"

/// Asks the user of a program that has just started what to begin with.
///
///     CWelcomeDialog dialog(AfxGetMainWnd());
///     if (dialog.DoModal(CWelcomeDialog::hasVariants) == IDOK) ... dialog.m_nAction ...
class TESSARA_API CWelcomeDialog : public CDialog {
    DECLARE_DYNAMIC(CWelcomeDialog)

public:
    explicit CWelcomeDialog(CWnd* pParent);

    enum EOption : unsigned short {
        hasVariants = 1, ///< the archive is not empty
        hasLast = 2      ///< and it is known which variant was the last
    };
    enum EAction : int { createNew = 0, loadLast = 1, loadExisting = 2 };

    int m_nAction = 0;             ///< an EAction
    int m_bDontShow = 0;           ///< the user does not want to be asked again, also after a cancel
    unsigned short m_wOptions = 0; ///< EOptions

    using CDialog::DoModal;
    virtual int DoModal(unsigned short wOptions);

protected:
    BOOL OnInitDialog() override;
    void OnCancel() override;
    void DoDataExchange(CDataExchange* pDX) override;
};
