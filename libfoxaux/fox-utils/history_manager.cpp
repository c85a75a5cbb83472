// SPDX-License-Identifier: MIT
// What was entered where: an in-memory store of input histories, for the length of one run.
#include "libfoxaux/fox-utils/history_manager.h"

#include "mathkit/stderr_failed.h"

#include <cstdlib>

history_manager* history_manager::instance() {
    static auto* const store = new history_manager; // outlives every widget that points into it
    return store;
}

history_manager::history& history_manager::lookup(const char* file, int line, void* context) {
    return lists[kit::string::format("flp %s %d %p", file, line, context).c_str()];
}

history_manager::history& history_manager::lookup_key(const char* key, void* context) {
    return lists[kit::string::format("key %s %p", key, context).c_str()];
}

history_manager::history& history_manager::lookup_line(const char* file, int line) {
    return lists[kit::string::format("fl %s %d", file, line).c_str()];
}

history_object::history_object(const char* file, int line, void* context) {
    history_manager::history& list = history_manager::instance()->lookup(file, line, context);
    is_new = list.empty();
    if (is_new) list.emplace_back();
    _S = &list.front();
}

int history_object::get_int() {
    stderr_assert(_S != nullptr, "_S!=0", "libfoxaux/fox-utils/history_manager",
                  "int history_object::get_int()");
    return static_cast<int>(std::strtol(_S->c_str(), nullptr, 10));
}

void history_object::set_int(int value) {
    stderr_assert(_S != nullptr, "_S!=0", "libfoxaux/fox-utils/history_manager",
                  "void history_object::set_int(int)");
    _S->sprintf("%d", value);
}

int remembered_int(const char* file, int line, int initial) {
    history_object remembered(file, line, nullptr);
    if (remembered.is_new) remembered.set_int(initial);
    return remembered.get_int();
}

kit::string remembered_text(const char* file, int line, const char* initial) {
    const history_object remembered(file, line, nullptr);
    if (remembered.is_new) *remembered._S = initial;
    return *remembered._S;
}
