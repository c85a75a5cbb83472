// SPDX-License-Identifier: MIT
// The values of a command's options, judged.
#include "billiard/batch/command_values.h"

#include "billiard/batch/command_options.h"
#include "billiard/batch/errors.h"
#include "billiard/batch/nearest_name.h"
#include "billiard/batch/user_words.h"

#include <algorithm>
#include <cctype>
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

// The place of an option's value among its choices, or `first` where it is left out.
std::size_t choice_of(const command& c, const char* option, std::size_t first) {
    const auto text = c.value(option);
    if (!text) return first;
    const auto choices = split(find_option(option).choices, ' ');
    const auto found = std::find(choices.begin(), choices.end(), *text);
    if (found == choices.end()) {
        throw usage_error(std::string(option) + " has no value " + in_quotes(*text) +
                          name_hint(*text, choices));
    }
    return static_cast<std::size_t>(found - choices.begin());
}

bool ends_in_png(std::string name) {
    for (char& letter : name)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return name.ends_with(".png");
}

std::pair<double, double> range_of(const std::string& text) {
    const char* const wanted = "two numbers LO,HI with LO < HI";
    const auto ends = reals_of("--range", wanted, text, 2);
    if (!(ends[0] < ends[1])) refuse("--range", wanted, text);
    return {ends[0], ends[1]};
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
    const std::size_t when = choice_of(c, "--progress", 2);
    return when == 0 || (when == 2 && isatty(STDERR_FILENO) == 1);
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

std::optional<picture_plan> picture_of(const command& c) {
    if (!ends_in_png(c.value("-o").value_or(""))) {
        for (const char* option : {"--show", "--range", "--scale"}) {
            if (!c.has(option)) continue;
            throw usage_error(std::string(option) + " is for a picture, -o FILE.png");
        }
        return {};
    }
    if (c.verb != "map") throw usage_error("a picture is made by map --cells");
    const auto cells = cells_of(c);
    bool others = false;
    for (const char* option : {"--start", "--angles", "--from", "--random"})
        others = others || c.has(option);
    if (!cells || others) throw usage_error("a picture is made of --cells alone");
    if (c.has("--shard")) throw usage_error("a part of the rows is no picture: leave out --shard");

    picture_plan plan;
    plan.width = cells->first;
    plan.height = cells->second;
    plan.scale = static_cast<int>(count_of(c, "--scale", 1, most_pixels));
    if (times(std::max(plan.width, plan.height), plan.scale) > most_pixels) {
        throw usage_error("the picture has more than " + std::to_string(most_pixels) +
                          " pixels on a side");
    }
    constexpr int first_value = 2; // behind S and P
    plan.column = first_value + static_cast<int>(choice_of(c, "--show", 0));
    if (const auto range = c.value("--range")) plan.range = range_of(*range);
    return plan;
}

std::optional<double> threshold_of(const command& c) {
    const auto text = c.value("--threshold");
    if (!text) return {};
    return reals_of("--threshold", "a number", *text, 1).front();
}

start_list survey_starts_of(const command& c) {
    start_list starts;
    starts.add(random_points(random_of(c).value_or(200), seed_of(c)));
    return starts;
}

start_list search_starts_of(const command& c) {
    const count_pair cells = cells_of(c).value_or(count_pair{100, 100});
    start_list starts;
    starts.add(cell_centres(cells.first, cells.second, window_of(c)));
    return starts;
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
