// SPDX-License-Identifier: MIT
// Any bytes as a font file: opened, measured and drawn, or refused with a text that names the file.
#include "mathkit/TError.h"
#include "mathkit/ttf_font.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <numbers>
#include <string>

namespace {

/// Reads every byte of every bitmap, as a back-end does.
class reading_font : public ttf_font {
public:
    using ttf_font::ttf_font;
    std::uint64_t coverage = 0;

protected:
    void draw_bitmap(void* bitmap, int, int) override {
        const auto& glyph = *static_cast<FT_Bitmap*>(bitmap);
        const bool gray = glyph.pixel_mode == FT_PIXEL_MODE_GRAY;
        if (!gray && glyph.pixel_mode != FT_PIXEL_MODE_MONO) std::abort();
        const unsigned bytes = gray ? glyph.width : (glyph.width + 7) / 8;
        for (unsigned r = 0; r < glyph.rows; r++) {
            const unsigned char* row = glyph.buffer + static_cast<std::ptrdiff_t>(r) * glyph.pitch;
            for (unsigned i = 0; i < bytes; i++)
                coverage += row[i];
        }
    }
};

/// The path of a file in memory that holds the input.
class input_file {
public:
    input_file(const std::uint8_t* data, std::size_t size)
        : fd(memfd_create("font", 0)),
          path("/proc/self/fd/" + std::to_string(fd)) {
        if (fd < 0 || write(fd, data, size) != static_cast<ssize_t>(size)) std::abort();
    }
    input_file(const input_file&) = delete;
    input_file& operator=(const input_file&) = delete;
    ~input_file() { close(fd); }

private:
    int fd;

public:
    const std::string path;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const input_file file(data, size);
    try {
        reading_font font(file.path.c_str());
        const unsigned choice = data[size - 1]; // the end of a font file is padding, or a table
        font.antialias = choice & 1;
        font.setsizerot(choice & 2 ? 40 : 12, choice & 4 ? std::numbers::pi / 2 : 0);
        font.align = base_font::center | base_font::top;
        font.drawText(100, 100, L"HAV p0.5\xe4\x4e00", -1);
    } catch (const TError& e) {
        if (!std::strstr(e.text().c_str(), file.path.c_str())) std::abort();
    }
    return 0;
}
