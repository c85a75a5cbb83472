// SPDX-License-Identifier: MIT
// SIGINT and SIGTERM: an end after whole rows.
#include "billiard/batch/signals.h"

#include <csignal>
#include <unistd.h>

namespace batch {

namespace {

std::atomic<work_monitor*> watched{nullptr};
std::atomic<int> caught{0};

void on_signal(int signal) {
    const bool again = caught.exchange(signal) != 0;
    work_monitor* const run = watched;
    if (again || !run) _exit(128 + signal);
    run->stop = true;
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) return;
    action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

void handle_signals() {
    handle(SIGINT, on_signal);
    handle(SIGTERM, on_signal);
    handle(SIGXFSZ, SIG_IGN);
}

void set_monitor(work_monitor* monitor) {
    watched = monitor;
}

int signal_status() {
    return caught == 0 ? 0 : 128 + caught;
}

} // namespace batch
