// SPDX-License-Identifier: MIT
// Tests of saved pictures, judged by other programs, and of the forced size.
#include "libfoxaux/fox-utils/FBufferedWindow.h"

#include "libfoxaux/fox-utils/display_text.h"
#include "mathkit/TError.h"
#include "tests/libfoxaux/pixels.h"
#include "tests/libfoxaux/services.h"

#include <sys/stat.h>

#include <cmath>

using namespace window_test;

namespace {

// Shows smooth colours, thin lines and single points.
class canvas : public FBufferedWindow {
public:
    using FBufferedWindow::FBufferedWindow;

    void render() override {
        const int w = image->getWidth(), h = image->getHeight();
        FXDCWindow dc(image);
        for (int y = 0; y < h; ++y) {
            dc.setForeground(FXRGB(255 * y / h, 128, 255 - 255 * y / h));
            dc.fillRectangle(0, y, w, 1);
        }
        dc.setForeground(FXRGB(250, 200, 10));
        dc.fillRectangle(w / 4, h / 4, w / 2, h / 2);
        dc.setForeground(FXRGB(1, 2, 3));
        dc.drawPoint(0, 0);
        dc.drawPoint(w - 1, h - 1);
    }
};

// A word for the shell.
std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

// Size and pixels of a picture file as another program reads them.
std::string bytes_of_file(const std::string& path, int w, int h) {
    const std::string file = quoted(path);
    EXPECT_EQ(output_of("identify -format '%w %h' " + file),
              std::to_string(w) + ' ' + std::to_string(h));
    return output_of("convert " + file + " -alpha set -depth 8 rgba:-");
}

double mean_distance(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return INFINITY;
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += std::abs(static_cast<unsigned char>(a[i]) - static_cast<unsigned char>(b[i]));
    return sum / static_cast<double>(a.size());
}

std::vector<std::string> names_in(const folder& place) {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(place.path))
        if (!entry.is_directory()) names.push_back(fs::relative(entry, place.path).string());
    return names;
}

std::string error_of(canvas& window, const std::string& path) {
    try {
        window.save(path.c_str());
    } catch (const TError& error) {
        return error.text().c_str();
    }
    return "";
}

// Saves by the dialog, which the scripts drive.
void save_by_dialog(canvas& window, const std::vector<dialog_driver::script>& scripts) {
    with_dialogs([&] { window.save_dialog("Save"); }, scripts);
}

TEST(Pictures, TheNameDecidesTheFormatAndWhatIsAppended) {
    shown<canvas> window(40, 30);
    const struct {
        const char *name, *appended, *type;
    } cases[] = {
        {"a.PNG", "", "png"},
        {"a.Bmp", "", "bmp"},
        {"a.jpg", "", "jpeg"},
        {"a.JPEG", "", "jpeg"},
        {"A.PDF", "", "pdf"},
        {"orbit", ".png", "png"},
        {"orbit.", "png", "png"},
        {"orbit.gif", ".png", "png"},
        {"png", ".png", "png"},
        {".png", "", "png"},
        {"set.bmp/orbit", ".png", "png"},
        {"set.bmp/", ".png", "png"},
        {"50%s \"a\" 'b' &c*[d].jpg", "", "jpeg"},
        {"100%n%n gr\xc3\xb6\xc3\x9f.", "png", "png"},
    };
    for (const auto& c : cases) {
        const folder place;
        fs::create_directory(place.path / "set.bmp");
        window->save((place / c.name).c_str());
        const std::string written = std::string(c.name) + c.appended;
        EXPECT_EQ(names_in(place), std::vector<std::string>{written}) << c.name;
        const std::string type =
            output_of("file --brief --mime-type -- " + quoted(place / written));
        EXPECT_EQ(type.substr(type.find('/') + 1), std::string(c.type) + "\n") << c.name;
    }
}

