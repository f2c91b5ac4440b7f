#pragma once

namespace tessara {

/// From now on SIGINT, SIGTERM and SIGHUP remove the files that are being written before they end the
/// process. Signals that the process ignores or handles stay so.
void RemoveUnfinishedOnEndSignals();

} // namespace tessara
