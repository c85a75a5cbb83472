// SPDX-License-Identifier: MIT
// SIGINT and SIGTERM: an end after whole rows.
#pragma once

#include "billiard/batch/work_monitor.h"

namespace batch {

/// From here on SIGINT and SIGTERM end the process with the status 130 or 143: at once, or, while
/// a monitor is set, after its run has left off. A second one ends it at once in any case. A signal
/// that the process was started to ignore stays ignored. A file that grows beyond a limit is an
/// error of its write.
void handle_signals();

/// The run that a signal stops; null for none.
void set_monitor(work_monitor* monitor);

/// The status to end with after a signal, 0 where there was none.
int signal_status();

} // namespace batch