TEST(Pictures, OtherProgramsReadTheCanvasFromTheFile) {
    const folder place;
    for (const auto& [w, h] : {std::pair{200, 150}, {1, 1}, {64, 149}}) {
        shown<canvas> window(200, 150);
        window->resize(w, h);
        pump();
        const std::string seen = screen_of(window.canvas).bytes();
        for (const char* name : {"a.png", "a.bmp", "a.jpg", "a.pdf"})
            window->save((place / name).c_str());

        EXPECT_TRUE(bytes_of_file(place / "a.png", w, h) == seen);
        EXPECT_TRUE(bytes_of_file(place / "a.bmp", w, h) == seen);
        EXPECT_LT(mean_distance(bytes_of_file(place / "a.jpg", w, h), seen), 2) << w;
        EXPECT_EQ(output_of("identify -format %Q " + place / "a.jpg"), "75");

        output_of("qpdf --check " + place / "a.pdf");
        output_of("pdftoppm -r 72 -singlefile " + place / "a.pdf" + " " + place / "page");
        EXPECT_TRUE(bytes_of_file(place / "page.ppm", w, h) == seen);
    }
}

TEST(Pictures, WhatCannotBeSavedIsTold) {
    const folder place;
    fs::create_directory(place.path / "folder.png");
    put_file(place / "file", "old");
    ASSERT_EQ(mkfifo((place / "pipe.png").c_str(), 0600), 0); // nobody reads it
    fs::create_symlink("/dev/full", place / "full.png");
    shown<canvas> window(300, 200);
    for (const char* name : {"folder.png", "file/a.pdf", "file/a", "pipe.png", "missing/100%s.jpg"})
        EXPECT_EQ(error_of(*window, place / name), "error open \"" + place / name + "\"");
    EXPECT_EQ(error_of(*window, place / "full.png"),
              "cannot write \"" + place / "full.png" + "\": " + reason_of(ENOSPC));
    EXPECT_EQ(window->image->getData(), nullptr) << "client pixels are released";
    EXPECT_EQ(content_of(place / "file"), "old");
    const std::string path = place / "no/100%s \"x\".png";
    save_by_dialog(*window,
                   {choose_file(path),
                    message_box("Error", "Picture not saved.\nerror open \"" + path + "\"")});
}

TEST(Pictures, AFullDiskIsToldAndLeavesWhatWasThere) {
    using names = std::vector<std::string>;
    const folder place;
    shown<canvas> window(300, 200);
    services();
    display_text text("", std::string(5000, 'x').c_str());
    for (const char* name : {"a.png", "a.bmp", "a.jpg", "a.pdf", "text"}) {
        for (const bool is_new : {true, false}) {
            const std::string path = place / name;
            if (!is_new) put_file(path, "old");
            const full_disk full(is_new ? 0 : 700); // bytes: less than a buffer as well
            if (std::string(name) == "text")
                EXPECT_THROW(save_text(text.text, path.c_str()), TError);
            else
                EXPECT_EQ(error_of(*window, path),
                          "cannot write \"" + path + "\": " + reason_of(EFBIG));
            EXPECT_EQ(content_of(path), is_new ? "" : "old") << name;
            EXPECT_EQ(names_in(place), is_new ? names{} : names{name});
            fs::remove(path);
        }
    }
    const full_disk full(0);
    save_by_dialog(*window, {choose_file(place / "a.png"),
                             message_box("Error", "Picture not saved.\ncannot write ")});
}

TEST(Pictures, TheQuestionIsAskedAboutTheNameThatIsWritten) {
    const folder place;
    const std::string picture = place / "orbit.png";
    shown<canvas> window(60, 40);
    const auto answer = [](FXuint button) {
        return message_box("Warning", "File \"orbit.png\" exists.\nOverwrite it?", button);
    };
    for (const char* name : {"orbit", "orbit.", "orbit.png"}) {
        put_file(picture, "old");
        const auto chosen = choose_file(place / name);
        save_by_dialog(*window, {chosen, answer(FXMessageBox::ID_CLICKED_CANCEL)});
        save_by_dialog(*window, {chosen, close_by_manager});
        save_by_dialog(*window,
                       {chosen, answer(FXMessageBox::ID_CLICKED_NO), [&](FXTopWindow* dialog) {
                            auto* files = dynamic_cast<FXFileDialog*>(dialog);
                            EXPECT_EQ(files->getFilename().text(), place / name);
                            EXPECT_EQ(files->getDirectory().text(), place.path.string());
                            close_dialog(dialog, false);
                        }});
        EXPECT_EQ(content_of(picture), "old");
        save_by_dialog(*window, {chosen, answer(FXMessageBox::ID_CLICKED_YES)});
        EXPECT_NE(content_of(picture), "old");
        EXPECT_EQ(names_in(place), std::vector<std::string>{"orbit.png"});
    }
}

