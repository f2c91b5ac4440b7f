#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <string>
#include <vector>

namespace tessara {

/// The platform plugins that Qt is to try in turn: those that the user names by the option -platform or in
/// QT_QPA_PLATFORM, else those of the displays in the environment; and last the one that needs no display, so
/// that a program that only draws starts wherever it is.
class CPlatformChoice {
public:
    /// Takes the option -platform out of the arguments, of which the first is the program's name.
    explicit CPlatformChoice(std::vector<char*>& arguments);

    bool WantsXServer() const;
    /// Does not try the X server, as if it could not be reached.
    void LeaveOutXServer() { m_bLeaveOut = true; }

    /// The names as Qt's option -platform takes them.
    QByteArray GetList() const;
    /// Whether the platform that Qt has started is none of those that the user wants to see windows on. A
    /// user whose environment names no display wants to see none.
    bool IsFallback(const QString& strStarted) const;
    /// What was tried, for the user: `DISPLAY ":99"`.
    std::string Describe() const;

private:
    QByteArrayList m_wanted; ///< with their arguments, as in "vnc:port=5901"
    QByteArray m_named;      ///< what the user has named, empty for nothing
    bool m_bDisplay;         ///< whether the environment speaks of a display
    bool m_bLeaveOut = false;
};

} // namespace tessara
