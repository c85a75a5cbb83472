// SPDX-License-Identifier: MIT
// The words of a command line, taken apart by CLI11 as the table of options tells.
#include "billiard/batch/command_line.h"

#include "billiard/batch/command_options.h"
#include "billiard/batch/completion.h"
#include "billiard/batch/errors.h"
#include "billiard/batch/help.h"
#include "billiard/batch/nearest_name.h"
#include "billiard/batch/user_words.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace batch {

namespace {

std::vector<std::string_view> names_of_options(std::string_view verb) {
    std::vector<std::string_view> names = {"--help"};
    for (const option_entry& option : options()) {
        if (option.belongs_to(verb)) names.emplace_back(option.name);
    }
    return names;
}

[[noreturn]] void refuse_option(std::string_view word, const std::string& verb) {
    const std::string name(word.substr(0, word.find('=')));
    const std::string help = "; see billiard-batch " + verb + " --help";
    const auto known = std::find_if(options().begin(), options().end(),
                                    [&](const auto& option) { return name == option.name; });
    if (known != options().end())
        throw usage_error(name + " is an option of " + known->verbs + ", not of " + verb);
    const std::string_view near = nearest_name(name, names_of_options(verb));
    throw usage_error(verb + " has no option " + in_quotes(name) +
                      (near.empty() ? help : "; did you mean " + std::string(near) + "?"));
}

[[noreturn]] void refuse_first_word(const std::string& word) {
    std::vector<std::string_view> names;
    for (const verb_entry& verb : verbs())
        names.emplace_back(verb.name);
    if (!word.starts_with('-')) {
        throw usage_error("there is no verb " + in_quotes(word) + name_hint(word, names));
    }
    for (const option_entry& option : options()) {
        if (word.starts_with(option.name)) {
            throw usage_error("options follow the verb and the curve: billiard-batch VERB CURVE " +
                              std::string(option.name));
        }
    }
    throw usage_error("there is no option " + in_quotes(word) + "; see billiard-batch --help");
}

// CLI11 with one subcommand for each verb. Values stay texts: what is wrong with one is told by
// whoever knows what it should be.
class grammar {
public:
    grammar() {
        app.allow_extras();
        app.set_version_flag("--version", "");
        app.set_help_flag("--help,-h", "");
        app.add_flag("--bash-completion"); // for the build
        for (const verb_entry& verb : verbs())
            add(verb);
    }

    parsed_line parse(int argc, const char* const* argv) {
        try {
            app.parse(argc, argv);
        } catch (const CLI::CallForHelp&) {
            const auto verb = app.get_subcommands();
            return {{}, verb.empty() ? program_help() : verb_help(verb.front()->get_name())};
        } catch (const CLI::CallForVersion&) {
            return {{}, std::string(program_version) + "\n"};
        } catch (const CLI::ParseError& error) {
            throw usage_error(error.what());
        }
        if (app.count("--bash-completion") > 0) return {{}, bash_completion()};
        const std::vector<std::string> surplus = app.remaining();
        if (!surplus.empty()) refuse_first_word(surplus.front());
        if (app.get_subcommands().empty()) {
            throw usage_error("give a verb and a curve, as in billiard-batch orbit stadium:z=1; "
                              "--help tells more");
        }
        return {command_of(*app.get_subcommands().front()), {}};
    }

private:
    void add(const verb_entry& verb) {
        CLI::App* sub = app.add_subcommand(verb.name);
        sub->allow_extras();
        sub->set_help_flag("--help,-h", "");
        sub->add_option("CURVE");
        for (const option_entry& option : options()) {
            if (!option.belongs_to(verb.name)) continue;
            if (option.is_switch()) {
                sub->add_flag(option.name);
                continue;
            }
            sub->add_option(option.name)
                ->type_name(option.value)
                ->expected(1)
                ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
                ->allow_extra_args(false);
        }
    }

    static command command_of(const CLI::App& sub) {
        command c;
        c.verb = sub.get_name();
        if (!sub.remaining().empty()) refuse_surplus(sub);
        std::map<const CLI::Option*, std::size_t> seen;
        for (const CLI::Option* option : sub.parse_order()) {
            const std::string& text = option->results()[seen[option]++];
            if (option->get_positional()) {
                c.curve = text;
            } else {
                add_option(c, option->get_name(), text);
            }
        }
        if (c.curve.empty()) {
            throw usage_error(c.verb + " needs a curve, as in billiard-batch " + c.verb +
                              " oval-a:c=5");
        }
        return c;
    }

    static void refuse_surplus(const CLI::App& sub) {
        const std::string word = sub.remaining().front();
        if (word.starts_with('-')) refuse_option(word, sub.get_name());
        throw usage_error(in_quotes(word) + " is one word too many: a command has one curve, and "
                                            "options begin with -");
    }

    static void add_option(command& c, const std::string& name, const std::string& text) {
        const option_entry& entry = find_option(name);
        if (!entry.repeatable && c.has(name)) throw usage_error(name + " is given twice");
        if (text.empty()) throw usage_error(name + " has no value; it takes " + entry.value);
        c.given.emplace_back(name, entry.is_switch() ? "" : text);
    }

    CLI::App app;
};

} // namespace

bool command::has(std::string_view option) const {
    return value(option).has_value();
}

std::optional<std::string> command::value(std::string_view option) const {
    for (const auto& [name, text] : given) {
        if (name == option) return text;
    }
    return {};
}

std::vector<std::string> command::values(std::string_view option) const {
    std::vector<std::string> texts;
    for (const auto& [name, text] : given) {
        if (name == option) texts.push_back(text);
    }
    return texts;
}

std::string command::deciding_words() const {
    std::string words = verb + " " + shell_word(curve);
    for (const auto& [name, text] : given) {
        if (find_option(name).decides_rows) words += " " + name + " " + shell_word(text);
    }
    return words;
}

parsed_line parse_command_line(int argc, const char* const* argv) {
    return grammar().parse(argc, argv);
}

} // namespace batch
