// SPDX-License-Identifier: MIT
// The curve of a command line, as in "oval-a:c=5", with its ranges and the names of its formula.
#include "billiard/batch/curve_word.h"

#include "billiard/batch/errors.h"
#include "billiard/batch/nearest_name.h"
#include "billiard/batch/number_text.h"
#include "billiard/batch/user_words.h"
#include "billiard/radius-core/TSymbolicRadius.h"
#include "mathkit/TError.h"
#include "mathkit/symbolic/functions.h"
#include "mathkit/symbolic/nodes.h"
#include "mathkit/symbolic/scanexpr.h"
#include "mathkit/symbolic/subs_manager.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <mutex>

namespace batch {

namespace {

constexpr std::size_t most_fourier_terms = 10000;

std::string one_line(const TError& error) {
    std::string text = error.text().c_str();
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

// Expressions count their nodes without locks: formulas are made by one thread at a time.
std::mutex& formula_mutex() {
    static std::mutex mutex;
    return mutex;
}

bool is_name(std::string_view text) {
    const auto letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    return !text.empty() && letter(text[0]) && std::all_of(text.begin(), text.end(), [&](char c) {
        return letter(c) || (c >= '0' && c <= '9') || c == '_';
    });
}

void refuse_known_name(const std::string& name) {
    const bool known =
        name == "t" || name == "pi" || name == "e" || symbolic::find_function(name) != nullptr;
    if (known) throw usage_error("--let " + name + ": a formula's own name cannot be given anew");
}

void refuse_part_of_whole(const curve_parameter& parameter, const value_range& range,
                          const std::string& what) {
    if (!parameter.whole) return;
    for (const double x : {range.first, range.last, range.count > 1 ? range.at(1) : range.first}) {
        if (x == std::floor(x) && std::fabs(x) <= INT_MAX) continue;
        throw usage_error(what + " takes whole numbers to " + std::to_string(INT_MAX) + ", not " +
                          real_text(x));
    }
}

// A boundary's radius is positive; a table that was made of anything else is no billiard. Of a
// radius beyond the limits the square, of which an area is made, may be no number.
void refuse_bad_radii(const TBilliard& table, const char* name) {
    constexpr double least = 1e-150, most = 1e150;
    const TBilliard::circumference_class& rows = table.circumference;
    for (std::size_t i = 0; i < rows.r.size(); ++i) {
        const double r = rows.r[i];
        if (r >= least && r <= most) continue;
        const char* limit = r > 0 && std::isfinite(r) ? "between 1e-150 and 1e150" : "positive";
        throw usage_error(std::string(name) + ": R must be " + limit + " all round, but R(" +
                          real_text(rows.phi[i]) + ") = " + real_text(r));
    }
}

} // namespace

curve_word::curve_word(std::string_view word, const std::vector<std::string>& lets) {
    const std::size_t colon = word.find(':');
    const bool has_text = colon != std::string_view::npos;
    const std::string_view text = has_text ? word.substr(colon + 1) : std::string_view{};
    kind = &find_curve(word.substr(0, colon));

    if (kind->syntax != curve_syntax::formula && !lets.empty()) {
        throw usage_error(std::string("--let is for a formula, and ") + kind->name + " has none");
    }
    for (const curve_parameter& parameter : kind->parameters)
        parameters.push_back({parameter.first, parameter.first});
    if (kind->syntax == curve_syntax::formula) {
        formula = has_text ? text : first_formula;
        for (const std::string& let : lets)
            read_let(let);
    } else if (kind->syntax == curve_syntax::fourier) {
        read_fourier(text);
    } else if (has_text) {
        read_parameters(text);
    }
    refuse_bad_corners();
    number_ranges();
    if (kind->syntax == curve_syntax::formula) curve(0); // its errors, before any row
}

void curve_word::read_parameters(std::string_view text) {
    for (const std::string_view piece : split(text, ',')) {
        const std::size_t equals = piece.find('=');
        const std::string_view name = piece.substr(0, equals);
        std::vector<std::string_view> known;
        for (const curve_parameter& parameter : kind->parameters)
            known.emplace_back(parameter.name);
        const auto found = std::find(known.begin(), known.end(), name);
        if (found == known.end()) {
            throw usage_error(std::string(kind->name) + " has no parameter " + in_quotes(name) +
                              name_hint(name, known));
        }
        const auto i = static_cast<std::size_t>(found - known.begin());
        const std::string what = std::string(kind->name) + ": " + std::string(name);
        if (equals == std::string_view::npos) {
            throw usage_error(what + " has no value; give it as in " + std::string(name) + "=" +
                              real_text(kind->parameters[i].first));
        }
        if (std::find(typed.begin(), typed.end(), i) != typed.end()) {
            throw usage_error(what + " is given twice");
        }
        parameters[i] = parse_range(piece.substr(equals + 1), what);
        refuse_part_of_whole(kind->parameters[i], parameters[i], what);
        typed.push_back(i);
    }
}

void curve_word::read_fourier(std::string_view text) {
    const auto wrong = [](std::string_view term, const char* why) {
        throw usage_error("fourier: " + in_quotes(term) + " is no " + why +
                          "; give terms as in fourier:4,0.3@0,0.1@1.5");
    };
    for (const std::string_view term : split(text, ',')) {
        const std::size_t at = term.find('@');
        const bool first = amplitudes.empty();
        const auto amplitude = parse_real(term.substr(0, at));
        if (first && (at != std::string_view::npos || !amplitude)) wrong(term, "constant term");
        const auto phase = first                          ? 0.0
                           : at == std::string_view::npos ? std::optional<double>{}
                                                          : parse_real(term.substr(at + 1));
        if (!amplitude || !phase) wrong(term, "amplitude@phase");
        amplitudes.push_back(*amplitude);
        phases.push_back(*phase);
        if (amplitudes.size() > most_fourier_terms) {
            throw usage_error("fourier: more than " + std::to_string(most_fourier_terms) +
                              " terms");
        }
    }
}

void curve_word::read_let(std::string_view text) {
    const std::size_t equals = text.find('=');
    definition d;
    d.name = text.substr(0, equals);
    if (equals == std::string_view::npos || !is_name(d.name)) {
        throw usage_error("--let " + in_quotes(text) + " is no NAME=VALUE");
    }
    refuse_known_name(d.name);
    for (const definition& other : definitions) {
        if (other.name == d.name) throw usage_error("--let " + d.name + " is given twice");
    }
    const std::string_view value = text.substr(equals + 1);
    if (looks_like_range(value)) {
        d.range = parse_range(value, "--let " + d.name);
    } else if (value.empty()) {
        throw usage_error("--let " + d.name + " has no value");
    } else {
        d.text = value;
    }
    definitions.push_back(std::move(d));
}

// What a curve takes is convex in its parameters: if it takes the corners, it takes all between.
void curve_word::refuse_bad_corners() const {
    if (!kind->build) return;
    std::vector<double> values(parameters.size());
    for (std::size_t corner = 0; corner < std::size_t{1} << parameters.size(); ++corner) {
        std::string given;
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            values[i] = (corner >> i & 1) != 0 ? parameters[i].last : parameters[i].first;
            given += (i > 0 ? ", " : "") + std::string(kind->parameters[i].name) + " = " +
                     real_text(values[i]);
        }
        if (kind->build(values)) continue;
        throw usage_error(std::string(kind->name) + " refuses " + given + ": its limit is " +
                          kind->limit);
    }
}

void curve_word::number_ranges() {
    const auto add = [this](const std::string& name, const value_range& range) {
        if (!range.typed_as_range) return;
        names.push_back(name);
        ranges.push_back(range);
        constexpr std::int64_t most = std::int64_t{1} << 53;
        if (count > most / range.count) throw usage_error("there are too many combinations");
        count *= range.count;
    };
    for (const std::size_t i : typed)
        add(kind->parameters[i].name, parameters[i]);
    for (const definition& d : definitions)
        add(d.name, d.range);
}

std::vector<double> curve_word::range_values(std::int64_t i) const {
    std::vector<double> values(ranges.size());
    for (std::size_t k = ranges.size(); k-- > 0; i /= ranges[k].count)
        values[k] = ranges[k].at(i % ranges[k].count);
    return values;
}

std::unique_ptr<TRadiusFunction> curve_word::curve(std::int64_t i) const {
    const std::vector<double> of_ranges = range_values(i);
    if (kind->syntax == curve_syntax::formula) return formula_curve(of_ranges);
    if (kind->syntax == curve_syntax::fourier) {
        return std::make_unique<searched<TPotatoFunction>>(static_cast<int>(amplitudes.size()),
                                                           amplitudes.data(), phases.data());
    }
    std::vector<double> values;
    for (const value_range& parameter : parameters)
        values.push_back(parameter.first);
    std::size_t range = 0;
    for (const std::size_t k : typed) {
        if (parameters[k].typed_as_range) values[k] = of_ranges[range++];
    }
    return kind->build(values);
}

std::unique_ptr<TRadiusFunction>
curve_word::formula_curve(const std::vector<double>& of_ranges) const {
    const std::lock_guard<std::mutex> lock(formula_mutex());
    symbolic::subs_manager known;
    known.set_math_constants();
    known.set_experimental_functions();
    std::string where;
    try {
        std::size_t range = 0;
        for (const definition& d : definitions) {
            where = "--let " + d.name;
            known.second.append(
                d.range.typed_as_range
                    ? symbolic::ex(of_ranges[range++])
                    : symbolic::scanexpr(d.text.c_str()).eval(known.first, known.second, -1));
            known.first.append(symbolic::var(d.name.c_str()));
        }
        where = "formula";
        return std::make_unique<symbolic::TSymbolicRadius>(formula.c_str(), known);
    } catch (const TError& error) {
        throw usage_error(where + ": " + one_line(error));
    }
}

std::unique_ptr<TBilliardMap> curve_word::billiard(std::int64_t i) const {
    auto map = std::make_unique<TBilliardMap>(curve(i).release());
    refuse_bad_radii(*map, kind->name);
    return map;
}

} // namespace batch
