// SPDX-License-Identifier: MIT
// The line on standard error that tells how far a run is.
#include "billiard/batch/progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <unistd.h>

namespace batch {

namespace {

double seconds(std::chrono::steady_clock::duration time) {
    return std::chrono::duration<double>(time).count();
}

} // namespace

std::string duration_text(double time) {
    constexpr double longest = 1e12;
    if (!(time < longest)) return "?";
    const auto whole = static_cast<long long>(std::ceil(time));
    char text[40];
    if (whole >= 3600) {
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60,
                      whole % 60);
    } else {
        std::snprintf(text, sizeof text, "%lld:%02lld", whole / 60, whole % 60);
    }
    return text;
}

progress_line::progress_line(bool wanted)
    : wanted(wanted),
      terminal(isatty(STDERR_FILENO) == 1),
      begun(clock::now()),
      told(begun) {}

void progress_line::show(double share, std::int64_t bounces) {
    const double often = terminal ? 0.5 : 5;
    if (!wanted || seconds(clock::now() - told) < often) return;
    told = clock::now();
    print(share, bounces);
}

void progress_line::finish(double share, std::int64_t bounces) {
    if (!wanted) return;
    print(share, bounces);
    if (terminal) std::fputc('\n', stderr);
}

void progress_line::print(double share, std::int64_t bounces) {
    const double time = seconds(clock::now() - begun);
    const double left = share > 0 ? time / share * std::max(0.0, 1 - share) : HUGE_VAL;
    std::fprintf(stderr, "%s%5.1f %% done, %.3g bounces/s, %s left%s", terminal ? "\r" : "",
                 100 * share, time > 0 ? static_cast<double>(bounces) / time : 0.0,
                 share < 1 ? duration_text(left).c_str() : "0:00", terminal ? "\033[K" : "\n");
    std::fflush(stderr);
}

} // namespace batch
