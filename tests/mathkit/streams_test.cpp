// SPDX-License-Identifier: MIT
// Streams on memory and the inflating stream, whole, damaged and cut short.
#include "mathkit/TError.h"
#include "mathkit/kit_stream.h"
#include "mathkit/tiny_izstream.h"

#include <gtest/gtest.h>

#include <zlib.h>

#include <random>
#include <string>

namespace {

std::string packed(const std::string& plain) {
    uLongf size = compressBound(plain.size());
    std::string bytes(size, '\0');
    compress2(reinterpret_cast<Bytef*>(bytes.data()), &size,
              reinterpret_cast<const Bytef*>(plain.data()), plain.size(), 9);
    bytes.resize(size);
    return bytes;
}

// Text that doesn't pack well, so that packed and plain bytes cross several buffers.
std::string noise(std::size_t length) {
    std::mt19937 random(7);
    std::string text(length, ' ');
    for (char& c : text)
        c = static_cast<char>(random());
    return text;
}

std::string written(const kit::ostringstream& stream) {
    return std::string(stream.data() ? stream.data() : "", stream.size());
}

TEST(Ostringstream, CollectsGrowsAndStartsAnew) {
    kit::ostringstream out;
    EXPECT_TRUE(out.size() == 0 && out.str().is_empty());
    out << "S = " << 0.5 << ", n = " << 1000 << std::endl;
    out.put('\0');
    EXPECT_STREQ(out.data(), "S = 0.5, n = 1000\n");
    out.rdbuf()->reset(1024);
    EXPECT_EQ(out.size(), 0u);
    out << "next page" << '\0';
    EXPECT_STREQ(out.str(), "next page");
    out.rdbuf()->reset(0);
    std::string expected;
    const std::string block = noise(3000);
    for (int i = 0; i < 300; ++i) {
        out.put(static_cast<char>(i));
        out.write(block.data(), std::streamsize(i) * 10);
        expected += static_cast<char>(i);
        expected.append(block, 0, static_cast<std::size_t>(i) * 10);
    }
    EXPECT_TRUE(out.good());
    EXPECT_TRUE(written(out) == expected);
}

TEST(Istringstream, ReadsAndSeeks) {
    kit::istringstream in("12 0.5 orbit", 12);
    double n = 0, s = 0;
    std::string word;
    in >> n >> s >> word;
    EXPECT_TRUE(n == 12 && s == 0.5 && word == "orbit");
    EXPECT_EQ(in.get(), EOF);
    in.clear();
    EXPECT_EQ(in.rdbuf()->pubseekoff(-5, std::ios::end, std::ios::in), 7);
    EXPECT_TRUE(in >> word && word == "orbit");
    in.clear();
    in.seekg(3);
    EXPECT_TRUE(in.peek() == '0' && in.tellg() == 3);
    in.seekg(100);
    EXPECT_TRUE(in.fail());
    EXPECT_EQ(in.rdbuf()->pubseekoff(-1, std::ios::beg, std::ios::in), -1);
    EXPECT_EQ(in.rdbuf()->pubseekoff(0, std::ios::beg, std::ios::out), -1);
    kit::istringstream nothing(nullptr, 0);
    EXPECT_EQ(nothing.get(), EOF);
}

TEST(TinyIzstream, GivesBackWhatWasPacked) {
    for (const std::string& plain : {std::string(), std::string("Help\n"), std::string(100000, 'a'),
                                     noise(4096), noise(50000)}) {
        const std::string bytes = packed(plain) + "trailing bytes";
        kit::istringstream source(bytes.data(), static_cast<unsigned>(bytes.size()));
        tiny_izstream in(source.rdbuf());
        kit::ostringstream out;
        if (!plain.empty()) out << in.rdbuf();
        EXPECT_EQ(in.get(), EOF);
        EXPECT_TRUE(in.rdbuf()->complete());
        EXPECT_TRUE(written(out) == plain) << plain.size();
    }
}

// Every way of reading ends; what was given before the damage is a piece of the original or, at
// worst, ends in TError: never a crash, never silence.
void expect_damage(const std::string& bytes, std::size_t limit) {
    kit::istringstream source(bytes.data(), static_cast<unsigned>(bytes.size()));
    tiny_izbuf in(source.rdbuf());
    std::size_t count = 0;
    const auto read_all = [&] {
        while (in.sbumpc() != EOF && count < limit)
            ++count;
    };
    EXPECT_THROW(read_all(), TError);
    EXPECT_TRUE(count < limit && !in.complete());
    EXPECT_THROW(in.sgetc(), TError);
}

TEST(TinyIzstream, ReportsDamage) {
    const std::string plain = noise(6000);
    const std::string bytes = packed(plain);
    for (std::size_t length = 0; length < bytes.size(); length += 97)
        expect_damage(bytes.substr(0, length), 100000); // cut short
    expect_damage(bytes.substr(0, bytes.size() - 1), 100000);
    // Its head, and places that the checksum at the end tells.
    for (std::size_t at = 0; at < bytes.size(); at += at < 2 ? 1 : 211) {
        std::string broken = bytes;
        broken[at] = static_cast<char>(broken[at] ^ 0x55);
        expect_damage(broken, 1000000);
    }
    expect_damage("this is no zlib stream", 100);
    expect_damage("\x78\xbb wants a dictionary", 100);
}

TEST(TinyIzstream, DamageIsBadbitToStreamOperations) {
    kit::istringstream source("no zlib stream", 14);
    tiny_izstream in(source.rdbuf());
    std::string word;
    EXPECT_FALSE(in >> word);
    EXPECT_TRUE(in.bad());
    tiny_izbuf no_source(nullptr);
    EXPECT_THROW(no_source.sgetc(), TError);
}

} // namespace
