#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tessara/document/ArchiveFolder.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

class CListBox;

/// Asks for the place of a variant in its Base, its name and its comment. It lists the Base itself, and anew
/// when another program has changed it.
class CSaveVariantDialog : public CDialog {
public:
    CSaveVariantDialog(CWnd* pParent, const tessara::CArchiveFolder& folder, const char* lpszBaseName);

    // REQUIRES: DoModal returned IDOK

    int GetVariantNumber() const { return m_nVariantNumber; } ///< from 0
    /// The title of the file whose variant is to be replaced; nothing for a new one.
    const std::optional<std::string>& GetReplacedTitle() const { return m_replacedTitle; }
    /// The title that a new file would have.
    const std::string& GetNextTitle() const { return m_strNextTitle; }
    const std::string& GetVariantName() const { return m_strVariantName; }
    const std::string& GetComment() const { return m_strComment; }

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnSelection();
    DECLARE_MESSAGE_MAP()

private:
    /// A line of the list: a number, and the variant that has it, if any.
    struct CSlot {
        int nNumber;
        std::optional<ARCHIVEENTRY> entry;
    };

    CListBox& List() const;
    std::vector<CSlot> ReadSlots();
    void Fill(int nSelect);
    bool IsUpToDate(const CSlot& slot);
    bool Confirm(const char* pszQuestion);
    std::string Text(UINT nID) const;

    const tessara::CArchiveFolder& m_folder;
    std::string m_strBaseName;
    std::vector<CSlot> m_slots;
    int m_nVariantNumber = -1;
    std::optional<std::string> m_replacedTitle;
    std::string m_strNextTitle;
    std::string m_strVariantName;
    std::string m_strComment;
};
