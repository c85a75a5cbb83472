// SPDX-License-Identifier: MIT
// The texts of --help, made from the tables of curves, verbs and options.
#include "billiard/batch/help.h"

#include "billiard/batch/command_options.h"
#include "billiard/batch/curve_catalog.h"
#include "billiard/batch/number_text.h"

#include <algorithm>

namespace batch {

namespace {

constexpr std::size_t width = 80;

// A term and what it means, broken into lines behind a margin.
std::string entry(const std::string& term, std::string_view meaning, std::size_t margin) {
    std::string text = "  " + term;
    if (text.size() + 2 > margin) {
        text += '\n' + std::string(margin, ' ');
    } else {
        text.resize(margin, ' ');
    }
    std::size_t column = margin;
    for (const std::string_view word : split(meaning, ' ')) {
        if (column > margin && column + 1 + word.size() > width) {
            text += '\n' + std::string(margin, ' ');
            column = margin;
        } else if (column > margin) {
            text += ' ';
            ++column;
        }
        text += word;
        column += word.size();
    }
    return text + "\n";
}

std::string curves_help() {
    std::string text = "Curves, with the values of parameters that are left out:\n";
    for (const curve_kind& kind : curve_catalog()) {
        std::string word = kind.name;
        for (const curve_parameter& p : kind.parameters) {
            word += (&p == &kind.parameters.front() ? ':' : ',') + std::string(p.name) + "=" +
                    real_text(p.first);
        }
        text += entry(word, std::string(kind.shape) + "; " + kind.limit, 30);
    }
    return text;
}

} // namespace

std::string program_help() {
    std::string text = "usage: billiard-batch VERB CURVE [options]\n"
                       "Orbits, maps and surveys of two-dimensional billiards, as rows of "
                       "numbers.\n\nVerbs:\n";
    for (const verb_entry& verb : verbs())
        text += entry(verb.name, verb.summary, 14);
    text += '\n' + curves_help();
    text += "\n  --help, -h  tell this; billiard-batch VERB --help tells the options of a verb\n"
            "  --version   tell the version\n\nExample:\n  ";
    return text + verbs().front().example + "\n";
}

std::string verb_help(std::string_view name) {
    const verb_entry& verb = *std::find_if(verbs().begin(), verbs().end(),
                                           [&](const verb_entry& v) { return name == v.name; });
    std::string text = "usage: billiard-batch " + std::string(name) + " CURVE [options]\n" +
                       verb.summary + "\n\nOptions:\n";
    for (const option_entry& option : options()) {
        if (!option.belongs_to(name)) continue;
        text += entry(std::string(option.name) + " " + option.value, option.help, 25);
    }
    text += entry("--help, -h", "tell this", 25);
    text += "\nColumns:\n  " + std::string(verb.columns) + "\n\n" + curves_help();
    return text + "\nExample:\n  " + verb.example + "\n";
}

} // namespace batch
