#pragma once

#include "tessara/platform/ui/controls/ListCtrl.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

namespace tessara {

/// Lists the viewer's keys, as its accelerators and its texts have them, and what the mouse does.
class CViewerKeysDialog : public CDialog {
public:
    static constexpr UINT IDC_KEYS = 1001;

    explicit CViewerKeysDialog(CWnd* pOwner);

protected:
    BOOL OnInitDialog() override;

private:
    void Add(const char* pszKey, const char* pszMeaning);
    void AddKeys();
    void AddMouse();

    CListCtrl m_list;
};

} // namespace tessara
