// SPDX-License-Identifier: MIT
// The kinds of node that expressions are made of.
#pragma once

#include "mathkit/symbolic/ex.h"
#include "mathkit/symbolic/functions.h"

#include <string>
#include <utility>
#include <vector>

namespace symbolic {

/// A number.
class number final : public basic {
public:
    explicit number(double value) : basic(1), value(value) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping&, const ex& self) const override { return self; }
    bool constant(double& result) const override;
    const double* number_value() const override { return &value; }

    const double value;
};

/// The content of a memory cell at the time of evaluation. ex::diff, which differentiates by
/// variables, takes it for a constant.
class cell final : public basic {
public:
    cell(double* address, bool variable) : basic(1), address(address), variable(variable) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping&, const ex& self) const override { return self; }

    double* const address; ///< not owned
    const bool variable;   ///< forward differentiation is by this cell
};

/// A variable; two of them are the same if their names are.
class var final : public basic {
public:
    explicit var(const char* name) : basic(1), name(name) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping&, const ex& self) const override { return self; }

    const std::string name;
};

/// A name in a scanned formula that eval has not given its meaning yet.
class unresolved_name final : public basic {
public:
    unresolved_name(std::string name, int column)
        : basic(1),
          name(std::move(name)),
          column(column) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping&, const ex& self) const override { return self; }

    const std::string name;
    const int column; ///< where the name begins in the text, 1 for its first character
};

/// A name with arguments in a scanned formula, before eval.
class unresolved_call final : public basic {
public:
    unresolved_call(std::string name, int column, std::vector<ex> arguments);
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping& map, const ex& self) const override;

    const std::string name;
    const int column;
    const std::vector<ex> arguments; ///< at least one
};

/// A function as such, without arguments: what a name before a bracket means.
class function_symbol final : public basic {
public:
    explicit function_symbol(const function_entry& entry) : basic(1), entry(entry) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping&, const ex& self) const override { return self; }

    const function_entry entry;
};

/// -a
class minus final : public basic {
public:
    explicit minus(const ex& a) : basic(a->depth() + 1), a(a) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping& map, const ex& self) const override;
    ex simplified_0_1(const ex& self) const override;
    bool constant(double& result) const override;

    const ex a;
};

/// What the operations with two operands share.
class binary : public basic {
public:
    bool constant(double& result) const final;

    const ex a, b;

protected:
    binary(const ex& a, const ex& b);

    /// The operation on two values.
    virtual double value(double x, double y) const = 0;

    /// rebuild for an operation of the class Operation.
    template<class Operation>
    ex of_mapped(mapping& map, const ex& self) const;
};

/// a + b
class add final : public binary {
public:
    add(const ex& a, const ex& b) : binary(a, b) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping& map, const ex& self) const override;
    ex simplified_0_1(const ex& self) const override;

private:
    double value(double x, double y) const override { return x + y; }
};

/// a - b
class sub final : public binary {
public:
    sub(const ex& a, const ex& b) : binary(a, b) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping& map, const ex& self) const override;
    ex simplified_0_1(const ex& self) const override;

private:
    double value(double x, double y) const override { return x - y; }
};

/// a * b
class mul final : public binary {
public:
    mul(const ex& a, const ex& b) : binary(a, b) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping& map, const ex& self) const override;
    ex simplified_0_1(const ex& self) const override;

private:
    double value(double x, double y) const override { return x * y; }
};

/// a / b
class divide final : public binary {
public:
    divide(const ex& a, const ex& b) : binary(a, b) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping& map, const ex& self) const override;
    ex simplified_0_1(const ex& self) const override;

private:
    double value(double x, double y) const override { return x / y; }
};

/// a to the power b
class power final : public binary {
public:
    power(const ex& a, const ex& b) : binary(a, b) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping& map, const ex& self) const override;
    ex simplified_0_1(const ex& self) const override;

private:
    double value(double x, double y) const override { return power_value(x, y); }
};

/// A function of one argument.
class function final : public basic {
public:
    function(function_id id, const ex& a) : basic(a->depth() + 1), id(id), a(a) {}
    ex diff(derivation& by, const ex& self) const override;
    void compile(postfix_compiler& to) const override;
    ex rebuild(mapping& map, const ex& self) const override;
    bool constant(double& result) const override;

    const function_id id;
    const ex a;
};

} // namespace symbolic
