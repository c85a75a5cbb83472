// SPDX-License-Identifier: MIT
// Completion of the command line in bash, made from the tables of verbs, options and curves.
#include "billiard/batch/completion.h"

#include "billiard/batch/command_options.h"
#include "billiard/batch/curve_catalog.h"

namespace batch {

namespace {

std::string words_of_verb(const char* verb) {
    std::string words = "--help";
    for (const option_entry& option : options()) {
        if (option.belongs_to(verb)) words += std::string(" ") + option.name;
    }
    return words;
}

// What may follow an option: a file, one of its choices, or anything.
std::string cases_of_values() {
    std::string text;
    for (const option_entry& option : options()) {
        if (option.is_switch()) continue;
        text += std::string("        ") + option.name + ") ";
        const std::string value = option.value;
        if (value == "FILE") text += "COMPREPLY=($(compgen -f -- \"$cur\")); ";
        if (*option.choices != '\0') {
            text += std::string("COMPREPLY=($(compgen -W '") + option.choices + "' -- \"$cur\")); ";
        }
        text += "return ;;\n";
    }
    return text;
}

} // namespace

std::string bash_completion() {
    std::string names, curves, cases;
    for (const verb_entry& verb : verbs()) {
        names += std::string(verb.name) + " ";
        cases +=
            std::string("        ") + verb.name + ") words='" + words_of_verb(verb.name) + "' ;;\n";
    }
    for (const curve_kind& kind : curve_catalog())
        curves += std::string(kind.name) + " ";
    return "# Completion of billiard-batch in bash. Made by the program; do not edit.\n"
           "_billiard_batch() {\n"
           "    local cur=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} words=''\n"
           "    COMPREPLY=()\n"
           "    if ((COMP_CWORD == 1)); then\n"
           "        COMPREPLY=($(compgen -W '" +
           names +
           "--help --version' -- \"$cur\"))\n"
           "        return\n"
           "    fi\n"
           "    case $previous in\n" +
           cases_of_values() +
           "    esac\n"
           "    case ${COMP_WORDS[1]} in\n" +
           cases +
           "    esac\n"
           "    ((COMP_CWORD > 2)) || words='" +
           curves +
           "--help'\n"
           "    COMPREPLY=($(compgen -W \"$words\" -- \"$cur\"))\n"
           "}\n"
           "complete -F _billiard_batch billiard-batch\n";
}

} // namespace batch
