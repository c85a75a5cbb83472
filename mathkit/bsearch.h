// SPDX-License-Identifier: MIT
// Searches in ascending tables of doubles.
#pragma once

/// The value at x of the table ys[i] at xs[i], 0 <= i < n, linear between the rows. xs ascends.
///
/// Beyond an end the value is that of the end; where x is NaN, or n is not positive, it is NaN.
double bsearch_list_lookup(int n, double x, const double* xs, const double* ys);

/// The i with xs[i] <= x < xs[i + 1]. Below the table -1, from its last entry on n - 1, where x is
/// NaN -1.
int bsearch_interval(unsigned n, double x, const double* xs);
