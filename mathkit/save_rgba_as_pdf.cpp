// SPDX-License-Identifier: MIT
// Writes a picture as a PDF document of one page.
#include "mathkit/save_rgba_as_pdf.h"

#include "mathkit/kit_string.h"
#include "mathkit/whole_file.h"

#include <zlib.h>

#include <algorithm>
#include <charconv>
#include <cstdarg>
#include <vector>

namespace {

constexpr double longest_side = 14400; // points; readers need not show a longer page
// The picture keeps this distance (points) from the page's edges. Some readers take a picture that
// ends exactly at a pixel's edge to reach into the next pixel, and blur all of it over one more.
constexpr double inset = 0.0001;

// A PDF file that is written from front to back and remembers where its objects start.
class pdf_file {
public:
    explicit pdf_file(whole_file& file) : file(file) {}
    pdf_file(const pdf_file&) = delete;
    pdf_file& operator=(const pdf_file&) = delete;

    std::uint64_t position() const { return written; }

    void bytes(const void* data, std::size_t count) {
        file.write(data, count);
        written += count;
    }

    void text(const char* format, ...) __attribute__((format(printf, 2, 3))) {
        va_list arguments;
        va_start(arguments, format);
        kit::string line;
        line.vsprintf(format, arguments);
        va_end(arguments);
        bytes(line.c_str(), line.length());
    }

    // Starts the next object; objects are numbered from 1 in the order of writing.
    void begin_object() {
        starts.push_back(written);
        text("%zu 0 obj\n", starts.size());
    }

    void end_object() { text("endobj\n"); }

    // The table of objects and the pointer to it that ends the file; object 1 is the root.
    void finish() {
        const std::uint64_t table = written;
        text("xref\n0 %zu\n0000000000 65535 f \n", starts.size() + 1);
        for (std::uint64_t start : starts)
            text("%010llu 00000 n \n", static_cast<unsigned long long>(start));
        text("trailer\n<< /Size %zu /Root 1 0 R >>\nstartxref\n%llu\n%%%%EOF\n", starts.size() + 1,
             static_cast<unsigned long long>(table));
    }

private:
    whole_file& file;
    std::uint64_t written = 0;
    std::vector<std::uint64_t> starts;
};

// Deflates into a file, a piece at a time.
class deflater {
public:
    explicit deflater(pdf_file& file) : file(file), packed(1 << 16) {
        // Level 6 packs plots nearly as well as 9 in a third of the time.
        ready = deflateInit(&stream, 6) == Z_OK;
    }
    deflater(const deflater&) = delete;
    deflater& operator=(const deflater&) = delete;
    ~deflater() {
        if (ready) deflateEnd(&stream);
    }

    bool is_ready() const { return ready; }

    void write(std::vector<unsigned char>& data, bool last) {
        stream.next_in = data.data();
        stream.avail_in = static_cast<uInt>(data.size());
        do {
            stream.next_out = packed.data();
            stream.avail_out = static_cast<uInt>(packed.size());
            deflate(&stream, last ? Z_FINISH : Z_NO_FLUSH);
            file.bytes(packed.data(), packed.size() - stream.avail_out);
        } while (stream.avail_out == 0);
    }

private:
    pdf_file& file;
    z_stream stream{};
    std::vector<unsigned char> packed;
    bool ready = false;
};

// A length with four decimals; the locale of printf might give it a comma.
kit::string points(double length) {
    char text[32];
    const auto result =
        std::to_chars(text, text + sizeof text, length, std::chars_format::fixed, 4);
    return {text, static_cast<std::size_t>(result.ptr - text)};
}

// One row of the picture as red, green, blue bytes.
void unpack_row(const std::uint32_t* row, std::vector<unsigned char>& rgb) {
    auto out = rgb.begin();
    for (std::size_t x = 0; x < rgb.size() / 3; ++x) {
        *out++ = static_cast<unsigned char>(row[x]);
        *out++ = static_cast<unsigned char>(row[x] >> 8);
        *out++ = static_cast<unsigned char>(row[x] >> 16);
    }
}

void write_image(pdf_file& file, deflater& packer, int w, int h, const std::uint32_t* pixels) {
    file.begin_object(); // 5: its length is not known before its end, so it stands in object 6
    file.text("<< /Type /XObject /Subtype /Image /Width %d /Height %d /ColorSpace /DeviceRGB "
              "/BitsPerComponent 8 /Filter /FlateDecode /Length 6 0 R >>\nstream\n",
              w, h);
    const std::uint64_t start = file.position();
    const auto columns = static_cast<std::size_t>(w);
    std::vector<unsigned char> rgb(columns * 3);
    for (int y = 0; y < h; ++y) {
        unpack_row(pixels + static_cast<std::size_t>(y) * columns, rgb);
        packer.write(rgb, y == h - 1);
    }
    const std::uint64_t length = file.position() - start;
    file.text("\nendstream\n");
    file.end_object();
    file.begin_object(); // 6
    file.text("%llu\n", static_cast<unsigned long long>(length));
    file.end_object();
}

} // namespace

void save_rgba_as_pdf(const char* path, int w, int h, const std::uint32_t* pixels) {
    if (!path || w < 1 || h < 1 || !pixels) return;
    whole_file target(path);
    if (target.is_open() && write_rgba_as_pdf(target, w, h, pixels)) target.keep();
}

bool write_rgba_as_pdf(whole_file& target, int w, int h, const std::uint32_t* pixels) {
    pdf_file file(target);
    deflater packer(file);
    if (!packer.is_ready()) return false;
    const double scale = std::min(1.0, longest_side / std::max(w, h));
    const kit::string page_w = points(w * scale);
    const kit::string page_h = points(h * scale);
    const kit::string paint = kit::string::format(
        "q %s 0 0 %s %s %s cm /Picture Do Q", points(w * scale - 2 * inset).c_str(),
        points(h * scale - 2 * inset).c_str(), points(inset).c_str(), points(inset).c_str());

    file.text("%%PDF-1.4\n%%\xE2\xE3\xCF\xD3\n"); // bytes above 127 mark the file as binary
    file.begin_object();                          // 1
    file.text("<< /Type /Catalog /Pages 2 0 R >>\n");
    file.end_object();
    file.begin_object(); // 2
    file.text("<< /Type /Pages /Kids [3 0 R] /Count 1 >>\n");
    file.end_object();
    file.begin_object(); // 3
    file.text("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 %s %s] /Contents 4 0 R "
              "/Resources << /XObject << /Picture 5 0 R >> >> >>\n",
              page_w.c_str(), page_h.c_str());
    file.end_object();
    file.begin_object(); // 4
    file.text("<< /Length %zu >>\nstream\n%s\nendstream\n", paint.length(), paint.c_str());
    file.end_object();
    write_image(file, packer, w, h, pixels);
    file.finish();
    return true;
}
