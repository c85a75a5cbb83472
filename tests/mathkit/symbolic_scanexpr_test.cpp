// SPDX-License-Identifier: MIT
// The formula language: what each text means, and what the error for a wrong one says.
#include "mathkit/TError.h"
#include "mathkit/symbolic/limits.h"
#include "tests/data_tables.h"
#include "tests/mathkit/symbolic_formulas.h"

#include <gtest/gtest.h>

namespace {

using formulas::repeated;

/// The text of the error that parsing gives, "none" if there is none.
std::string error_of(const char* text) {
    try {
        formulas::parsed(text);
    } catch (const TError& error) {
        return error.text().c_str();
    }
    return "none";
}

TEST(Scanexpr, TellsWhatIsWrongAndWhere) {
    for (const data_row& row : read_data_table("formula_errors.csv"))
        EXPECT_EQ(error_of(row.text("text").c_str()), row.text("error")) << row.text("text");
    for (const char* nothing : {static_cast<const char*>(nullptr), "", " \t"})
        EXPECT_EQ(error_of(nothing), "the formula is empty: expected one such as 5+sin(t)");
    EXPECT_EQ(error_of("5\x01"),
              "expected an operator such as '+' or '*' at column 2, but found '\\x01'");
    EXPECT_EQ(error_of("t,5"),
              "expected an operator such as '+' or '*' at column 2, but found ','");
    EXPECT_EQ(error_of("1+\t(\nt)"), "none");
}

TEST(Scanexpr, NamesTheLimitThatATextIsBeyond) {
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

TEST(Scanexpr, TakesWhatPeopleWriteAtItsLongest) {
    std::string series = "5";
    for (int n = 1; n <= 100; ++n)
        series += "+0.0125*cos(" + std::to_string(n) + "*t)";
    EXPECT_EQ(error_of(series.c_str()), "none");
    // What was open before counts no more.
    const std::string closed = repeated("log((t)^-1)+", 95), brackets = repeated("(", 410);
    EXPECT_EQ(error_of((closed + brackets + "t" + repeated(")", 410)).c_str()), "none");
    EXPECT_EQ(error_of((repeated(" ", 1900) + "5+sin(t)").c_str()), "none");
}

TEST(Eval, LeavesNamesBelowTheGivenLevel) {
    symbolic::subs_manager manager;
    manager.set_math_constants();
    const symbolic::ex deep = symbolic::scanexpr("1+(2+unknown(t))");
    EXPECT_NO_THROW(deep.eval(manager.first, manager.second, 1));
    EXPECT_THROW(deep.eval(manager.first, manager.second, -1), TError);
    // What has no meaning yet can be carried along, but not used.
    const symbolic::var t("t");
    const symbolic::function_symbol sine(*symbolic::find_function("sin"));
    for (const symbolic::ex& e :
         {symbolic::scanexpr("unknown"), symbolic::scanexpr("unknown(t)"), symbolic::ex(sine)}) {
        symbolic::postfix_list list;
        EXPECT_THROW(e.diff(t), TError);
        EXPECT_THROW(e.compile(list), TError);
        EXPECT_NO_THROW(e.subs(symbolic::lst(t), symbolic::lst(symbolic::ex(1)), 0));
    }
    manager.set_experimental_functions();
    const symbolic::ex bare = symbolic::unresolved_name("sin", 1);
    EXPECT_THROW(bare.eval(manager.first, manager.second, -1), TError);
}

} // namespace
