// SPDX-License-Identifier: MIT
// Tests of the manual as the program carries it.
#include "billiard/fox/help_text.h"

#include "mathkit/kit_stream.h"
#include "mathkit/symbolic/ex.h"
#include "mathkit/symbolic/functions.h"
#include "mathkit/symbolic/scanexpr.h"
#include "mathkit/tiny_izstream.h"
#include "tests/data_tables.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

namespace {

std::string carried_text() {
    kit::istringstream packed(help_text::data, help_text::size);
    tiny_izstream plain(packed.rdbuf());
    std::string text{std::istreambuf_iterator<char>(plain), {}};
    EXPECT_TRUE(plain.rdbuf()->complete());
    return text;
}

TEST(HelpText, IsTheWrittenOneInPlainAscii) {
    std::ifstream in(data_file("../../billiard/fox/help.txt"), std::ios::binary);
    const std::string text = carried_text();
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(in), {}));
    for (const char c : text)
        EXPECT_TRUE(c == '\n' || (' ' <= c && c <= '~')) << int{c};
}

TEST(HelpText, NamesTheFunctionsOfTheFormulaLanguage) {
    const std::string text = carried_text();
    const std::string heading = "Functions:\n\n";
    const std::size_t list = text.find(heading);
    ASSERT_NE(list, std::string::npos);
    const std::size_t start = list + heading.size();
    std::istringstream words(text.substr(start, text.find("\n\n", start) - start));
    std::set<std::string> listed, known;
    for (std::string word; words >> word;)
        listed.insert(word.substr(0, word.find('('))); // pow comes with its two arguments
    for (const auto& function : symbolic::function_table)
        known.emplace(function.name);
    EXPECT_EQ(listed, known);
}

TEST(HelpText, ItsExamplesAreFormulas) {
    const std::string text = carried_text();
    for (const char* formula :
         {"5+sin(t)", "3+cos(2*t)", "2+0.3*cos(t)^3", "exp(0.2*cos(t))", "1/(1+0.3*cos(t))",
          "2+cos(log(2+cos(t)))", "1+t", "5+sin(2.5*t)", "0.5+sin(t)", "5+tan(t)"}) {
        EXPECT_NE(text.find(formula), std::string::npos) << formula;
        EXPECT_NO_THROW(symbolic::scanexpr(formula)) << formula;
    }
}

} // namespace
