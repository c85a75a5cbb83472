// SPDX-License-Identifier: MIT
// Searches in ascending tables of doubles.
#include "mathkit/bsearch.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int window = 16; // rows that are searched without a branch

// The largest i in [low, high) with xs[i] <= x, given that xs[low] <= x. Each half is added without
// a branch, which would be guessed wrong half the time.
int plain_search(int low, int high, double x, const double* xs) {
    for (int size = high - low; size > 1;) {
        const int half = size / 2;
        low += xs[low + half] <= x ? half : 0;
        size -= half;
    }
    return low;
}

// Start of the window whose middle is row `i`, which may be any number at all.
int window_about(double i, int n) {
    const double last = n - 1 - window;
    constexpr int below = window / 2;
    const double first = i - below;
    if (!(first > 0)) return 0; // also where i is NaN
    return static_cast<int>(std::min(first, last));
}

// The row at or before x, given xs[0] <= x < xs[n - 1] and n > window.
//
// The rows of a boundary are spaced so evenly that proportion hits within a few rows, and the
// spacing there mends what is left: the search then reads two or three lines of memory, where
// halving the whole table reads eleven and guesses each turn wrong half the time.
int search_by_proportion(int n, double x, const double* xs) {
    int w = window_about((x - xs[0]) / (xs[n - 1] - xs[0]) * (n - 1), n);
    for (int mend = 0; mend < 2; ++mend) {
        if (xs[w] <= x && x < xs[w + window]) break;
        w = window_about(w + window * ((x - xs[w]) / (xs[w + window] - xs[w])), n);
    }
    if (!(xs[w] <= x)) return plain_search(0, w, x, xs);
    if (!(x < xs[w + window])) return plain_search(w + window, n, x, xs);
    for (int half = window / 2; half > 0; half /= 2) {
        w += xs[w + half] <= x ? half : 0;
    }
    return w;
}

} // namespace

double bsearch_list_lookup(int n, double x, const double* xs, const double* ys) {
    if (n < 1 || x != x) return std::numeric_limits<double>::quiet_NaN();
    if (!(x > xs[0])) return ys[0];
    if (!(x < xs[n - 1])) return ys[n - 1];
    const int i = n > window ? search_by_proportion(n, x, xs) : plain_search(0, n - 1, x, xs);
    return ys[i] + (x - xs[i]) / (xs[i + 1] - xs[i]) * (ys[i + 1] - ys[i]);
}

int bsearch_interval(unsigned n, double x, const double* xs) {
    if (n == 0 || !(x >= xs[0])) return -1;
    return plain_search(0, static_cast<int>(n), x, xs);
}
