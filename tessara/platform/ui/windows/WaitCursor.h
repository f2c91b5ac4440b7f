#pragma once

#include "tessara/platform/base/Api.h"

/// Shows the system's wait cursor over the program's windows while it lives. Does nothing in a program
/// without windows. Main thread.
class TESSARA_API CWaitCursor {
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

private:
    bool m_bShown;
};
