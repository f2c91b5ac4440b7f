#include "tessara/phasediagram/CrossSectionDialog.h"

#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"

namespace tessara {

void CCrossSectionDialog::OnOK() {
    const CListBox* const pList = GetList();
    const int nLine = pList ? pList->GetCurSel() : LB_ERR;
    if (nLine == LB_ERR) {
        AfxMessageBox("You first have to select a parameter from the list.");
        return;
    }
    if (!m_pOwner || !m_pOwner->RequestCrossSection(nLine == 0)) {
        AfxMessageBox("You have not selected a curve on the phase diagram. Please try again.");
        return;
    }
    m_pOwner->HideMark();
    EndDialog(IDOK);
}

} // namespace tessara
