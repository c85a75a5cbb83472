// SPDX-License-Identifier: MIT
// Derivatives, simplification and compiled lists, each against another way to the same number.
#include "mathkit/TError.h"
#include "mathkit/symbolic/postfix_compiler.h"
#include "tests/mathkit/symbolic_formulas.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using formulas::close;
using formulas::compiled;
using formulas::derived;
using formulas::parsed;
using formulas::tree_value;

/// Central difference of e at t, extrapolated; NaN where two steps disagree, as beside a jump.
double central_difference(const symbolic::ex& e, double t) {
    const auto slope = [&](double h) {
        return (tree_value(e, t + h) - tree_value(e, t - h)) / (2 * h);
    };
    const double wide = slope(2e-4), narrow = slope(1e-4);
    if (!close(wide, narrow, 1e-5)) return std::numeric_limits<double>::quiet_NaN();
    return narrow + (narrow - wide) / 3;
}

/// Both derivatives of every function at points of its domain. The inner function is no line, so
/// that the chain rule counts in the second derivative too.
TEST(diff, agrees_with_central_differences_for_every_function) {
    const std::map<std::string, std::string> inner = {
        {"acosh", "1.5+t+0.3*sin(2*t)"}, {"asin", "0.6*sin(t)"},
        {"acos", "0.6*sin(t)"},          {"atanh", "0.6*sin(t)"},
        {"log", "1.5+t+0.3*sin(2*t)"},   {"sqrt", "1.5+t+0.3*sin(2*t)"}};
    for (const symbolic::function_entry& entry : symbolic::function_table) {
        const auto special = inner.find(entry.name);
        const std::string argument = special == inner.end() ? "t^2/2-0.8*t" : special->second;
        const std::string exponent = entry.arguments == 2 ? ",3" : "";
        std::string text = entry.name;
        text += "(" + argument + exponent + ")";
        SCOPED_TRACE(text);
        const symbolic::ex e0 = parsed(text), e1 = derived(e0), e2 = derived(e1);
        for (const double t : {0.3, 0.7, 1.1, 1.9, 2.3}) {
            EXPECT_NEAR(tree_value(e1, t), central_difference(e0, t), 1e-6) << "t = " << t;
            EXPECT_NEAR(tree_value(e2, t), central_difference(e1, t), 1e-6) << "t = " << t;
            EXPECT_PRED3(close, compiled(e0).both(t).derivative, tree_value(e1, t), 1e-12);
            EXPECT_PRED3(close, compiled(e1).both(t).derivative, tree_value(e2, t), 1e-12);
        }
    }
}

TEST(diff, of_powers_needs_no_logarithm_where_the_exponent_is_constant) {
    const struct {
        const char* text;
        double t;
        double first, second;
    } cases[] = {
        {"(t-2)^3", 1, 3, -6},
        {"(t-2)^3", 2, 0, 0},
        {"(t-2)^2", 2, 0, 2},
        {"(t-2)^1", 2, 1, 0},
        {"(t-2)^0", 2, 0, 0},
        {"(t-2)^-2", 1, 2, 6},
        {"pow(t-3,1+1)", 3, 0, 2},
        {"pow(-t,2*2)", 1, 4, 12},
        {"(t-3)^floor(2.5)", 3, 0, 2},
        {"(t-3)^20", 2, -20, 380},
        {"(-2)^(1+2)*t", 5, -8, 0},
        {"t^pi", 1, 3.141592653589793, 6.728011747499565},
        {"2^t", 0, std::log(2), std::log(2) * std::log(2)},
        {"e^t", 0, 1, 1},
        {"t^t", 1, 1, 2},
        {"0^t", 1, 0, 0},
        {"1^t", 1, 0, 0},
        {"1/0", 1, 0, 0},
        {"fabs(t-2)", 1, -1, 0},
        {"fabs(t-2)*t", 3, 4, 2},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.text);
        const symbolic::ex e0 = parsed(row.text), e1 = derived(e0), e2 = derived(e1);
        EXPECT_PRED3(close, tree_value(e1, row.t), row.first, 1e-14);
        EXPECT_PRED3(close, tree_value(e2, row.t), row.second, 1e-14);
        EXPECT_PRED3(close, compiled(e1).value(row.t), row.first, 1e-14);
        EXPECT_PRED3(close, compiled(e2).value(row.t), row.second, 1e-14);
        EXPECT_PRED3(close, compiled(e0).both(row.t).derivative, row.first, 1e-14);
    }
}

TEST(diff, takes_other_variables_and_cells_for_constants) {
    double cell = 3;
    const symbolic::var t("t"), u("u");
    const symbolic::ex e = symbolic::mul(symbolic::mul(t, u), symbolic::ex(&cell, false));
    const symbolic::ex by_t = e.diff(t).subs(symbolic::lst(u), symbolic::lst(symbolic::ex(5)), 0);
    symbolic::postfix_list list;
    by_t.compile(list);
    std::vector<double> stack(static_cast<std::size_t>(list.stacksize()));
    EXPECT_EQ(list.eval_double(stack.data()), 15);
    cell = 4;
    EXPECT_EQ(list.eval_double(stack.data()), 20);
    EXPECT_THROW(e.compile(list), TError); // t and u have no value
}

/// Magnitude up to which a sum of rounding errors stays below the tolerances of the next test.
constexpr double tame = 1e4;

