#pragma once

namespace tessara {

/// Names the file that is removed when a signal (SIGINT, SIGTERM, SIGHUP) ends the process; null for none.
/// The text must live until another call. Signals that the process ignores stay ignored.
void SetPendingFile(const char* pszPath);

} // namespace tessara
