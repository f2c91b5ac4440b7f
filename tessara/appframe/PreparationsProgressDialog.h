#pragma once

#include "tessara/appframe/ProgressDialog.h"

/// "Preparations": says that the program prepares a calculation, which cannot be aborted.
class TESSARA_API CPreparationsProgressDialog : public tessara::CProgressDialog {
    DECLARE_DYNAMIC(CPreparationsProgressDialog)

public:
    BOOL Open(HWND hParent) override;
};
