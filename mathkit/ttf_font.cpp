// SPDX-License-Identifier: MIT
// Opens a font file by FreeType and hands its glyphs to the back-end as bitmaps.
#include "mathkit/ttf_font.h"

#include "mathkit/TError.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

namespace {

// Large enough for faces of all of East Asia, small enough to be read at once.
constexpr long largest_file = 64L << 20;

// The side of the largest glyph that is rendered. At the largest size a letter has some 600 pixels;
// a damaged font can ask for bitmaps of a gigabyte.
constexpr long largest_glyph = 4096;

constexpr int dots_per_inch = 100; // as base_font::pixels_per_point tells
static_assert(base_font::pixels_per_point == dots_per_inch / 72.0);

// Symbol fonts keep their characters in a page of the private area.
constexpr FT_ULong symbol_page = 0xf000;

[[noreturn]] void fail(const char* path, const char* reason) {
    throw TError(kit::string::format("%s: %s", path, reason));
}

// The whole file, in memory: a font that is replaced on disk while it is in use stays whole.
std::vector<FT_Byte> read_file(const char* path) {
    if (!path || !*path) throw TError("No font file given.");
    struct stat about {};
    if (stat(path, &about) != 0) fail(path, std::strerror(errno));
    if (S_ISDIR(about.st_mode)) fail(path, "is a directory");
    if (!S_ISREG(about.st_mode)) fail(path, "is not a regular file");
    if (about.st_size == 0) fail(path, "the file is empty");
    if (about.st_size > largest_file) fail(path, "the file is too large for a font");

    const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path, "rb"), std::fclose);
    if (!file) fail(path, std::strerror(errno));
    std::vector<FT_Byte> bytes(static_cast<std::size_t>(about.st_size));
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    if (std::ferror(file.get())) fail(path, std::strerror(errno));
    return bytes;
}

const char* reason_of(FT_Error error) {
    if (error == FT_Err_Unknown_File_Format) return "is no font file";
    if (error == FT_Err_Out_Of_Memory) return "no memory left for the font";
    return "is no font file, or a damaged one"; // FreeType's own texts are seldom built in
}

} // namespace

// The open font; FreeType reads `bytes` as long as the face is open.
struct ttf_font::face {
    std::vector<FT_Byte> bytes;
    FT_Library library = nullptr;
    FT_Face ft = nullptr;

    explicit face(std::vector<FT_Byte> contents) : bytes(std::move(contents)) {}
    face(const face&) = delete;
    face& operator=(const face&) = delete;
    ~face() {
        if (library) FT_Done_FreeType(library); // closes its faces
    }

    FT_UInt index_of(wchar_t character) const {
        const auto code = static_cast<FT_ULong>(static_cast<char32_t>(character));
        const FT_UInt index = FT_Get_Char_Index(ft, code);
        return index || code > 0xff ? index : FT_Get_Char_Index(ft, symbol_page + code);
    }
};

// A glyph and where its origin lies along the base line, in 1/64 pixel.
struct ttf_font::placed_glyph {
    FT_UInt index;
    FT_Pos along;
};

ttf_font::ttf_font(const char* path) : opened(std::make_unique<face>(read_file(path))) {
    const FT_Error library_error = FT_Init_FreeType(&opened->library);
    if (library_error) fail(path, reason_of(library_error));
    const FT_Error error =
        FT_New_Memory_Face(opened->library, opened->bytes.data(),
                           static_cast<FT_Long>(opened->bytes.size()), 0, &opened->ft);
    if (error) fail(path, reason_of(error));
    if (!FT_IS_SCALABLE(opened->ft)) fail(path, "is no scalable font");
    if (opened->ft->num_glyphs < 1) fail(path, "the font has no glyphs");
    if (!opened->ft->charmap && opened->ft->num_charmaps > 0) {
        FT_Set_Charmap(opened->ft, opened->ft->charmaps[0]);
    }
}

ttf_font::~ttf_font() = default;

// Grey text is fitted to the rows only, as the toolkit's own text is; hard text to both.
FT_Int32 ttf_font::load_flags() const {
    return FT_LOAD_NO_BITMAP | (antialias ? FT_LOAD_TARGET_LIGHT : FT_LOAD_TARGET_MONO);
}

std::vector<ttf_font::placed_glyph> ttf_font::lay_out(const wchar_t* text, int length,
                                                      int& width) const {
    std::vector<placed_glyph> glyphs;
    width = 0;
    const FT_Face ft = opened->ft;
    const auto points = static_cast<FT_F26Dot6>(std::lround(usable_size(size) * 64));
    if (FT_Set_Char_Size(ft, 0, points, dots_per_inch, dots_per_inch)) return glyphs;

    FT_Set_Transform(ft, nullptr, nullptr);
    FT_Pos along = 0;
    FT_UInt previous = 0;
    const int count = length_of(text, length);
    for (int i = 0; i < count; i++) {
        const FT_UInt index = opened->index_of(text[i]);
        FT_Vector kerning{};
        if (previous && !FT_Get_Kerning(ft, previous, index, FT_KERNING_DEFAULT, &kerning)) {
            along += kerning.x;
        }
        previous = index;
        glyphs.push_back({index, along});
        if (!FT_Load_Glyph(ft, index, load_flags())) along += ft->glyph->advance.x;
    }
    constexpr FT_Pos farthest = FT_Pos{1} << 30;
    width = static_cast<int>(std::clamp(along, -farthest, farthest) + 32) / 64;
    return glyphs;
}

int ttf_font::text_width(const wchar_t* text, int length) const {
    int width = 0;
    lay_out(text, length, width);
    return width;
}

void ttf_font::drawText(int x, int y, const wchar_t* text, int length) {
    int width = 0;
    const std::vector<placed_glyph> glyphs = lay_out(text, length, width);
    move_to_base_line(x, y, width);

    const double c = std::cos(usable_rot());
    const double s = std::sin(usable_rot());
    const auto fixed = [](double value) {
        return static_cast<FT_Fixed>(std::lround(value * 65536));
    };
    FT_Matrix rotation{fixed(c), fixed(-s), fixed(s), fixed(c)};
    for (const placed_glyph& glyph : glyphs) {
        // The whole pixels of the origin go into the anchor, the rest into the outline.
        const FT_Pos right = std::lround(static_cast<double>(glyph.along) * c);
        const FT_Pos up = std::lround(static_cast<double>(glyph.along) * s);
        FT_Vector rest{right & 63, up & 63};
        FT_Set_Transform(opened->ft, &rotation, &rest);
        draw_glyph(glyph.index, x + static_cast<int>(right >> 6), y - static_cast<int>(up >> 6));
    }
}

void ttf_font::draw_glyph(unsigned index, int x, int y) {
    if (FT_Load_Glyph(opened->ft, index, load_flags())) return;
    const FT_GlyphSlot slot = opened->ft->glyph;
    if (slot->format != FT_GLYPH_FORMAT_OUTLINE) return;
    FT_BBox extent;
    FT_Outline_Get_CBox(&slot->outline, &extent);
    const FT_Pos limit = largest_glyph * 64;
    if (extent.xMax - extent.xMin > limit || extent.yMax - extent.yMin > limit) return;
    if (FT_Render_Glyph(slot, antialias ? FT_RENDER_MODE_NORMAL : FT_RENDER_MODE_MONO)) return;
    draw_bitmap(&slot->bitmap, x + slot->bitmap_left, y - slot->bitmap_top);
}
