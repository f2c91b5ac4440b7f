#include "tessara/document/SaveVariantDialog.h"

#include <algorithm>
#include <limits>

#include "tessara/document/DialogControls.h"
#include "tessara/document/VariantHeader.h"
#include "tessara/document/VariantListDialog.h"
#include "tessara/platform/base/Text.h"
#include "tessara/platform/ui/controls/Edit.h"
#include "tessara/platform/ui/controls/ListBox.h"

using namespace tessara;

namespace {

constexpr const char* CAPTION = "Save Variant";
constexpr int MAX_TYPED_COMMENT = 1024;
constexpr std::size_t MAX_COMMENT = 1023;
constexpr int MAX_NUMBER = std::numeric_limits<short>::max();

} // namespace

CSaveVariantDialog::CSaveVariantDialog(CWnd* pParent, const CArchiveFolder& folder, const char* lpszBaseName)
    : CDialog(IDD_SAVE_VARIANT, pParent), m_folder(folder), m_strBaseName(lpszBaseName ? lpszBaseName : "") {}

CListBox& CSaveVariantDialog::List() const {
    return dynamic_cast<CListBox&>(*GetDlgItem(IDC_VARIANTS));
}

std::string CSaveVariantDialog::Text(UINT nID) const {
    CString strText;
    GetDlgItemText(static_cast<int>(nID), strText);
    return std::string(strText.View());
}

/// Numbers from 0 to the last that is taken, and one more. Two variants may have one number, and a damaged
/// file a negative one; each has a line.
std::vector<CSaveVariantDialog::CSlot> CSaveVariantDialog::ReadSlots() {
    std::vector<ARCHIVEENTRY> entries = m_folder.Anew().List();
    m_strNextTitle = NextTitle(entries);
    std::erase_if(entries, [this](const ARCHIVEENTRY& entry) { return entry.szBaseName != m_strBaseName; });
    std::vector<CSlot> slots;
    int nNext = 0;
    for (const ARCHIVEENTRY& entry : entries) {
        for (; nNext < entry.nVariantNumber; ++nNext) {
            slots.push_back({nNext, std::nullopt});
        }
        slots.push_back({entry.nVariantNumber, entry});
        nNext = std::max(nNext, entry.nVariantNumber + 1);
    }
    if (nNext <= MAX_NUMBER) {
        slots.push_back({nNext, std::nullopt});
    }
    return slots;
}

BOOL CSaveVariantDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    CenterWindow();
    dynamic_cast<CEdit&>(*GetDlgItem(IDC_VARIANT_NAME)).LimitText(CVariantHeader::MAX_VARIANT_NAME);
    dynamic_cast<CEdit&>(*GetDlgItem(IDC_COMMENT)).LimitText(MAX_TYPED_COMMENT);
    SetDlgItemText(IDC_BASE_NAME, m_strBaseName.c_str());
    m_slots = ReadSlots();
    Fill(static_cast<int>(m_slots.size()) - 1);
    return TRUE;
}

void CSaveVariantDialog::Fill(int nSelect) {
    CListBox& list = List();
    list.ResetContent();
    for (const CSlot& slot : m_slots) {
        const std::string strLine =
            slot.entry ? VariantLine(*slot.entry) : std::to_string(slot.nNumber + 1) + " --- empty ---";
        list.AddString(strLine.c_str());
    }
    list.SetCurSel(nSelect);
    OnSelection();
}

void CSaveVariantDialog::OnSelection() {
    const int nLine = List().GetCurSel();
    if (nLine < 0) {
        return;
    }
    const CSlot& slot = m_slots[static_cast<std::size_t>(nLine)];
    SetDlgItemText(IDC_VARIANT_NUMBER, ("Variant Number: " + std::to_string(slot.nNumber + 1)).c_str());
    SetDlgItemText(IDC_VARIANT_NAME, slot.entry ? slot.entry->szVariantName : "");
    const auto comment = slot.entry ? m_folder.ReadComment(slot.entry->szFileTitle) : "";
    if (comment) {
        SetDlgItemText(IDC_COMMENT, slot.entry && comment->empty() ? NO_COMMENT : comment->c_str());
    }
}

bool CSaveVariantDialog::Confirm(const char* pszQuestion) {
    return MessageBox(pszQuestion, CAPTION, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

/// Whether what the user sees in a slot is still there. Otherwise shows what is.
bool CSaveVariantDialog::IsUpToDate(const CSlot& slot) {
    std::vector<CSlot> now = ReadSlots();
    const auto found = std::find_if(now.begin(), now.end(), [&](const CSlot& other) {
        return other.nNumber == slot.nNumber && other.entry.has_value() == slot.entry.has_value() &&
               (!slot.entry || IsSameVariant(*other.entry, *slot.entry));
    });
    const bool bThere = found != now.end();
    if (!bThere) {
        MessageBox("Another program has changed this Base meanwhile.\nPlease look at the list again.",
                   CAPTION, MB_OK);
        m_slots = std::move(now);
        Fill(static_cast<int>(m_slots.size()) - 1);
    }
    return bThere;
}

void CSaveVariantDialog::OnOK() {
    const int nLine = List().GetCurSel();
    const std::string strName = Text(IDC_VARIANT_NAME);
    if (strName.empty()) {
        MessageBox("You have to specify variant name first!", CAPTION, MB_OK);
        return;
    }
    std::string strComment = Text(IDC_COMMENT);
    if (nLine < 0 || (strComment.empty() &&
                      !Confirm("Are you sure you do not want to specify the comments for this variant ?"))) {
        return;
    }
    const CSlot slot = m_slots[static_cast<std::size_t>(nLine)];
    if (slot.entry && !Confirm("Warning! Variant already exists! Overwrite?")) {
        return;
    }
    if (!IsUpToDate(slot)) {
        return;
    }
    m_strVariantName = CutText(strName, CVariantHeader::MAX_VARIANT_NAME);
    m_strComment = strComment == NO_COMMENT ? std::string() : std::string(CutText(strComment, MAX_COMMENT));
    m_nVariantNumber = slot.nNumber;
    m_replacedTitle = slot.entry ? std::optional<std::string>(slot.entry->szFileTitle) : std::nullopt;
    EndDialog(IDOK);
}

BEGIN_MESSAGE_MAP(CSaveVariantDialog, CDialog)
ON_LBN_SELCHANGE(IDC_VARIANTS, OnSelection)
END_MESSAGE_MAP()
