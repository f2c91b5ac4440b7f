#include "tessara/appframe/PreparationsProgressDialog.h"

#include "tessara/appframe/FrameControls.h"

IMPLEMENT_DYNAMIC(CPreparationsProgressDialog, CDialog)

BOOL CPreparationsProgressDialog::Open(HWND hParent) {
    return CreateOwnedBy(tessara::IDD_PREPARATIONS, hParent);
}
