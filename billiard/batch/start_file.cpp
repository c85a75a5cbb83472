// SPDX-License-Identifier: MIT
// Starts from the columns S and P of a CSV file.
//
// Notes: a wrong line at the end of a long file must be told before the first row is written, and a
// pipe can be read but once. So all is read at once, into a temporary file that holds 16 bytes for
// each start, and read from there by number.
#include "billiard/batch/errors.h"
#include "billiard/batch/number_text.h"
#include "billiard/batch/start_list.h"
#include "billiard/batch/user_words.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace batch {

namespace {

struct closing {
    void operator()(std::FILE* file) const {
        if (file != stdin) std::fclose(file);
    }
};
using file_handle = std::unique_ptr<std::FILE, closing>;

using point = std::array<double, 2>;

class file_source : public start_source {
public:
    file_source(file_handle points, std::int64_t count) : points(std::move(points)), count(count) {}
    std::int64_t size() const override { return count; }
    start at(std::int64_t i, TBilliardMap& map) const override {
        point p;
        const auto place = static_cast<off_t>(i * static_cast<std::int64_t>(sizeof p));
        if (pread(fileno(points.get()), p.data(), sizeof p, place) != sizeof p) {
            throw run_error(std::string("temporary file: ") + std::strerror(errno));
        }
        map.setPoint(p[0], p[1]);
        return {p[0], p[1], map.phi, map.alpha};
    }

private:
    file_handle points;
    std::int64_t count;
};

// A field without the blanks and the quotes about it.
std::string_view bare(std::string_view field) {
    while (field.starts_with(' '))
        field.remove_prefix(1);
    while (field.ends_with(' '))
        field.remove_suffix(1);
    const bool quoted = field.size() > 1 && field.starts_with('"') && field.ends_with('"');
    return quoted ? field.substr(1, field.size() - 2) : field;
}

// The fields of a line, cut at each comma that is not between quotes.
std::vector<std::string_view> fields_of(std::string_view line) {
    std::vector<std::string_view> fields;
    std::size_t begin = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        quoted = quoted != (line[i] == '"');
        if (line[i] != ',' || quoted) continue;
        fields.push_back(bare(line.substr(begin, i - begin)));
        begin = i + 1;
    }
    fields.push_back(bare(line.substr(begin)));
    return fields;
}

// Reads a CSV file line by line.
class start_reader {
public:
    explicit start_reader(const std::string& name) : name(name == "-" ? "standard input" : name) {
        input.reset(name == "-" ? stdin : std::fopen(name.c_str(), "r"));
        if (!input) throw usage_error(name + ": " + std::strerror(errno));
        if (!next_line()) wrong("is empty; it needs columns S and P");
        columns = fields_of(line()).size();
        column_S = find_column("S");
        column_P = find_column("P");
    }

    bool next(point& p) {
        if (!next_line()) return false;
        const auto fields = fields_of(line());
        if (fields.size() != columns) {
            wrong_line("has " + std::to_string(fields.size()) + " columns, not " +
                       std::to_string(columns));
        }
        const double S = number(fields[column_S]);
        const double P = number(fields[column_P]);
        const bool inside = S > 0 && S < 1 && P > -1 && P < 1;
        if (!inside) wrong_line("is a start outside the section, 0 < S < 1 and -1 < P < 1");
        p = {S, P};
        return true;
    }

    [[noreturn]] void wrong(const std::string& what) const { throw usage_error(name + " " + what); }

private:
    // The next line that is neither empty nor a comment.
    bool next_line() {
        while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), input.get())) {
            ++line_number;
            const std::size_t length = std::strlen(buffer.data());
            if (length + 1 == buffer.size() && buffer[length - 1] != '\n')
                wrong_line("is too long");
            if (!line().empty() && line()[0] != '#') return true;
        }
        if (std::ferror(input.get())) throw usage_error(name + ": " + std::strerror(errno));
        return false;
    }

    std::string_view line() const {
        std::string_view text = buffer.data();
        constexpr std::string_view byte_order_mark = "\xef\xbb\xbf";
        if (line_number == 1 && text.starts_with(byte_order_mark)) text.remove_prefix(3);
        while (text.ends_with('\n') || text.ends_with('\r') || text.ends_with(' '))
            text.remove_suffix(1);
        return text;
    }

    std::size_t find_column(const char* title) const {
        const auto titles = fields_of(line());
        const auto found = std::find(titles.begin(), titles.end(), title);
        if (found == titles.end()) {
            wrong("has no column " + std::string(title) + " in its line " + in_quotes(line()));
        }
        return static_cast<std::size_t>(found - titles.begin());
    }

    double number(std::string_view text) const {
        const auto x = parse_real(text);
        if (!x) wrong_line("has " + in_quotes(text) + " for a number");
        return *x;
    }

    [[noreturn]] void wrong_line(const std::string& what) const {
        throw usage_error(name + ": line " + std::to_string(line_number) + " " + what);
    }

    std::string name;
    file_handle input;
    std::array<char, 65536> buffer;
    std::int64_t line_number = 0;
    std::size_t columns = 0, column_S = 0, column_P = 0;
};

} // namespace

std::unique_ptr<start_source> points_of_file(const std::string& name) {
    start_reader reader(name);
    file_handle points(std::tmpfile());
    std::int64_t count = 0;
    bool kept = points != nullptr;
    for (point p; kept && reader.next(p); ++count)
        kept = std::fwrite(p.data(), sizeof p, 1, points.get()) == 1;
    if (!kept || std::fflush(points.get()) != 0) {
        throw run_error(std::string("temporary file for starts: ") + std::strerror(errno));
    }
    if (count == 0) reader.wrong("has no starts");
    return std::make_unique<file_source>(std::move(points), count);
}

} // namespace batch
