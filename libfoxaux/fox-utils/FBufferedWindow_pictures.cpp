// SPDX-License-Identifier: MIT
// Saves a canvas's picture to a file, and forces the canvas to an exact size.
#include "libfoxaux/fox-utils/FBufferedWindow.h"

#include "libfoxaux/fox-utils/dialog_shape.h"
#include "libfoxaux/fox-utils/file_dialogs.h"
#include "libfoxaux/fox-utils/label_text.h"
#include "mathkit/TError.h"
#include "mathkit/save_rgba_as_pdf.h"
#include "mathkit/whole_file.h"

#include <FXJPGImage.h>
#include <FXPNGImage.h>

#include <new>

namespace {

constexpr const char* source = "libfoxaux/fox-utils/FBufferedWindow";
constexpr const char* picture_patterns = "png format (*.png)\n"
                                         "bmp format (*.bmp)\n"
                                         "jpeg format (*.jpeg)\n"
                                         "pdf format (*.pdf)\n"
                                         "All Files (*)";
constexpr int save_directory_line = 260; // names the history of where pictures are saved
constexpr int jpeg_quality = 75;
constexpr int largest_side = 16384; // the display can't give larger pictures back

// The toolkit's way into a file: its picture writers know streams only.
class file_stream : public FXStream {
public:
    explicit file_stream(whole_file& file) : file(file) { open(FXStreamSave, 8192); }

protected:
    FXuval writeBuffer(FXuval) override {
        file.write(rdptr, static_cast<std::size_t>(wrptr - rdptr));
        wrptr = rdptr = begptr;
        return static_cast<FXuval>(endptr - wrptr);
    }

private:
    whole_file& file;
};

// Writes pixels of 32 bits, row by row, to an open file. False if there is no memory.
using picture_writer = bool (*)(whole_file&, FXint, FXint, const FXColor*);
using stream_writer = bool (*)(FXStream&, const FXColor*, FXint, FXint);

template<stream_writer write>
bool by_stream(whole_file& file, FXint w, FXint h, const FXColor* pixels) {
    file_stream out(file);
    return write(out, pixels, w, h) && out.flush();
}

bool write_jpeg(FXStream& out, const FXColor* pixels, FXint w, FXint h) {
    return fxsaveJPG(out, pixels, w, h, jpeg_quality);
}

struct picture_format {
    const char* pattern;
    picture_writer write;
    const char* suffix = ""; // appended to the name
};

// The first pattern that fits decides. The last two take the names without a known ending.
constexpr picture_format picture_formats[] = {
    {"*.png", by_stream<fxsavePNG>},     {"*.bmp", by_stream<fxsaveBMP>},
    {"*.jpeg", by_stream<write_jpeg>},   {"*.jpg", by_stream<write_jpeg>},
    {"*.pdf", write_rgba_as_pdf},        {"*.", by_stream<fxsavePNG>, "png"},
    {"*", by_stream<fxsavePNG>, ".png"},
};

const picture_format& format_of(const char* path) {
    constexpr FXuint flags = FILEMATCH_FILE_NAME | FILEMATCH_NOESCAPE | FILEMATCH_CASEFOLD;
    const FXString name = FXPath::name(path);
    for (const picture_format& format : picture_formats)
        if (FXPath::match(format.pattern, name, flags)) return format;
    throw TError(kit::string::format("unrecognized file format \"%s\"", path));
}

// The file that saving to `path` really writes.
kit::string picture_name(const kit::string& path) {
    return kit::string::format("%s%s", path.c_str(), format_of(path).suffix);
}

// Releases the client-side pixels of an image at its end, unless the image had some before.
class client_pixels {
public:
    explicit client_pixels(FXImage* image) : image(image), fetched(!image->getData()) {}
    client_pixels(const client_pixels&) = delete;
    client_pixels& operator=(const client_pixels&) = delete;
    ~client_pixels() {
        if (fetched) image->release();
    }

private:
    FXImage* image;
    bool fetched;
};

[[noreturn]] void throw_open_error(const char* path, int line) {
    TError error(kit::string::format("error open \"%s\"", path));
    throw error.setPosition("void FBufferedWindow::save(const char*)", source, line);
}

} // namespace

void FBufferedWindow::save_dialog(const char* title) {
    kit::string name;
    save_file_dialog(this, title, name, picture_patterns, source, save_directory_line, nullptr,
                     picture_name);
    if (name.is_empty()) return;
    try {
        save(name);
    } catch (const TError& error) {
        show_error(this, kit::string::format("Picture not saved.\n%s", error.text().c_str()));
    }
}

void FBufferedWindow::save(const char* path) {
    const picture_format& format = format_of(path);
    try {
        // The pixels come first: if there is no room for them, no file is touched.
        const client_pixels pixels(image);
        image->restore();
        whole_file file(picture_name(path));
        if (!file.is_open()) throw_open_error(path, __LINE__);
        if (!format.write(file, image->getWidth(), image->getHeight(), image->getData()))
            throw std::bad_alloc();
        if (!file.keep())
            throw TError(
                kit::string::format("cannot write \"%s\": %s", path, file.reason().c_str()));
    } catch (const FXException& failure) {
        throw TError(
            kit::string::format("cannot read the picture for \"%s\": %s", path, failure.what()));
    } catch (const std::bad_alloc&) {
        throw TError(kit::string::format("out of memory for \"%s\"", path));
    }
}

void FBufferedWindow::resize_hack_dialog() {
    int width = getWidth(), height = getHeight();
    dialog_shape dialog(this, "Resize Hack", nullptr);
    const auto fields =
        dialog.add_rows(dialog.add_matrix(2), {source, nullptr},
                        {{"Width", &width, 365, true}, {"Height", &height, 374, true}});
    dialog.add_buttons();
    if (!dialog.run()) {
        if (getParent()) getParent()->layout();
        return;
    }
    const auto fits = [](int side) { return 1 <= side && side <= largest_side; };
    if (!fits(width) || !fits(height)) {
        show_error(this, "Parameters Wrong");
        return;
    }
    dialog_shape::save_histories(fields);
    resize(width, height);
}
