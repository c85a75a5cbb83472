// SPDX-License-Identifier: MIT
// The values of a command's options, judged. All operations throw usage_error.
#pragma once

#include "billiard/batch/command_line.h"
#include "billiard/batch/number_text.h"
#include "billiard/batch/picture.h"
#include "billiard/batch/row_job.h"
#include "billiard/batch/start_list.h"

#include <cstdint>
#include <optional>

namespace batch {

/// -n
std::int64_t bounces_of(const command& c);

/// -j, or the number of cores that the process may use.
int threads_of(const command& c);

shard shard_of(const command& c);

/// --random, if it is given.
std::optional<std::int64_t> random_of(const command& c);
std::uint64_t seed_of(const command& c);

/// --progress: whether to show it.
bool progress_of(const command& c);

/// --cells, if it is given.
std::optional<count_pair> cells_of(const command& c);
section_window window_of(const command& c);

/// A whole number from 1 to `most`, or `first` where the option is left out.
std::int64_t count_of(const command& c, const char* option, std::int64_t first, std::int64_t most);

/// The picture that -o, --cells, --show, --range and --scale ask for; empty where it is rows that
/// are wanted.
std::optional<picture_plan> picture_of(const command& c);

/// --threshold, if it is given.
std::optional<double> threshold_of(const command& c);

/// The starts of `scan`: --random, 200 of them where it is left out.
start_list survey_starts_of(const command& c);

/// The starts of `periodic`: --cells, 100x100 where it is left out.
start_list search_starts_of(const command& c);

/// The starts of `orbit` and `map`: those of --start and --angles in the order typed, of --from,
/// --random and --cells. Without any the one at S = 0.5, P = 0.5.
start_list starts_of(const command& c);

} // namespace batch
