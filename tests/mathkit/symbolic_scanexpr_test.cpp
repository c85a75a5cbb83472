// SPDX-License-Identifier: MIT
// The formula language: what each text means, and what the error for a wrong one says.
#include "mathkit/TError.h"
#include "mathkit/symbolic/limits.h"
#include "tests/mathkit/symbolic_formulas.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

std::string repeated(const std::string& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

/// The text of the error that parsing gives, "none" if there is none.
std::string error_of(const char* text) {
    symbolic::subs_manager manager;
    manager.set_math_constants();
    manager.set_experimental_functions();
    try {
        symbolic::scanexpr(text).eval(manager.first, manager.second, -1);
    } catch (const TError& error) {
        return error.text().c_str();
    }
    return "none";
}

TEST(scanexpr, gives_texts_their_mathematical_value) {
    const double t = 1.25;
    const struct {
        const char* text;
        double value;
    } cases[] = {
        // precedence and grouping
        {"1+2*3", 7},
        {"1-2-3", -4},
        {"24/4/2", 3},
        {"2*3^2", 18},
        {"2^3^2", 512},
        {"(2^3)^2", 64},
        {"-3^2", -9},
        {"(-3)^2", 9},
        {"2^-1", 0.5},
        {"2^-2^2", 0.0625},
        {"2*-3", -6},
        {"2--3", 5},
        {"--2", 2},
        {"+-+2", -2},
        {"-2*3", -6},
        {"-t^2", -t * t},
        {"10-(4-1)", 7},
        // numbers, names, spaces
        {"1e-3", 1e-3},
        {"1E3", 1e3},
        {"2.5e+2", 250},
        {".5", 0.5},
        {"5.", 5},
        {"2*pi", 2 * std::numbers::pi},
        {"e^2", std::exp(2)},
        {"2e1*e", 20 * std::numbers::e},
        {" \t2 * ( t\n+ 1 ) ", 2 * (t + 1)},
        {"sin ( t ) ^ 2", std::sin(t) * std::sin(t)},
        // each function, where it can be told from every other one
        {"exp(t)", std::exp(t)},
        {"log(t)", std::log(t)},
        {"pow(t,3)", t * t * t},
        {"pow(2,t)", std::pow(2, t)},
        {"sqr(t)", t * t},
        {"sqrt(t)", std::sqrt(t)},
        {"sin(t)", std::sin(t)},
        {"cos(t)", std::cos(t)},
        {"tan(t)", std::tan(t)},
        {"asin(t/2)", std::asin(t / 2)},
        {"acos(t/2)", std::acos(t / 2)},
        {"atan(t)", std::atan(t)},
        {"sinh(t)", std::sinh(t)},
        {"cosh(t)", std::cosh(t)},
        {"tanh(t)", std::tanh(t)},
        {"asinh(t)", std::asinh(t)},
        {"acosh(t)", std::acosh(t)},
        {"atanh(t/2)", std::atanh(t / 2)},
        {"erf(t)", std::erf(t)},
        {"erfc(t)", std::erfc(t)},
        {"fabs(-t)", t},
        {"signum(-t)", -1},
        {"signum(0)", 0},
        {"heaviside(-t)", 0},
        {"heaviside(t)", 1},
        {"heaviside(0)", 0.5},
        {"floor(-t)", -2},
        {"ceil(-t)", -1},
        {"round(2*t)", 3},
        {"round(-2.5)", -3},
        {"trunc(-t)", -1},
        // powers that no logarithm can give
        {"(-2)^3", -8},
        {"(-2)^-3", -0.125},
        {"(-1)^17", -1},
        {"0^0", 1},
        {"(t-5)^33", std::pow(t - 5, 33)},
        {"(2*t)^-1.5", std::pow(2 * t, -1.5)},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.text);
        const symbolic::ex e = formulas::parsed(row.text);
        EXPECT_PRED3(formulas::close, formulas::tree_value(e, t), row.value, 1e-15);
        EXPECT_PRED3(formulas::close, formulas::compiled(e).value(t), row.value, 1e-14);
    }
}

