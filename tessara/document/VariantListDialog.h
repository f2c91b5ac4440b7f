#pragma once

#include <string>
#include <vector>

#include "tessara/document/ArchiveFolder.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

class CListBox;

namespace tessara {

/// What the comment's place says of a variant without one.
constexpr const char* NO_COMMENT = "No comments for this variant.";

/// "NUMBER NAME (TAG)", as lists show a variant.
std::string VariantLine(const ARCHIVEENTRY& entry);

} // namespace tessara

/// A list of the variants of one Base with the comment of the selected one: the second step of a wizard.
class CVariantListDialog : public CDialog {
public:
    CVariantListDialog(UINT nTemplate, const char* pszCaption, CWnd* pParent,
                       const char* lpszArchiveDirectory, const char* lpszExtension);

    /// Before DoModal: the variants of one Base, not empty.
    void SetVariants(std::vector<ARCHIVEENTRY> entries) { m_entries = std::move(entries); }
    /// REQUIRES: DoModal returned IDOK.
    const ARCHIVEENTRY& GetChosen() const { return m_entries[m_nChosen]; }
    /// The file of that variant.
    std::string GetChosenPath() const { return m_folder.PathOf(GetChosen().szFileTitle); }

protected:
    BOOL OnInitDialog() override;
    void OnPrevious();
    void OnSelection();
    /// Takes the selected variant. Without one it shows the text that tells so; and where the variant is no
    /// longer what the list says, it tells that and takes it from the list.
    bool TakeSelection(const char* pszSelectFirst);
    /// The same for what has been taken and may have changed since.
    bool IsStillThere();
    ARCHIVEENTRY& Chosen() { return m_entries[m_nChosen]; }
    const char* GetCaption() const { return m_pszCaption; }
    DECLARE_MESSAGE_MAP()

private:
    CListBox& List() const;

    const char* m_pszCaption;
    tessara::CArchiveFolder m_folder;
    std::vector<ARCHIVEENTRY> m_entries;
    std::size_t m_nChosen = 0;
};

/// Picks a variant to load.
class CLoadVariantDialog : public CVariantListDialog {
public:
    CLoadVariantDialog(CWnd* pParent, const char* lpszArchiveDirectory, const char* lpszExtension);

protected:
    void OnOK() override;
    DECLARE_MESSAGE_MAP()
};

/// Picks a variant to delete; the wizard deletes it.
class CDeleteVariantDialog : public CVariantListDialog {
public:
    CDeleteVariantDialog(CWnd* pParent, const char* lpszArchiveDirectory, const char* lpszExtension,
                         const char* lpszBaseName, int nCurrentNumber);

    /// Whether it is the document's own variant.
    bool IsOwn() const { return m_bOwn; }

protected:
    void OnDelete();
    DECLARE_MESSAGE_MAP()

private:
    std::string m_strOwnName;
    int m_nOwnNumber;
    bool m_bOwn = false;
};
