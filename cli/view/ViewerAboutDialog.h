#pragma once

#include <string>

#include "tessara/platform/ui/dialogs/Dialog.h"

namespace tessara {

/// Tells which program this is.
class CViewerAboutDialog : public CDialog {
public:
    CViewerAboutDialog(CWnd* pOwner, const std::string& strVersion);

protected:
    BOOL OnInitDialog() override;

private:
    std::string m_strVersion;
};

} // namespace tessara