TEST(Pictures, TheDirectoryIsRememberedByWhatWasSavedOnly) {
    const folder first, second;
    shown<canvas> window(60, 40);
    put_file(second / "old.png", "old");
    const auto expect_directory = [&](const folder& place) {
        save_by_dialog(*window, {expect_folder(place.path)});
    };
    save_by_dialog(*window, {choose_file(first / "a.png")});
    expect_directory(first);
    save_by_dialog(*window, {choose_file(second / "old.png"), close_by_manager});
    expect_directory(first);
    save_by_dialog(*window, {choose_file(second / "new.png")});
    expect_directory(second);
}

std::pair<int, int> size_of(const FXDrawable* drawable) {
    return {drawable->getWidth(), drawable->getHeight()};
}

// Types a size into the dialog and accepts it; gives the width that the dialog has offered.
std::string force_size(canvas& window, const char* width, const char* height,
                       std::vector<dialog_driver::script> boxes = {}) {
    std::string offered;
    boxes.insert(boxes.begin(), [=, &offered](FXTopWindow* dialog) {
        EXPECT_STREQ(dialog->getTitle().text(), "Resize Hack");
        const auto fields = all_of<FXTextField>(dialog);
        ASSERT_EQ(fields.size(), 2U);
        offered = fields[0]->getText().text();
        type_into(fields[0], width);
        type_into(fields[1], height);
        close_dialog(dialog, true);
    });
    with_dialogs([&] { window.resize_hack_dialog(); }, boxes);
    pump();
    return offered;
}

TEST(ForcedSize, AcceptsWhatThePictureCanBeAndRefusesTheRest) {
    const std::pair<int, int> usual(200, 150);
    const struct {
        const char *width, *height;
        bool accepted;
    } cases[] = {{"1", "1", true},        {"16384", "2", true},        {"2", "16384", true},
                 {"0", "100", false},     {"100", "-5", false},        {"16385", "100", false},
                 {"100", "16385", false}, {"-2147483648", "5", false}, {"2147483647", "9", false}};
    std::string last = "200"; // before any is accepted the canvas's own
    for (const auto& c : cases) {
        shown<canvas> window(usual.first, usual.second);
        std::vector<dialog_driver::script> boxes;
        if (!c.accepted) boxes.push_back(message_box("Error", "Parameters Wrong"));
        EXPECT_EQ(force_size(*window, c.width, c.height, boxes), last);
        const auto wanted = c.accepted ? std::pair(std::stoi(c.width), std::stoi(c.height)) : usual;
        EXPECT_EQ(size_of(window.canvas), wanted) << c.width;
        EXPECT_EQ(size_of(window->image), wanted) << c.width;
        if (c.accepted) last = c.width;
    }
}

TEST(ForcedSize, IsTheSizeOfTheSavedPictureUntilCancelGivesTheLayoutBack) {
    const folder place;
    shown<canvas> window(200, 150);
    force_size(*window, "640", "33");
    window->save((place / "a.png").c_str());
    EXPECT_TRUE(bytes_of_file(place / "a.png", 640, 33) == pixels(window->image).bytes());

    for (int opening = 0; opening < 2; ++opening) { // what is typed before a cancel is forgotten
        with_dialogs(
            [&] { window->resize_hack_dialog(); }, {[](FXTopWindow* dialog) {
                EXPECT_EQ(texts_of<FXTextField>(dialog), (std::vector<std::string>{"640", "33"}));
                type_into(all_of<FXTextField>(dialog)[0], "77");
                close_dialog(dialog, false);
            }});
        pump();
        EXPECT_EQ(size_of(window->image), std::pair(200, 150));
    }
}

} // namespace
