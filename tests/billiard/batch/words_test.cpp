// SPDX-License-Identifier: MIT
// The pure parts of the command line: numbers, names, ranges, random numbers, parts, colours.
#include "billiard/batch/colour_map.h"
#include "billiard/batch/nearest_name.h"
#include "billiard/batch/number_text.h"
#include "billiard/batch/random_stream.h"
#include "billiard/batch/row_job.h"
#include "billiard/batch/user_words.h"
#include "billiard/batch/value_range.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

using namespace batch;

TEST(NumberText, WritesTheShortestFormThatReadsBack) {
    const std::pair<double, const char*> cases[] = {
        {0.1, "0.1"},
        {-0.25, "-0.25"},
        {1e-300, "1e-300"},
        {5e-324, "5e-324"},
        {1e22, "1e+22"},
        {2.0 / 3, "0.6666666666666666"},
        {123456789, "123456789"},
        {std::nan(""), "nan"},
        {-std::nan(""), "nan"},
    };
    for (const auto& [x, text] : cases) {
        EXPECT_EQ(real_text(x), text);
        EXPECT_EQ(parse_real(text), std::isnan(x) ? std::optional<double>{} : x);
    }
    const double longest = -std::numeric_limits<double>::min() * (1 + 0x1p-52);
    EXPECT_LT(real_text(longest).size(), std::size_t{longest_number});
}

// Beside the library's way: numbers of all sizes, with many binary digits, few, or few decimals.
TEST(NumberText, IsTheSameByTheQuickWay) {
    for (std::uint64_t i = 0; i < 300'000; ++i) {
        std::uint64_t bits = splitmix64(1, i);
        const std::uint64_t dice = splitmix64(2, i);
        const std::uint64_t exponent = 1023 - 12 + dice % 32;
        if (dice % 64 != 0) bits = (bits & 0x800f'ffff'ffff'ffff) | exponent << 52;
        if (dice & 0x100) bits &= ~std::uint64_t{0} << dice / 512 % 53;
        double x = std::bit_cast<double>(bits);
        if ((dice & 0xc00) == 0) x = std::round(x * 1e6) / 1e6;
        if (std::isnan(x)) continue;
        char text[longest_number];
        const std::string expected(text, std::to_chars(text, text + longest_number, x).ptr);
        ASSERT_EQ(real_text(x), expected);
    }
}

TEST(ValueRange, HasBothEndsAndShortDecimals) {
    const value_range range = parse_range("1.5..6/46", "c");
    EXPECT_EQ(range.count, 46);
    EXPECT_EQ(range.at(0), 1.5);
    EXPECT_EQ(range.at(1), 1.6);
    EXPECT_EQ(range.at(2), 1.7);
    EXPECT_EQ(range.at(45), 6);
    EXPECT_EQ(parse_range("-1..1/3", "c").at(1), 0);
    EXPECT_EQ(parse_range("1e308..1.5e308/3", "c").at(1), 1.25e308);
    EXPECT_EQ(parse_range("2..2/1", "c").count, 1);
}

TEST(NearestName, ForgivesASlipAndNoMore) {
    const std::vector<std::string_view> names = {"ellipse", "oval-a", "stadium", "c"};
    const std::pair<const char*, const char*> cases[] = {
        {"elipse", "ellipse"},
        {"elilpse", "ellipse"},
        {"stadion", "stadium"},
        {"oval_a", "oval-a"},
        {"x", ""},
        {"", ""},
        {"polygon", ""},
    };
    for (const auto& [typed, meant] : cases)
        EXPECT_EQ(nearest_name(typed, names), meant) << typed;
}

TEST(UserWords, AreOneWordOfAShell) {
    const std::pair<const char*, const char*> cases[] = {
        {"oval-a:c=5", "oval-a:c=5"},
        {"", "''"},
        {"a b", "'a b'"},
        {"5+sin(t)", "'5+sin(t)'"},
        {"it's", "$'it\\'s'"},
        {"a\nb", "$'a\\x0ab'"},
    };
    for (const auto& [word, text] : cases)
        EXPECT_EQ(shell_word(word), text);
}

// The values that the authors' own program gives for this seed.
TEST(RandomStream, IsSplitmix64) {
    const std::uint64_t expected[] = {6457827717110365317u, 3203168211198807973u,
                                      9817491932198370423u, 4593380528125082431u};
    for (std::uint64_t i = 0; i < 4; ++i)
        EXPECT_EQ(splitmix64(1234567, i), expected[i]);
    EXPECT_EQ(uniform(0), 0x1p-53);
    EXPECT_EQ(uniform(~std::uint64_t{0}), 1 - 0x1p-53);
}

TEST(Shard, PartsJoinWithoutGap) {
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t count : {std::int64_t{0}, std::int64_t{1}, std::int64_t{10}, largest}) {
        std::int64_t end = 0, least = largest, most = 0;
        for (std::int64_t part = 0; part < 7; ++part) {
            const shard s{part, 7};
            EXPECT_EQ(s.begin(count), end);
            end = s.end(count);
            least = std::min(least, end - s.begin(count));
            most = std::max(most, end - s.begin(count));
        }
        EXPECT_EQ(end, count);
        EXPECT_LE(most - least, 1);
    }
}

namespace {

// The colour as the eye's lightness and two axes, from what is on the screen.
std::array<double, 3> oklab(const rgb& colour) {
    const auto linear = [](double level) {
        return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
    };
    const double r = linear(colour[0] / 255.0), g = linear(colour[1] / 255.0),
                 b = linear(colour[2] / 255.0);
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

} // namespace

// Over ten colours, so that the rounding to whole levels of the screen counts little.
TEST(ColourMap, StepsLookEvenAndLighten) {
    const auto& colours = colour_map();
    double least = 1, most = 0;
    for (std::size_t i = 10; i < colours.size(); ++i) {
        const auto a = oklab(colours[i - 10]), b = oklab(colours[i]);
        const double step = std::hypot(b[0] - a[0], b[1] - a[1], b[2] - a[2]);
        least = std::min(least, step);
        most = std::max(most, step);
        EXPECT_GT(b[0], a[0] + 0.01) << i;
    }
    EXPECT_LT(most, 1.2 * least);
}

TEST(ColourMap, GivesEachValueItsPlace) {
    EXPECT_EQ(colour_index(1, 1, 2), 0);
    EXPECT_EQ(colour_index(2, 1, 2), colour_count - 1);
    EXPECT_EQ(colour_index(1.5, 1, 2), colour_count / 2);
    EXPECT_EQ(colour_index(-HUGE_VAL, 1, 2), 0);
    EXPECT_EQ(colour_index(HUGE_VAL, 1, 2), colour_count - 1);
    EXPECT_EQ(colour_index(3, 3, 3), 0);
    EXPECT_EQ(colour_index(std::nan(""), 1, 2), -1);
}
