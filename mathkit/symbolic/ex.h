// SPDX-License-Identifier: MIT
// Expressions: counted handles on immutable nodes.
#pragma once

#include <concepts>
#include <memory>
#include <utility>

namespace symbolic {

class basic;
class derivation;
class ex;
class lst;
class mapping;
class postfix_compiler;
class postfix_list;
class var;

/// A handle on an expression. Copies share the nodes, which never change once they are made.
///
/// Whatever makes nodes throws a TError, with the limit's name in its text, once an expression
/// would be deeper than max_depth or more than max_nodes nodes would be alive.
class ex {
public:
    ex(); ///< zero
    ex(int value);
    ex(double value);

    /// The content of `cell`, read anew at each evaluation; the cell must outlive every list
    /// compiled from it. `variable` makes it the one that eval_diffarithm differentiates by.
    ex(double* cell, bool variable);

    /// Takes a node to the heap, as in: ex(add(a, b)).
    template<std::derived_from<basic> Node>
    ex(Node node); // NOLINT: converting on purpose

    ex(const ex& other);
    ex(ex&& other) noexcept : node(std::exchange(other.node, nullptr)) {}
    ex& operator=(ex other) noexcept {
        std::swap(node, other.node);
        return *this;
    }
    ~ex();

    /// The shared zero.
    static const ex& num0p();

    /// Gives the names in a scanned formula their meanings: each name that stands in `names`
    /// becomes the entry of `meanings` at the same place. `levels` limits how deep names are looked
    /// for, negative for no limit. Throws TError, with the column, on a name without meaning, a
    /// function without its arguments and a wrong number of them.
    ex eval(const lst& names, const lst& meanings, int levels) const;

    /// The derivative by `x`. Functions with jumps or corners have the derivative that holds beside
    /// them: floor, ceil, round, trunc, signum and heaviside give 0, fabs gives signum.
    ex diff(const var& x) const;

    /// Puts the entry of `expressions` at the same place for each of `variables`. `counter` is for
    /// a caller that counts the levels above this expression: the result does not depend on it.
    ex subs(const lst& variables, const lst& expressions, int counter) const;

    /// Compiles into `list`, which loses what it held. Throws TError if a variable is left.
    void compile(postfix_list& list) const;

    const basic& operator*() const { return *node; }
    const basic* operator->() const { return node; }

private:
    static void count_node();

    const basic* node; ///< on the heap, counted; null only after a move
};

/// A node of an expression. Nodes are values: they are made on the stack and moved to the heap by
/// the handle that takes them.
class basic {
public:
    virtual ~basic() = default;
    basic& operator=(const basic&) = delete;

    /// The derivative of this node, which `self` holds. Called through derivation, which sees to it
    /// that a shared node is differentiated once.
    virtual ex diff(derivation& by, const ex& self) const = 0;

    /// Hands this node's operands and then its own operation to the compiler.
    virtual void compile(postfix_compiler& to) const = 0;

    /// The same node with its operands mapped; `self` where none of them changes. This is what
    /// substitution, the resolving of names and simplification have in common.
    virtual ex rebuild(mapping& map, const ex& self) const = 0;

    /// This node without operands that are 0 or 1 and do nothing; `self` where there are none.
    /// The operands are simplified already.
    virtual ex simplified_0_1(const ex& self) const { return self; }

    /// The value, where it is known without evaluation: a number, or an operation on numbers.
    virtual bool constant(double& /*value*/) const { return false; }

    /// The number that this node is, null for every other node.
    virtual const double* number_value() const { return nullptr; }

    /// Levels from this node to its deepest leaf, 1 for a leaf.
    int depth() const { return levels; }

protected:
    explicit basic(int depth);
    basic(const basic& other) : levels(other.levels) {}

private:
    friend class ex;
    mutable unsigned handles = 0; ///< not copied: each heap node has its own
    int levels;
};

template<std::derived_from<basic> Node>
ex::ex(Node made) : node(nullptr) {
    auto on_heap = std::make_unique<Node>(std::move(made));
    count_node();
    on_heap->handles = 1;
    node = on_heap.release();
}

} // namespace symbolic
