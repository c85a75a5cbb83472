// SPDX-License-Identifier: MIT
// What was entered where: an in-memory store of input histories, for the length of one run.
#pragma once

#include "mathkit/kit_string.h"

#include <list>
#include <map>
#include <string>

/// The store of all input histories, newest entry first.
///
/// A list is named by the place in the source that asks (file and line) and, where the value
/// belongs to one window, by a context pointer; null stands for the whole program. A list that is
/// absent is made empty. Lists keep their addresses until the process ends.
class history_manager {
public:
    using history = std::list<kit::string>;

    /// The one store, made at first use and never destroyed.
    static history_manager* instance();

    history& lookup(const char* file, int line, void* context);

    /// Two more ways to name a list, for programs whose dialogs are made at run time; in Billiard
    /// only the first one is called, and by FXComboBoxPopup::load_history_key alone.
    history& lookup_key(const char* key, void* context); ///< by a free text in place of file, line
    history& lookup_line(const char* file, int line);    ///< a list apart from those with context

    history_manager(const history_manager&) = delete;
    history_manager& operator=(const history_manager&) = delete;

private:
    history_manager() = default;

    std::map<std::string, history> lists;
};

/// The first string of a history, for a site that remembers one value and not a list:
///
///     history_object tab(file, 42, nullptr);
///     if (tab.is_new) tab.set_int(0);
///     int current = tab.get_int();     // and, once the dialog is accepted:
///     tab.set_int(current);
class history_object {
public:
    /// The string, owned by the store; read and assigned directly.
    kit::string* _S = nullptr; // NOLINT(bugprone-reserved-identifier)
    bool is_new = false;       ///< the list was empty: the string has just been made, empty

    history_object() = default; ///< of no use before another one is assigned to it
    history_object(const char* file, int line, void* context);

    /// The string read as strtol reads base 10: 0 for what is no number.
    int get_int();
    void set_int(int value);
};

/// What a site remembers for the whole program; at first it takes `initial`.
int remembered_int(const char* file, int line, int initial);
kit::string remembered_text(const char* file, int line, const char* initial);
