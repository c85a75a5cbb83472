// SPDX-License-Identifier: MIT
// Tests of the manual as the program carries it.
#include "billiard/fox/help_text.h"

#include "mathkit/kit_stream.h"
#include "mathkit/symbolic/functions.h"
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

} // namespace
