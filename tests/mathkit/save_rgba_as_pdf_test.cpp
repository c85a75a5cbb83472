// SPDX-License-Identifier: MIT
// PDF pictures, read back by a small reader of their own structure.
#include "mathkit/save_rgba_as_pdf.h"

#include "mathkit/kit_stream.h"
#include "mathkit/tiny_izstream.h"
#include "tests/folder.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>
#include <vector>

namespace {

// The bytes of object `number`, found through the file's table of objects.
std::string object(const std::string& pdf, int number) {
    const std::size_t table = std::stoul(pdf.substr(pdf.rfind("startxref") + 10));
    EXPECT_EQ(pdf.compare(table, 5, "xref\n"), 0);
    const std::size_t first = pdf.find("0000000000 65535", table);
    const std::size_t start = std::stoul(pdf.substr(first + 20 * std::size_t(number), 10));
    const std::string head = std::to_string(number) + " 0 obj\n";
    EXPECT_EQ(pdf.compare(start, head.size(), head), 0) << "object " << number;
    const std::size_t body = start + head.size();
    return pdf.substr(body, pdf.find("endobj", body) - body);
}

std::string inflated_picture(const std::string& pdf) {
    const std::size_t length = std::stoul(object(pdf, 6));
    const std::size_t start = pdf.find("stream\n", pdf.find("/Subtype /Image")) + 7;
    EXPECT_EQ(pdf.compare(start + length, 10, "\nendstream"), 0);
    kit::istringstream source(pdf.data() + start, static_cast<unsigned>(length));
    tiny_izstream in(source.rdbuf());
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(Pdf, HoldsThePictureRowByRow) {
    const folder place;
    const std::string name = place / "picture.pdf";
    for (const auto& [w, h, box] : {std::tuple(1, 1, "[0 0 1.0000 1.0000]"),
                                    {7, 3, "[0 0 7.0000 3.0000]"},
                                    {300, 200, "[0 0 300.0000 200.0000]"},
                                    {28800, 2, "[0 0 14400.0000 1.0000]"}}) {
        std::mt19937 random(11);
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(w) * h);
        std::string expected;
        for (std::uint32_t& pixel : pixels) {
            pixel = random();
            for (int shift : {0, 8, 16})
                expected += static_cast<char>(pixel >> shift);
        }
        save_rgba_as_pdf(name.c_str(), w, h, pixels.data());
        const std::string pdf = content_of(name);
        EXPECT_EQ(pdf.compare(0, 5, "%PDF-"), 0);
        EXPECT_EQ(pdf.substr(pdf.size() - 6), "%%EOF\n");
        EXPECT_NE(object(pdf, 3).find(box), std::string::npos) << object(pdf, 3);
        EXPECT_TRUE(inflated_picture(pdf) == expected) << w << " x " << h;
    }
    const std::vector<std::uint32_t> white(1000000, 0xffffffff);
    save_rgba_as_pdf(name.c_str(), 1000, 1000, white.data());
    EXPECT_LT(content_of(name).size(), 20000u) << "not compressed";
}

TEST(Pdf, WritesNothingWhereNothingCanBeWritten) {
    const folder place;
    const std::uint32_t pixel = 0xff112233;
    const std::string old = put_file(place / "old.pdf", "old");
    save_rgba_as_pdf(old.c_str(), 0, 1, &pixel);
    save_rgba_as_pdf(old.c_str(), 1, -1, &pixel);
    save_rgba_as_pdf(old.c_str(), 1, 1, nullptr);
    save_rgba_as_pdf(nullptr, 1, 1, &pixel);
    EXPECT_EQ(content_of(old), "old");
    save_rgba_as_pdf((place / "missing/new.pdf").c_str(), 1, 1, &pixel);
    save_rgba_as_pdf(place.path.c_str(), 1, 1, &pixel); // a directory
    EXPECT_FALSE(std::filesystem::exists(place / "missing"));
    save_rgba_as_pdf("/dev/full", 1, 1, &pixel); // a full disk is survived, in silence
    const std::string odd = place / "50%s%n \"\xC3\xBC\".pdf";
    save_rgba_as_pdf(odd.c_str(), 1, 1, &pixel);
    EXPECT_TRUE(std::filesystem::exists(odd));
}

} // namespace
