// SPDX-License-Identifier: MIT
// The names of the formula language, and how a scanned formula gets their meanings.
#include "mathkit/symbolic/subs_manager.h"

#include "mathkit/symbolic/formula_error.h"
#include "mathkit/symbolic/mapping.h"
#include "mathkit/symbolic/nodes.h"

#include <cstddef>
#include <numbers>
#include <string>
#include <string_view>
#include <unordered_map>

namespace symbolic {

namespace {

// Replaces names and calls by what they mean.
class resolution final : public mapping {
public:
    resolution(const lst& names, const lst& meanings, int levels) : levels(levels) {
        for (std::size_t i = 0; i < names.size() && i < meanings.size(); ++i) {
            if (const auto* name = dynamic_cast<const var*>(&*names[i])) {
                known.emplace(name->name, meanings[i]);
            }
        }
    }

private:
    ex image(const ex& e) override {
        if (levels >= 0 && level > levels) return e;
        if (const auto* name = dynamic_cast<const unresolved_name*>(&*e)) return constant(*name);
        if (const auto* call = dynamic_cast<const unresolved_call*>(&*e)) return applied(*call);
        return e->rebuild(*this, e);
    }

    const ex& meaning(const std::string& name, int column) const {
        const auto found = known.find(name);
        if (found == known.end()) throw unknown_name(name, column);
        return found->second;
    }

    ex constant(const unresolved_name& name) const {
        const ex& result = meaning(name.name, name.column);
        if (!dynamic_cast<const function_symbol*>(&*result)) return result;
        throw missing_bracket(name.name, name.column + static_cast<int>(name.name.size()));
    }

    ex applied(const unresolved_call& call) {
        const auto* symbol =
            dynamic_cast<const function_symbol*>(&*meaning(call.name, call.column));
        if (!symbol) {
            throw TError(kit::string::format("'%s' at column %d is no function: missing operator "
                                             "before '('",
                                             shown(call.name).c_str(), call.column));
        }
        const function_entry& entry = symbol->entry;
        const int given = static_cast<int>(call.arguments.size());
        if (given != entry.arguments) {
            throw TError(kit::string::format("too %s arguments for '%s' at column %d: it takes %d, "
                                             "not %d",
                                             given < entry.arguments ? "few" : "many", entry.name,
                                             call.column, entry.arguments, given));
        }
        const ex first = (*this)(call.arguments[0]);
        if (entry.id == function_id::pow) return power(first, (*this)(call.arguments[1]));
        return function(entry.id, first);
    }

    std::unordered_map<std::string_view, ex> known; // the names live as long as the caller's list
    int levels;
};

} // namespace

ex ex::eval(const lst& names, const lst& meanings, int levels) const {
    resolution resolve(names, meanings, levels);
    return resolve(*this);
}

void subs_manager::set_math_constants() {
    first.append(var("pi"));
    second.append(ex(std::numbers::pi));
    first.append(var("e"));
    second.append(ex(std::numbers::e));
}

void subs_manager::set_experimental_functions() {
    for (const function_entry& entry : function_table) {
        first.append(var(entry.name));
        second.append(function_symbol(entry));
    }
}

} // namespace symbolic
