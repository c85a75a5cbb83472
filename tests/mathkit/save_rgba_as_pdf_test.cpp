// SPDX-License-Identifier: MIT
// PDF pictures, read back by a small reader of their own structure.
#include "mathkit/save_rgba_as_pdf.h"

#include "mathkit/kit_stream.h"
#include "mathkit/tiny_izstream.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

class Pdf : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "billiard-pdf-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    void TearDown() override { fs::remove_all(folder); }

    std::string path(const char* name) const { return (folder / name).string(); }

    static std::string read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    fs::path folder;
};

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

TEST_F(Pdf, HoldsThePictureRowByRow) {
    const struct {
        int w, h;
        const char* box;
    } cases[] = {{1, 1, "[0 0 1.0000 1.0000]"},
                 {7, 3, "[0 0 7.0000 3.0000]"},
                 {300, 200, "[0 0 300.0000 200.0000]"},
                 {28800, 2, "[0 0 14400.0000 1.0000]"}};
    for (const auto& c : cases) {
        std::mt19937 random(11);
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(c.w) * c.h);
        std::string expected;
        for (std::uint32_t& pixel : pixels) {
            pixel = random();
            for (int shift : {0, 8, 16})
                expected += static_cast<char>(pixel >> shift);
        }
        const std::string name = path("picture.pdf");
        save_rgba_as_pdf(name.c_str(), c.w, c.h, pixels.data());
        const std::string pdf = read(name);
        EXPECT_EQ(pdf.compare(0, 5, "%PDF-"), 0);
        EXPECT_EQ(pdf.substr(pdf.size() - 6), "%%EOF\n");
        EXPECT_NE(object(pdf, 3).find(c.box), std::string::npos) << object(pdf, 3);
        EXPECT_TRUE(inflated_picture(pdf) == expected) << c.w << " x " << c.h;
    }
    const std::vector<std::uint32_t> white(1000000, 0xffffffff);
    save_rgba_as_pdf(path("white.pdf").c_str(), 1000, 1000, white.data());
    EXPECT_LT(fs::file_size(path("white.pdf")), 20000u) << "not compressed";
}

TEST_F(Pdf, WritesNothingWhereNothingCanBeWritten) {
    const std::uint32_t pixel = 0xff112233;
    const std::string old = path("old.pdf");
    std::ofstream(old) << "old";
    save_rgba_as_pdf(old.c_str(), 0, 1, &pixel);
    save_rgba_as_pdf(old.c_str(), 1, -1, &pixel);
    save_rgba_as_pdf(old.c_str(), 1, 1, nullptr);
    save_rgba_as_pdf(nullptr, 1, 1, &pixel);
    EXPECT_EQ(read(old), "old");
    save_rgba_as_pdf(path("missing/new.pdf").c_str(), 1, 1, &pixel);
    save_rgba_as_pdf(folder.c_str(), 1, 1, &pixel); // a directory
    EXPECT_FALSE(fs::exists(path("missing")));
    save_rgba_as_pdf("/dev/full", 1, 1, &pixel); // a full disk is survived, in silence
    save_rgba_as_pdf(path("50%s%n \"\xC3\xBC\".pdf").c_str(), 1, 1, &pixel);
    EXPECT_TRUE(fs::exists(path("50%s%n \"\xC3\xBC\".pdf")));
}

} // namespace