/// Random formulas over the whole language: the tree and the compiled list, the symbolic
/// derivative, forward differentiation and central differences, all against each other.
TEST(random_formulas, give_the_same_numbers_on_every_way) {
    const unsigned seed = 20240611;
    SCOPED_TRACE(seed);
    formulas::random_formula next(seed);
    int checked = 0;
    for (int i = 0; i < 3000; ++i) {
        const std::string text = next(2 + i % 3);
        const symbolic::ex e0 = parsed(text);
        const symbolic::ex raw = e0.diff(symbolic::var("t"));
        const symbolic::ex e1 = symbolic::simplify_0_1(raw);
        compiled value(e0), slope(e1);
        for (const double t : {0.31, 1.27, 2.9, 4.4}) {
            const double r = tree_value(e0, t), dr = tree_value(e1, t);
            if (!(std::fabs(r) < tame) || !(std::fabs(dr) < tame)) continue;
            const double difference = central_difference(e0, t);
            if (std::isnan(difference)) continue; // ill-conditioned, or beside a jump
            SCOPED_TRACE(text + " at " + std::to_string(t));
            ++checked;
            ASSERT_PRED3(close, value.value(t), r, 1e-10);
            ASSERT_PRED3(close, tree_value(symbolic::simplify_0_1(e0), t), r, 1e-10);
            ASSERT_PRED3(close, tree_value(symbolic::simplify_constants(e0), t), r, 1e-10);
            ASSERT_PRED3(close, slope.value(t), dr, 1e-9);
            const double unsimplified = tree_value(raw, t);
            if (std::isfinite(unsimplified)) {
                ASSERT_PRED3(close, unsimplified, dr, 1e-9);
            }
            ASSERT_PRED3(close, value.both(t).value, r, 1e-10);
            ASSERT_PRED3(close, value.both(t).derivative, dr, 1e-8);
            ASSERT_PRED3(close, difference, dr, 1e-4);
        }
    }
    EXPECT_GT(checked, 3000);
}

/// A list of two results that is given sine and cosine, on formulas that are made of them.
TEST(postfix_compiler, computes_two_results_from_given_sine_and_cosine) {
    const char* const texts[] = {"5+sin(t)",
                                 "t",
                                 "7",
                                 "cos(t)*sin(t)",
                                 "sin(t)+sin(2*t)+sin(3*t)+cos(4*t)+sin(7*t)+cos(16*t)",
                                 "sin(-3*t)+cos(-5*t)+sin(17*t)+sin(0*t)",
                                 "cos(2.5*t)+sin(2.5*t)*t+sin(t+1)",
                                 "exp(sin(t))/(2+cos(t))+(2+cos(t))*sin(t)"};
    for (const char* const text : texts) {
        SCOPED_TRACE(text);
        double cell = 0;
        const symbolic::lst variable(symbolic::var("t")), place(symbolic::ex(&cell, true));
        const symbolic::ex e0 = parsed(text), e1 = derived(e0);
        symbolic::postfix_compiler compiler;
        compiler.take_sine_and_cosine();
        compiler.result(e0.subs(variable, place, 0));
        compiler.result(e1.subs(variable, place, 0));
        const symbolic::postfix_list list = compiler.finish();
        std::vector<double> stack(static_cast<std::size_t>(list.stacksize()));
        for (int i = 0; i < 10; ++i) {
            cell = 0.7 * i;
            double r = 0, dr = 0;
            list.eval_pair(stack.data(), std::sin(cell), std::cos(cell), r, dr);
            EXPECT_PRED3(close, r, tree_value(e0, cell), 1e-14);
            EXPECT_PRED3(close, dr, tree_value(e1, cell), 1e-13);
        }
    }
}

/// Steps of the compiled list: what is equal is computed once, what is constant not at all.
TEST(postfix_list, is_as_short_as_the_formula_allows) {
    const struct {
        const char* text;
        int steps; ///< with the closing one, which takes a last sum with a number
    } cases[] = {{"3", 2},
                 {"1+2*3", 2},
                 {"t", 2},
                 {"5+sin(t)", 2},
                 {"5+sin(3*t)", 2},
                 {"2*t+1", 2},
                 {"exp(sin(t))*exp(sin(t))", 4},
                 {"sin(t)/cos(t)", 3},
                 {"-(-t)", 2}};
    for (const auto& row : cases) {
        EXPECT_EQ(compiled(parsed(row.text)).list.length(), row.steps) << row.text;
    }
    const symbolic::postfix_list empty;
    EXPECT_EQ(empty.eval_double(nullptr), 0);
}

TEST(ex, keeps_shared_parts_shared) {
    // Without sharing, each level doubles the work: 2^200 operations.
    symbolic::ex e = symbolic::var("t");
    for (int i = 0; i < 200; ++i)
        e = symbolic::mul(symbolic::ex(0.5), symbolic::add(e, e));
    EXPECT_EQ(tree_value(e, 3), 3);
    EXPECT_EQ(tree_value(derived(derived(symbolic::mul(e, e))), 3), 2);
    EXPECT_LT(compiled(e).list.length(), 1000);
}

TEST(ex, refuses_to_grow_without_bound_and_gives_everything_back) {
    for (int round = 0; round < 3; ++round) {
        std::vector<symbolic::ex> many;
        const auto fill = [&] {
            for (;;)
                many.emplace_back(1.5);
        };
        EXPECT_THROW(fill(), TError);
        EXPECT_GT(many.size(), 50'000U);
    }
}

} // namespace