TEST(scanexpr, tells_what_is_wrong_and_where) {
    const struct {
        const char* text;
        const char* error;
    } cases[] = {
        {nullptr, "the formula is empty: expected one such as 5+sin(t)"},
        {"", "the formula is empty: expected one such as 5+sin(t)"},
        {" \t", "the formula is empty: expected one such as 5+sin(t)"},
        {"5+sn(t)", "unknown name 'sn' at column 3"},
        {"5+ sn", "unknown name 'sn' at column 4"},
        {"nan", "unknown name 'nan' at column 1"},
        {"Sin(t)", "unknown name 'Sin' at column 1; 'sin' is known"},
        {"2*ln(t)", "unknown name 'ln' at column 3; 'log' is known"},
        {"5+sin(x)", "unknown name 'x' at column 7; 't' is known"},
        {"a_name_of_more_than_24_characters",
         "unknown name 'a_name_of_more_than_24_c...' at column 1"},
        {"sin(t", "missing ')' at column 6 for the '(' at column 4"},
        {"2*(t+(1-t)", "missing ')' at column 11 for the '(' at column 3"},
        {"sin(t))", "')' without '(' at column 7"},
        {"sin t", "missing '(' at column 5 after the function 'sin'"},
        {"sin", "missing '(' at column 4 after the function 'sin'"},
        {"pi(2)", "'pi' at column 1 is no function: missing operator before '('"},
        {"t(2)", "expected an operator such as '+' or '*' at column 2, but found '('"},
        {"2t", "expected an operator such as '+' or '*' at column 2, but found 't'"},
        {"t 5", "expected an operator such as '+' or '*' at column 3, but found '5'"},
        {"(t 5)", "expected an operator such as '+' or '*' at column 4, but found '5'"},
        {"5 $", "expected an operator such as '+' or '*' at column 3, but found '$'"},
        {"0,5+t", "expected an operator such as '+' or '*' at column 2, but found ',' (decimals "
                  "are written with a point)"},
        {"t=5", "expected an operator such as '+' or '*' at column 2, but found '='"},
        {"5+", "expected a number, a name or '(' at column 3, but found the end of the formula"},
        {"*5", "expected a number, a name or '(' at column 1, but found '*'"},
        {"5+*t", "expected a number, a name or '(' at column 3, but found '*'"},
        {"2**t",
         "expected a number, a name or '(' at column 3, but found '*' (a power is written '^')"},
        {"()", "expected a number, a name or '(' at column 2, but found ')'"},
        {"sin()", "expected a number, a name or '(' at column 5, but found ')'"},
        {".", "expected a number, a name or '(' at column 1, but found '.'"},
        {"_a", "expected a number, a name or '(' at column 1, but found '_a'"},
        {"5+\xc3\xa4", "expected a number, a name or '(' at column 3, but found '\\xC3'"},
        {"5\x01", "expected an operator such as '+' or '*' at column 2, but found '\\x01'"},
        {"pow(t)", "too few arguments for 'pow' at column 1: it takes 2, not 1"},
        {"1+sin(t,t)", "too many arguments for 'sin' at column 3: it takes 1, not 2"},
        {"1e999", "the number '1e999' at column 1 is too large or too small"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.text ? row.text : "null");
        EXPECT_EQ(error_of(row.text), row.error);
    }
}

TEST(scanexpr, names_the_limit_that_a_text_is_beyond) {
    const int many = 100'000;
    const struct {
        const char* what;
        std::string text;
        const char* part; ///< of the error's text
    } cases[] = {
        {"brackets", repeated("(", many) + "t" + repeated(")", many), "too long"},
        {"a megabyte", repeated("1+", 500'000) + "1", "the limit is 2000"},
        {"deep brackets", repeated("(", 900) + "t" + repeated(")", 900), "brackets"},
        {"open brackets", repeated("(", 1999), "nested too deeply"},
        {"signs and brackets", repeated("-(", 600) + "t" + repeated(")", 600), "nested too deeply"},
        {"signs", repeated("-", 1999) + "t", "nested too deeply"},
        {"powers", repeated("t^", 999) + "t", "nested too deeply"},
        {"a long sum", repeated("1+", 999) + "1", "each term of a long sum"},
        {"a long product", repeated("t*", 999) + "t", "nested too deeply"},
    };
    for (const auto& row : cases) {
        EXPECT_NE(error_of(row.text.c_str()).find(row.part), std::string::npos)
            << row.what << ": " << error_of(row.text.c_str());
    }
}

TEST(scanexpr, takes_what_people_write_at_its_longest) {
    std::string series = "5";
    for (int n = 1; n <= 100; ++n)
        series += "+0.0125*cos(" + std::to_string(n) + "*t)";
    EXPECT_EQ(error_of(series.c_str()), "none");
    EXPECT_EQ(error_of((repeated("(", 400) + "t" + repeated(")", 400)).c_str()), "none");
    EXPECT_EQ(error_of((repeated(" ", 1900) + "5+sin(t)").c_str()), "none");
}

TEST(eval, leaves_names_below_the_given_level) {
    symbolic::subs_manager manager;
    manager.set_math_constants();
    const symbolic::ex deep = symbolic::scanexpr("1+(2+unknown)");
    EXPECT_NO_THROW(deep.eval(manager.first, manager.second, 1));
    EXPECT_THROW(deep.eval(manager.first, manager.second, -1), TError);
    EXPECT_THROW(symbolic::scanexpr("unknown").diff(symbolic::var("t")), TError);
}

} // namespace
