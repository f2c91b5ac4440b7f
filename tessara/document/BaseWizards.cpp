#include "tessara/document/ArchiveFolder.h"
#include "tessara/document/BaseFile.h"
#include "tessara/document/BaseListDialog.h"
#include "tessara/document/DialogControls.h"
#include "tessara/document/PendingVariant.h"
#include "tessara/document/SaveVariantDialog.h"
#include "tessara/document/VariantListDialog.h"
#include "tessara/platform/base/Text.h"

// The wizards of an archive: dialogs that lead to each other.

using tessara::CArchiveFolder;
using tessara::CPendingVariant;
using tessara::CVariantHeader;

namespace {

/// Runs two dialogs: OK leads on, anything else back, and Cancel or the OK of the second ends it. prepare
/// brings what was chosen in the first to the second. Returns the last answer.
template <class PREPARE>
int RunWizard(CDialog& first, CDialog& second, PREPARE prepare) {
    for (;;) {
        int nAnswer = static_cast<int>(first.DoModal());
        if (nAnswer != IDOK) {
            return nAnswer;
        }
        prepare();
        nAnswer = static_cast<int>(second.DoModal());
        if (nAnswer != tessara::IDPREVIOUS) {
            return nAnswer;
        }
    }
}

/// The name that a Base's files have: what is too long for them has been cut.
std::string StoredName(const char* pszBaseName) {
    return std::string(tessara::CutText(pszBaseName ? pszBaseName : "", CVariantHeader::MAX_BASE_NAME));
}

} // namespace

int CBaseFile::GetBase(CWnd* pParent, int nMode) {
    constexpr int LOADING = 1;
    constexpr int SAVING = 2;
    switch (nMode) {
    case LOADING:
        return GetBaseLoad(pParent);
    case SAVING:
        return GetBaseSave(pParent);
    default:
        return FALSE;
    }
}

int CBaseFile::GetBaseLoad(CWnd* pParent) {
    const CArchiveFolder folder(m_pszArchiveDirectory, m_pszExtension);
    CSelectBaseDialog bases(pParent, folder.List(), StoredName(m_pszBaseName).c_str());
    CLoadVariantDialog variants(pParent, m_pszArchiveDirectory, m_pszExtension);
    if (RunWizard(bases, variants, [&] { variants.SetVariants(bases.GetChosenVariants()); }) != IDOK) {
        return FALSE;
    }
    m_pPending.reset();
    SetFilePath(variants.GetChosenPath().c_str());
    m_nVariantNumber = variants.GetChosen().nVariantNumber;
    return TRUE;
}

int CBaseFile::GetBaseSave(CWnd* pParent) {
    const CArchiveFolder folder(m_pszArchiveDirectory, m_pszExtension);
    CVariantHeader header;
    header.strBaseName = StoredName(m_pszBaseName);
    CSaveVariantDialog dialog(pParent, folder, header.strBaseName.c_str());
    if (dialog.DoModal() != IDOK) {
        return FALSE;
    }
    header.strBaseTag = m_pszBaseTag ? m_pszBaseTag : "";
    header.strVariantName = dialog.GetVariantName();
    header.nVariantNumber = dialog.GetVariantNumber();
    const auto& replaced = dialog.GetReplacedTitle();
    const auto eKind = replaced ? CPendingVariant::EKind::replacing : CPendingVariant::EKind::creating;
    m_pPending = std::make_unique<CPendingVariant>(eKind, folder, replaced.value_or(dialog.GetNextTitle()),
                                                   header, dialog.GetComment());
    m_nVariantNumber = header.nVariantNumber;
    return TRUE;
}

int CBaseFile::DeleteBase(CWnd* pParent, int nCurrentNumber) {
    const CArchiveFolder folder(m_pszArchiveDirectory, m_pszExtension);
    const std::string strOwn = StoredName(m_pszBaseName);
    CDeleteBaseDialog bases(pParent, folder.List(), m_pszArchiveDirectory, m_pszExtension, strOwn.c_str());
    CDeleteVariantDialog variants(pParent, m_pszArchiveDirectory, m_pszExtension, strOwn.c_str(),
                                  nCurrentNumber);
    const int nAnswer = RunWizard(bases, variants, [&] { variants.SetVariants(bases.GetChosenVariants()); });
    if (nAnswer == IDOK) {
        folder.Anew().Remove(variants.GetChosen());
    }
    return bases.IsOwnDeleted() || (nAnswer == IDOK && variants.IsOwn());
}
