#pragma once

#include <QtGlobal>
#include <optional>
#include <string>

namespace tessara {

/// While Qt's application object is made: keeps what that changes in the process, and puts it back at the
/// end.
///
/// Qt sets the process's locale from the environment, or to one of its own choice; the host's own is what its
/// numbers and texts follow. Qt asks for the user's runtime folder and, where the environment names none,
/// makes one of a guessable name in the shared folder for temporary files: here it finds a private one, which
/// is removed at the end. And it prints advice about platforms that it could not start, which is no message
/// of the host's: it is dropped, while all other messages go to the host's handler.
class CHostScope {
public:
    CHostScope();
    ~CHostScope();
    CHostScope(const CHostScope&) = delete;
    CHostScope& operator=(const CHostScope&) = delete;

private:
    std::string m_strLocale;
    std::optional<std::string> m_runtimeVariable; ///< as the host has it
    std::string m_strRuntimeFolder;               ///< made here; empty when the environment names one
    QtMessageHandler m_pfnHandler;
};

} // namespace tessara
