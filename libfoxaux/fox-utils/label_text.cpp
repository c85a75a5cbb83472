// SPDX-License-Identifier: MIT
// Makes any text safe for a label or a message box.
#include "libfoxaux/fox-utils/label_text.h"

#include "libfoxaux/fox-utils/layout.h"

#include <algorithm>

namespace {

constexpr FXint box_characters = 100; // of a line
constexpr FXint box_lines = 20;
constexpr const char* ellipsis = "...";

// Where a line breaks that has room for the first `end` bytes: at the last blank in them, if any.
FXint line_break(const FXString& text, FXint end) {
    const FXint blank = text.rfind(' ', end);
    return blank > 0 ? blank : end;
}

bool is_continuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// Bytes of the UTF-8 character at `text`; 0 where there is none.
FXint character_bytes(const char* text) {
    const auto first = static_cast<unsigned char>(*text);
    const FXint bytes = first < 0x80                    ? 1
                        : first >= 0xC2 && first < 0xE0 ? 2
                        : first >= 0xE0 && first < 0xF0 ? 3
                        : first >= 0xF0 && first < 0xF5 ? 4
                                                        : 0;
    for (FXint i = 1; i < bytes; ++i) // the closing zero is no continuation
        if (!is_continuation(static_cast<unsigned char>(text[i]))) return 0;
    return bytes;
}

bool is_utf8(const char* text) {
    while (*text) {
        const FXint bytes = character_bytes(text);
        if (bytes == 0) return false;
        text += bytes;
    }
    return true;
}

FXString from_latin1(const char* text) {
    FXString utf8;
    for (; *text; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        if (byte < 0x80) {
            utf8.append(static_cast<FXchar>(byte));
        } else {
            utf8.append(static_cast<FXchar>(0xC0 | (byte >> 6)));
            utf8.append(static_cast<FXchar>(0x80 | (byte & 0x3F)));
        }
    }
    return utf8;
}

// How many letters a line of a message box may have: what the screen has room for, up to a limit.
FXint room_for_characters() {
    const FXint letter = FXApp::instance()->getNormalFont()->getTextWidth("n", 1);
    const double room = 0.75 * layout_root().width() / std::max(letter, 1);
    return static_cast<FXint>(std::clamp<double>(room, 20, box_characters));
}

// The text in UTF-8. Control characters become blanks, except line breaks where they may stay.
FXString readable(const char* text, bool keep_breaks) {
    FXString result = is_utf8(text) ? FXString(text) : from_latin1(text);
    for (FXint i = 0; i < result.length(); ++i) {
        const auto byte = static_cast<unsigned char>(result[i]);
        const bool kept = keep_breaks && byte == '\n';
        if ((byte < ' ' || byte == 0x7F) && !kept) result[i] = ' ';
    }
    return result;
}

// The first `bytes` bytes of `text`, less a character that would be cut apart.
FXString head(const FXString& text, FXint bytes) {
    while (bytes > 0 && is_continuation(static_cast<unsigned char>(text[bytes])))
        --bytes;
    return text.left(bytes);
}

FXString escaped(FXString text) {
    text.substitute("&", "&&", true);
    return text;
}

// How many bytes of `text` fit into `width` pixels, in whole characters.
FXint fitting(const FXString& text, const FXFont* font, FXint width) {
    // No character is narrower than a pixel; this bounds the work on a text of megabytes.
    const FXint most = std::min(text.length(), 4 * std::max(width, 0));
    FXint fits = 0, too_long = most + 1;
    while (too_long - fits > 1) {
        const FXint middle = (fits + too_long) / 2;
        (font->getTextWidth(head(text, middle)) <= width ? fits : too_long) = middle;
    }
    return head(text, fits).length();
}

} // namespace

FXString label_text(const char* text, const FXFont* font, FXint width, FXint lines) {
    FXString rest = readable(text, false), result;
    for (FXint line = 1;; ++line) {
        FXint end = fitting(rest, font, width);
        if (end == rest.length()) return result + escaped(rest);
        if (line >= lines) break;
        end = line_break(rest, end);
        result += escaped(rest.left(end)) + "\n";
        rest.erase(0, rest[end] == ' ' ? end + 1 : end);
    }
    const FXint room = width - font->getTextWidth(ellipsis, 3);
    return result + escaped(rest.left(fitting(rest, font, room))) + ellipsis;
}

FXString box_text(const char* text) {
    const FXString whole = readable(text, true);
    const FXint line_characters = room_for_characters();
    FXString result;
    FXint start = 0;
    for (FXint line = 0; start < whole.length(); ++line) {
        if (line == box_lines) return result + ellipsis;
        FXint end = whole.find('\n', start);
        if (end < 0) end = whole.length();
        // Enough of it to tell whether it is too long: no character has more than 4 bytes.
        const FXString rest = whole.mid(start, std::min(end - start, 4 * line_characters + 4));
        const bool broken = rest.count() > line_characters;
        if (broken) end = start + line_break(rest, rest.offset(line_characters));
        result += escaped(whole.mid(start, end - start));
        if (end < whole.length()) result += '\n';
        start = broken && whole[end] != ' ' ? end : end + 1; // a blank goes with the break
    }
    return result;
}

void show_error(FXWindow* owner, const char* text) {
    FXMessageBox::error(owner, MBOX_OK, "Error", "%s", box_text(text).text());
}
