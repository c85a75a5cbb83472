// SPDX-License-Identifier: MIT
// The counted handles, and the limits that every new node is checked against.
#include "mathkit/symbolic/ex.h"

#include "mathkit/TError.h"
#include "mathkit/symbolic/derivation.h"
#include "mathkit/symbolic/limits.h"
#include "mathkit/symbolic/mapping.h"
#include "mathkit/symbolic/nodes.h"
#include "mathkit/symbolic/postfix_compiler.h"

#include <cstddef>

namespace symbolic {

namespace {

int nodes_alive = 0; // the program has one thread

class substitution final : public mapping {
public:
    substitution(const lst& variables, const lst& expressions)
        : variables(variables),
          expressions(expressions) {}

private:
    ex image(const ex& e) override {
        const auto* variable = dynamic_cast<const var*>(&*e);
        if (!variable) return e->rebuild(*this, e);
        for (std::size_t i = 0; i < variables.size() && i < expressions.size(); ++i) {
            const auto* candidate = dynamic_cast<const var*>(&*variables[i]);
            if (candidate && candidate->name == variable->name) return expressions[i];
        }
        return e;
    }

    const lst& variables;
    const lst& expressions;
};

} // namespace

basic::basic(int depth) : levels(depth) {
    if (depth <= max_depth) return;
    throw TError(kit::string::format(
        "the formula or its derivative is nested too deeply: the limit is %d levels, and each term "
        "of a long sum counts as one",
        max_depth));
}

void ex::count_node() {
    if (nodes_alive >= max_nodes) {
        throw TError(kit::string::format("the formula with its derivatives is too large: the limit "
                                         "is %d operations and numbers",
                                         max_nodes));
    }
    ++nodes_alive;
}

ex::ex() : ex(num0p()) {}
ex::ex(int value) : ex(number(value)) {}
ex::ex(double value) : ex(number(value)) {}
ex::ex(double* cell_address, bool variable) : ex(cell(cell_address, variable)) {}

ex::ex(const ex& other) : node(other.node) {
    if (node) ++node->handles;
}

ex::~ex() {
    if (!node || --node->handles > 0) return;
    --nodes_alive;
    delete node;
}

const ex& ex::num0p() {
    static const ex zero(number(0));
    return zero;
}

ex ex::diff(const var& x) const {
    derivation by(x);
    return by(*this);
}

ex ex::subs(const lst& variables, const lst& expressions, int /*counter*/) const {
    substitution map(variables, expressions);
    return map(*this);
}

void ex::compile(postfix_list& list) const {
    postfix_compiler compiler;
    compiler.result(*this);
    list = compiler.finish();
}

} // namespace symbolic
