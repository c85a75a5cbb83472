// SPDX-License-Identifier: MIT
// The picture of a grid of cells, as a PNG file.
#include "billiard/batch/picture.h"

#include "billiard/batch/colour_map.h"
#include "billiard/batch/errors.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

namespace batch {

namespace {

struct closing {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using file_handle = std::unique_ptr<std::FILE, closing>;

[[noreturn]] void fail(const std::string& name) {
    throw run_error(name + ": " + std::strerror(errno));
}

// A file that is removed again unless it has been given another name.
struct unfinished_file {
    const std::string name;

    explicit unfinished_file(std::string file) : name(std::move(file)) {}
    unfinished_file(const unfinished_file&) = delete;
    unfinished_file& operator=(const unfinished_file&) = delete;
    ~unfinished_file() { std::remove(name.c_str()); }
};

// The values of a file of rows, one after another.
class value_reader {
public:
    value_reader(const std::string& name, int column)
        : name(name),
          file(std::fopen(name.c_str(), "r")),
          column(column) {
        if (!file) fail(name);
        do {
            read_line();
        } while (line[0] == '#');
    }

    double next() {
        read_line();
        const char* at = line.data();
        for (int i = 0; i < column; ++i) {
            at = std::strchr(at, ',');
            if (!at) throw run_error(name + " is damaged");
            ++at;
        }
        double value = std::numeric_limits<double>::quiet_NaN();
        std::from_chars(at, line.data() + line.size(), value); // "nan" stays what it is
        return value;
    }

private:
    void read_line() {
        if (std::fgets(line.data(), static_cast<int>(line.size()), file.get())) return;
        throw run_error(name + " ends early");
    }

    const std::string& name;
    file_handle file;
    const int column;
    std::array<char, 4096> line{};
};

std::pair<double, double> range_of_values(const picture_plan& plan, const std::string& rows_name) {
    double least = HUGE_VAL, largest = -HUGE_VAL;
    value_reader values(rows_name, plan.column);
    for (std::int64_t i = 0; i < plan.width * plan.height; ++i) {
        const double value = values.next();
        if (!std::isfinite(value)) continue;
        least = std::min(least, value);
        largest = std::max(largest, value);
    }
    if (least > largest) return {0, 1}; // no values at all
    return {least, largest};
}

constexpr png_byte no_value = colour_count; // behind the colours of the palette

// The bytes of a PNG file. The library leaves a failed operation by a jump, over which no object
// may need its destructor: each operation is a function of its own, and answers whether it went
// well.
class png_writer {
public:
    explicit png_writer(std::FILE* file)
        : png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, warn)),
          info(png ? png_create_info_struct(png) : nullptr),
          file(file) {}
    png_writer(const png_writer&) = delete;
    png_writer& operator=(const png_writer&) = delete;
    ~png_writer() { png_destroy_write_struct(&png, &info); }

    bool begin(png_uint_32 width, png_uint_32 height, const char* title) {
        if (!info) return false;
        png_color palette[colour_count + 1];
        for (int i = 0; i < colour_count; ++i)
            palette[i] = palette_entry(colour_map()[static_cast<std::size_t>(i)]);
        palette[no_value] = palette_entry(no_value_colour);
        if (setjmp(png_jmpbuf(png))) return false;
        png_init_io(png, file);
        png_set_IHDR(png, info, width, height, 8, PNG_COLOR_TYPE_PALETTE, PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_PLTE(png, info, palette, colour_count + 1);
        png_text text{};
        text.compression = PNG_TEXT_COMPRESSION_NONE;
        char key[] = "Description";
        text.key = key;
        text.text = const_cast<char*>(title); // the library does not write to it
        png_set_text(png, info, &text, 1);
        png_write_info(png, info);
        return true;
    }

    bool write(const png_byte* row) {
        if (setjmp(png_jmpbuf(png))) return false;
        png_write_row(png, row);
        return true;
    }

    bool finish() {
        if (setjmp(png_jmpbuf(png))) return false;
        png_write_end(png, nullptr);
        return true;
    }

private:
    static void warn(png_structp, png_const_charp) {}
    static png_color palette_entry(const rgb& c) { return {c[0], c[1], c[2]}; }

    png_structp png;
    png_infop info;
    std::FILE* file;
};

bool write_png(const picture_plan& plan, value_reader& values, std::pair<double, double> range,
               std::FILE* file) {
    const std::int64_t width = plan.width * plan.scale, height = plan.height * plan.scale;
    png_writer png(file);
    bool good = png.begin(static_cast<png_uint_32>(width), static_cast<png_uint_32>(height),
                          plan.title.c_str());
    std::vector<png_byte> line(static_cast<std::size_t>(width));
    for (std::int64_t y = 0; y < plan.height && good; ++y) {
        auto pixel = line.begin();
        for (std::int64_t x = 0; x < plan.width; ++x) {
            const int index = colour_index(values.next(), range.first, range.second);
            pixel =
                std::fill_n(pixel, plan.scale, index < 0 ? no_value : static_cast<png_byte>(index));
        }
        for (int i = 0; i < plan.scale && good; ++i)
            good = png.write(line.data());
    }
    return good && png.finish();
}

} // namespace

std::pair<double, double> draw_picture(const picture_plan& plan, const std::string& rows_name,
                                       const std::string& name) {
    const auto range = plan.range ? *plan.range : range_of_values(plan, rows_name);
    value_reader values(rows_name, plan.column);
    const unfinished_file picture(name + ".part");
    file_handle file(std::fopen(picture.name.c_str(), "wb"));
    if (!file) fail(picture.name);
    bool good = write_png(plan, values, range, file.get());
    good = std::fclose(file.release()) == 0 && good;
    if (!good || std::rename(picture.name.c_str(), name.c_str()) != 0) fail(name);
    return range;
}

} // namespace batch
