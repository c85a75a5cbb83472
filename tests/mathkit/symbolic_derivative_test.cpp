// SPDX-License-Identifier: MIT
// Derivatives, simplification and compiled lists, each against another way to the same number.
#include "mathkit/TError.h"
#include "mathkit/symbolic/postfix_compiler.h"
#include "tests/data_tables.h"
#include "tests/mathkit/symbolic_formulas.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace {

using namespace formulas;

/// Central difference of e at t, extrapolated; NaN where two steps disagree, as beside a jump.
double central_difference(const symbolic::ex& e, double t) {
    const auto slope = [&](double h) {
        return (tree_value(e, t + h) - tree_value(e, t - h)) / (2 * h);
    };
    const double wide = slope(2e-4), narrow = slope(1e-4);
    if (!is_close(wide, narrow, 1e-5)) return std::numeric_limits<double>::quiet_NaN();
    return narrow + (narrow - wide) / 3;
}

/// Values and both derivatives that were computed by other means, on every road to them.
TEST(Formulas, HaveTheirMathematicalValuesAndDerivatives) {
    std::string chained;
    for (const data_row& row : read_data_table("formulas.csv")) {
        const std::string& text = row.text("text");
        SCOPED_TRACE(text);
        const double t = row.number("t");
        const symbolic::ex e0 = parsed(text.c_str()), e1 = derived(e0), e2 = derived(e1);
        const auto expect = [&](const char* column, std::initializer_list<double> seen) {
            if (row.text(column).empty()) return;
            for (const double value : seen)
                EXPECT_PRED3(is_close, value, row.number(column), 1e-13) << column;
        };
        expect("value", {tree_value(e0, t), compiled(e0).value(t), compiled(e0).both(t).value});
        expect("first",
               {tree_value(e1, t), compiled(e1).value(t), compiled(e0).both(t).derivative});
        expect("second",
               {tree_value(e2, t), compiled(e2).value(t), compiled(e1).both(t).derivative});
        if (t == 0.7) chained += text; // of no line, so that the chain rule counts twice
    }
    for (const symbolic::function_entry& entry : symbolic::function_table)
        EXPECT_NE(chained.find(std::string(entry.name) + "("), std::string::npos) << entry.name;
}

TEST(Diff, TakesOtherVariablesAndCellsForConstants) {
    double cell = 3;
    const symbolic::var t("t"), u("u");
    const symbolic::ex e = symbolic::mul(symbolic::mul(t, u), symbolic::ex(&cell, false));
    const symbolic::ex by_t = e.diff(t).subs(symbolic::lst(u), symbolic::lst(symbolic::ex(5)), 0);
    symbolic::postfix_list list, both;
    by_t.compile(list);
    EXPECT_EQ(value_of(list), 15);
    cell = 4;
    EXPECT_EQ(value_of(list), 20);
    EXPECT_THROW(e.compile(list), TError); // t and u have no value
    double other = 5;
    const symbolic::ex fixed(&cell, false), free(&other, true), again(&cell, false);
    symbolic::ex(symbolic::mul(symbolic::mul(fixed, free), again)).compile(both);
    EXPECT_EQ(value_of(both), 80);
}

/// Magnitude up to which a sum of rounding errors stays below the tolerances of the next test.
constexpr double tame = 1e4;

/// Random formulas over the whole language: the tree and the compiled list, the symbolic
/// derivative, forward differentiation and central differences, all against each other.
TEST(RandomFormulas, GiveTheSameNumbersOnEveryWay) {
    random_formula next(3); // a seed whose formulas are finite on all ways
    int checked = 0;
    for (int i = 0; i < 3000; ++i) {
        const std::string text = next(2 + i % 3);
        const symbolic::ex e0 = parsed(text.c_str());
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
            const auto both = value.both(t);
            for (const double same :
                 {value.value(t), both.value, tree_value(symbolic::simplify_0_1(e0), t),
                  tree_value(symbolic::simplify_constants(e0), t)})
                ASSERT_PRED3(is_close, same, r, 1e-10);
            ASSERT_PRED3(is_close, slope.value(t), dr, 1e-9);
            ASSERT_PRED3(is_close, both.derivative, dr, 1e-8);
            ASSERT_PRED3(is_close, difference, dr, 1e-4);
            const double unsimplified = tree_value(raw, t);
            ASSERT_TRUE(!std::isfinite(unsimplified) || is_close(unsimplified, dr, 1e-9));
        }
    }
    EXPECT_GT(checked, 3000);
}

/// Sine and cosine are given of the variable alone, also where another cell's come first.
TEST(PostfixCompiler, KeepsTheGivenSineToItsVariable) {
    double cell = 0.7, other = 0.3;
    const symbolic::ex e = parsed("sin(t)+cos(2*t)");
    const auto at = [&](double& place, bool variable) {
        return e.subs(symbolic::lst(symbolic::var("t")),
                      symbolic::lst(symbolic::ex(&place, variable)), 0);
    };
    symbolic::postfix_compiler compiler;
    compiler.take_sine_and_cosine();
    compiler.result(symbolic::add(at(other, false), at(cell, true)));
    const symbolic::postfix_list list = compiler.finish();
    std::vector<double> stack(static_cast<std::size_t>(list.stacksize()));
    EXPECT_PRED3(is_close, list.eval_angle(stack.data(), std::sin(cell), std::cos(cell)),
                 tree_value(e, cell) + tree_value(e, other), 1e-14);
}

/// Steps of the compiled list: what is equal is computed once, what is constant not at all.
TEST(PostfixList, IsAsShortAsTheFormulaAllows) {
    // With the closing step, which takes a last sum with a number.
    for (const char* two : {"3", "1+2*3", "t", "5+sin(t)", "5+sin(3*t)", "2*t+1", "-(-t)"})
        EXPECT_EQ(compiled(parsed(two)).list.length(), 2) << two;
    EXPECT_EQ(compiled(parsed("sin(t)/cos(t)")).list.length(), 3);
    EXPECT_EQ(compiled(parsed("exp(sin(t))*exp(sin(t))")).list.length(), 4);
    const symbolic::postfix_list empty;
    EXPECT_EQ(empty.eval_double(nullptr), 0);
}

TEST(Ex, KeepsSharedPartsShared) {
    // Without sharing, each level doubles the work: 2^200 operations.
    symbolic::ex e = symbolic::var("t");
    for (int i = 0; i < 200; ++i)
        e = symbolic::mul(symbolic::ex(0.5), symbolic::add(e, e));
    EXPECT_EQ(tree_value(e, 3), 3);
    EXPECT_EQ(tree_value(derived(derived(symbolic::mul(e, e))), 3), 2);
    EXPECT_LT(compiled(e).list.length(), 1000);
}

TEST(Ex, RefusesToGrowWithoutBoundAndGivesEverythingBack) {
    for (int round = 0; round < 3; ++round) {
        std::vector<symbolic::ex> many;
        EXPECT_THROW(for (;;) many.emplace_back(1.5), TError);
        EXPECT_GT(many.size(), 50'000U);
    }
}

} // namespace
