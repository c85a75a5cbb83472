// SPDX-License-Identifier: MIT
// The values of a command's options, judged.
#include "billiard/batch/command_values.h"

#include "billiard/batch/command_options.h"
#include "billiard/batch/errors.h"
#include "billiard/batch/nearest_name.h"
#include "billiard/batch/user_words.h"

#include <algorithm>
#include <charconv>
#include <thread>
#include <unistd.h>

namespace batch {

namespace {

constexpr std::int64_t most_bounces = std::int64_t{1} << 53;
constexpr std::int64_t most_cells = 1'000'000'000; // on one side
constexpr int most_threads = 1024;
constexpr std::int64_t most_parts = 1'000'000'000;

[[noreturn]] void refuse(const char* option, const std::string& wanted, std::string_view text) {
    throw usage_error(std::string(option) + " takes " + wanted + ", not " + in_quotes(text));
}

std::vector<double> reals_of(const char* option, const char* wanted, const std::string& text,
                             std::size_t count) {
    const auto numbers = parse_reals(text);
    if (!numbers || numbers->size() != count) refuse(option, wanted, text);
    return *numbers;
}

std::unique_ptr<start_source> typed_start(const std::string& option, const std::string& text) {
    if (option == "--start") {
        const auto point = reals_of("--start", "two numbers S,P", text, 2);
        return typed_point(point[0], point[1]);
    }
    const auto angles = reals_of("--angles", "two numbers PHI,ALPHA", text, 2);
    return typed_angles(angles[0], angles[1]);
}

} // namespace

std::int64_t count_of(const command& c, const char* option, std::int64_t first, std::int64_t most) {
    const auto text = c.value(option);
    if (!text) return first;
    const auto n = parse_count(*text);
    if (!n || *n < 1 || *n > most) {
        refuse(option, "a whole number from 1 to " + std::to_string(most), *text);
    }
    return *n;
}

std::int64_t bounces_of(const command& c) {
    return count_of(c, "-n", 1000, most_bounces);
}

int threads_of(const command& c) {
    const auto cores = std::max(1u, std::thread::hardware_concurrency());
    return static_cast<int>(
        count_of(c, "-j", std::min<std::int64_t>(cores, most_threads), most_threads));
}

shard shard_of(const command& c) {
    const auto text = c.value("--shard");
    if (!text) return {};
    const auto pair = parse_pair(*text, '/');
    const bool good =
        pair && pair->first >= 1 && pair->first <= pair->second && pair->second <= most_parts;
    if (!good) refuse("--shard", "K/N with K from 1 to N", *text);
    return {pair->first - 1, pair->second};
}

std::optional<std::int64_t> random_of(const command& c) {
    if (!c.has("--random")) return {};
    return count_of(c, "--random", 1, most_bounces);
}

std::uint64_t seed_of(const command& c) {
    const std::string text = c.value("--seed").value_or("1");
    std::uint64_t seed = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, seed);
    if (error != std::errc{} || stop != end) {
        refuse("--seed", "a whole number from 0 to 18446744073709551615", text);
    }
    return seed;
}

bool progress_of(const command& c) {
    const std::string when = c.value("--progress").value_or("auto");
    const auto choices = split(find_option("--progress").choices, ' ');
    if (std::find(choices.begin(), choices.end(), when) == choices.end()) {
        throw usage_error("--progress has no value " + in_quotes(when) + name_hint(when, choices));
    }
    return when == "always" || (when == "auto" && isatty(STDERR_FILENO) == 1);
}

std::optional<count_pair> cells_of(const command& c) {
    const auto text = c.value("--cells");
    if (!text) return {};
    const auto pair = parse_pair(*text, 'x');
    const bool good = pair && pair->first >= 1 && pair->second >= 1 && pair->first <= most_cells &&
                      pair->second <= most_cells &&
                      times(pair->first, pair->second) <= most_bounces;
    if (!good) refuse("--cells", "WxH, two whole numbers from 1, as 80x40", *text);
    return pair;
}

section_window window_of(const command& c) {
    const auto text = c.value("--window");
    if (!text) return {};
    if (!c.has("--cells") && c.verb == "map") {
        throw usage_error("--window is for --cells, which is not given");
    }
    const auto w = reals_of("--window", "four numbers S1,P1,S2,P2", *text, 4);
    const bool good =
        0 <= w[0] && w[0] < w[2] && w[2] <= 1 && -1 <= w[1] && w[1] < w[3] && w[3] <= 1;
    if (!good) refuse("--window", "S1,P1,S2,P2 with 0 <= S1 < S2 <= 1, -1 <= P1 < P2 <= 1", *text);
    return {w[0], w[1], w[2], w[3]};
}

start_list starts_of(const command& c) {
    start_list starts;
    for (const auto& [option, text] : c.given) {
        if (option == "--start" || option == "--angles") starts.add(typed_start(option, text));
    }
    if (c.has("--seed") && !c.has("--random")) {
        throw usage_error("--seed is for --random, which is not given");
    }
    if (const auto file = c.value("--from")) starts.add(points_of_file(*file));
    if (const auto count = random_of(c)) starts.add(random_points(*count, seed_of(c)));
    const section_window window = window_of(c);
    if (const auto cells = cells_of(c)) {
        starts.add(cell_centres(cells->first, cells->second, window));
    }
    if (starts.size() == 0) starts.add(typed_point(0.5, 0.5));
    return starts;
}

} // namespace batch
