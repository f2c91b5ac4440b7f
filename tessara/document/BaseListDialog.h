#pragma once

#include <string>
#include <vector>

#include "tessara/document/ArchiveEntry.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

class CListBox;

/// A list of the Bases in an archive, of which the user picks one: the first step of a wizard.
class CBaseListDialog : public CDialog {
public:
    /// Entries as CArchiveFolder lists them. The Base of that name starts selected.
    CBaseListDialog(UINT nTemplate, const char* pszCaption, CWnd* pParent, std::vector<ARCHIVEENTRY> entries,
                    const char* lpszBaseName);

    /// The first variant of the Base that was chosen. REQUIRES: DoModal returned IDOK.
    const ARCHIVEENTRY& GetChosen() const { return m_entries[m_nChosen]; }
    /// All variants of that Base.
    std::vector<ARCHIVEENTRY> GetChosenVariants() const;

protected:
    BOOL OnInitDialog() override;
    void OnNext();
    /// Takes the selected Base, or tells the user to select one.
    bool TakeSelection();
    void Fill(std::vector<ARCHIVEENTRY> entries);
    DECLARE_MESSAGE_MAP()

private:
    CListBox& List() const;

    const char* m_pszCaption;
    std::vector<ARCHIVEENTRY> m_entries;
    std::string m_strSelected;
    std::size_t m_nChosen = 0;
};

/// Picks a Base to load a variant of.
class CSelectBaseDialog : public CBaseListDialog {
public:
    CSelectBaseDialog(CWnd* pParent, std::vector<ARCHIVEENTRY> entries, const char* lpszBaseName);
};

/// Picks a Base to delete, or to delete a variant of.
class CDeleteBaseDialog : public CBaseListDialog {
public:
    CDeleteBaseDialog(CWnd* pParent, std::vector<ARCHIVEENTRY> entries, const char* lpszArchiveDirectory,
                      const char* lpszExtension, const char* lpszBaseName);

    /// Whether the Base of the document was deleted.
    bool IsOwnDeleted() const { return m_bOwnDeleted; }

protected:
    void OnDelete();
    DECLARE_MESSAGE_MAP()

private:
    bool IsUpToDate(const std::vector<ARCHIVEENTRY>& now) const;
    void RemoveChosen();

    std::string m_strDirectory;
    std::string m_strExtension;
    std::string m_strOwnName;
    bool m_bOwnDeleted = false;
};
