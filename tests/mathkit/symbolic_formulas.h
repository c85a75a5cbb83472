// SPDX-License-Identifier: MIT
// What the tests of the formula language share: evaluation by other ways than the compiled lists,
// and random formulas.
#pragma once

#include "mathkit/symbolic/functions.h"
#include "mathkit/symbolic/lst.h"
#include "mathkit/symbolic/nodes.h"
#include "mathkit/symbolic/postfix_list.h"
#include "mathkit/symbolic/scanexpr.h"
#include "mathkit/symbolic/simplify.h"
#include "mathkit/symbolic/subs_manager.h"

#include <cmath>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace formulas {

inline std::string repeated(const std::string& text, int times) {
    std::string result;
    while (times-- > 0)
        result += text;
    return result;
}

/// The expression of a formula, with the meanings of its names.
inline symbolic::ex parsed(const char* text) {
    symbolic::subs_manager manager;
    manager.set_math_constants();
    manager.set_experimental_functions();
    return symbolic::scanexpr(text).eval(manager.first, manager.second, -1);
}

inline symbolic::ex derived(const symbolic::ex& e) {
    return symbolic::simplify_0_1(e.diff(symbolic::var("t")));
}

/// The value at t, found on the tree: t replaced by a number and the numbers folded.
inline double tree_value(const symbolic::ex& e, double t) {
    const symbolic::ex folded = symbolic::simplify_constants(
        e.subs(symbolic::lst(symbolic::var("t")), symbolic::lst(symbolic::ex(t)), 0));
    const double* value = folded->number_value();
    return value ? *value : std::numeric_limits<double>::quiet_NaN();
}

/// The value of a compiled list.
inline double value_of(const symbolic::postfix_list& list) {
    std::vector<double> stack(static_cast<std::size_t>(list.stacksize()));
    return list.eval_double(stack.data());
}

/// A compiled expression with its variable and its stacks.
class compiled {
public:
    explicit compiled(const symbolic::ex& e) {
        e.subs(symbolic::lst(symbolic::var("t")), symbolic::lst(symbolic::ex(&cell, true)), 0)
            .compile(list);
    }
    compiled(const compiled&) = delete;
    compiled& operator=(const compiled&) = delete;

    double value(double t) {
        cell = t;
        return value_of(list);
    }
    symbolic::diffarithm both(double t) {
        cell = t;
        std::vector<symbolic::diffarithm> stack(static_cast<std::size_t>(list.stacksize()));
        return list.eval_diffarithm(stack.data());
    }

    symbolic::postfix_list list;

private:
    double cell = 0;
};

/// |a - b| against a tolerance that is relative for large values; two NaNs are equal.
inline bool is_close(double a, double b, double tolerance) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    if (a == b) return true;
    return std::fabs(a - b) <= tolerance * (1 + std::fabs(a) + std::fabs(b));
}

/// Texts over the whole language, of a given number of levels.
class random_formula {
public:
    explicit random_formula(unsigned seed) : random(seed) {}

    std::string operator()(int levels) {
        if (levels <= 0) return leaves[pick(std::size(leaves))];
        const unsigned shape = pick(std::size(shapes) + 1);
        if (shape == std::size(shapes)) return function_of((*this)(levels - 1));
        std::string text;
        for (const char c : std::string(shapes[shape]))
            text += c == 'A'   ? (*this)(levels - 1)
                    : c == 'N' ? exponents[pick(std::size(exponents))]
                    : c == 'K' ? std::to_string(int(pick(24)) - 4)
                               : std::string(1, c);
        return text;
    }

private:
    unsigned pick(std::size_t n) { return static_cast<unsigned>(random() % n); }

    std::string function_of(const std::string& argument) {
        const symbolic::function_entry& entry =
            symbolic::function_table[pick(symbolic::function_table.size())];
        const std::string rest = entry.arguments == 2 ? ",2.5)" : ")";
        return entry.name + ("(" + argument) + rest;
    }

    static constexpr const char* leaves[] = {"t", "t", "t", "2", "0.37", "pi", "1", "0.5*t"};
    static constexpr const char* exponents[] = {"2", "3", "-1", "0", "1", "0.5", "2.5", "17"};
    /// A stands for a formula of a level less, N for an exponent, K for a whole number.
    static constexpr const char* shapes[] = {"A+A",     "A-(A)", "(A)*(A)",          "(A)/(A)",
                                             "-(A)",    "(A)^N", "(1.5+sin(A))^(A)", "sin(K*t)",
                                             "cos(K*t)"};

    std::mt19937 random; // the same numbers everywhere, unlike the library's distributions
};

} // namespace formulas
