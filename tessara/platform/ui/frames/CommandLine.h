#pragma once

#include "tessara/platform/base/String.h"
#include "tessara/platform/ui/threads/CmdTarget.h"

/// What the command line asks the program to start with: the document of a file, or a new one.
class TESSARA_API CCommandLineInfo : public CObject {
    DECLARE_DYNAMIC(CCommandLineInfo)

public:
    CCommandLineInfo() = default;

    enum ShellCommand { FileNew, FileOpen, FileNothing };

    ShellCommand m_nShellCommand = FileNew;
    CString m_strFileName;

    /// Takes one argument: bFlag when it began with '-' or '--', which pszParam then lacks. The default takes
    /// the first that is no flag for the file.
    virtual void ParseParam(const char* pszParam, BOOL bFlag, BOOL bLast);
};
