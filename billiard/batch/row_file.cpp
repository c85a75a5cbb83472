// SPDX-License-Identifier: MIT
// Where rows go: standard output or a file that ends with a whole row, whatever happens.
#include "billiard/batch/row_file.h"

#include "billiard/batch/errors.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace batch {

namespace {

constexpr mode_t for_everybody = 0666; // less what the user's mask forbids

bool is_regular(int file) {
    struct stat s {};
    return fstat(file, &s) == 0 && S_ISREG(s.st_mode);
}

} // namespace

row_file::row_file() : name("standard output"), file(STDOUT_FILENO) {
    // Behind what a shell's >> has found there.
    if (is_regular(file)) size = std::max<off_t>(0, lseek(file, 0, SEEK_END));
}

row_file::row_file(const std::string& name) {
    open(name, O_WRONLY | O_CREAT | O_TRUNC);
}

row_file::row_file(const std::string& name, std::string_view head, written_rows& found) {
    open(name, O_RDWR | O_CREAT);
    try {
        read_back(head, found);
    } catch (...) {
        ::close(file);
        throw;
    }
}

void row_file::open(const std::string& path, int flags) {
    name = path;
    file = ::open(path.c_str(), flags | O_CLOEXEC, for_everybody);
    if (file < 0) throw usage_error(name + ": " + std::strerror(errno));
}

row_file::~row_file() {
    if (file != STDOUT_FILENO && file >= 0) ::close(file);
}

namespace {

// Cuts a stream of bytes into lines, and remembers of them what a continued run asks for.
class line_scan {
public:
    line_scan(std::string_view head, written_rows& found) : head(head), found(found) {}

    /// False where the file begins otherwise than the head.
    bool take(std::string_view bytes) {
        if (place < head.size()) {
            const std::string_view expected = head.substr(place, bytes.size());
            if (bytes.substr(0, expected.size()) != expected) return false;
            place += expected.size();
            whole += expected.size();
            bytes.remove_prefix(expected.size());
        }
        while (!bytes.empty()) {
            const std::size_t end = bytes.find('\n');
            line +=
                bytes.substr(0, std::min(end, longest_line - std::min(longest_line, line.size())));
            read += std::min(end, bytes.size());
            if (end == std::string_view::npos) return true;
            if (found.count++ == 0) found.first = line;
            if (found.last.size() == written_rows::most_kept) found.last.pop_front();
            found.last.push_back(std::move(line));
            line.clear();
            whole += read + 1;
            read = 0;
            bytes.remove_prefix(end + 1);
        }
        return true;
    }

    bool head_is_whole() const { return place == head.size(); }

    std::size_t whole = 0; ///< bytes up to the end of the last whole row

private:
    static constexpr std::size_t longest_line = 4096; // of a row only so much is looked at

    std::string_view head;
    written_rows& found;
    std::string line;
    std::size_t place = 0; // in the head
    std::size_t read = 0;  // bytes of the unfinished line
};

} // namespace

void row_file::read_back(std::string_view head, written_rows& found) {
    if (!is_regular(file)) throw usage_error(name + " is no file that --resume could go on with");
    line_scan scan(head, found);
    std::vector<char> buffer(1 << 16);
    for (;;) {
        const ssize_t n = ::read(file, buffer.data(), buffer.size());
        if (n == 0) break;
        if (n < 0) throw usage_error(name + ": " + std::strerror(errno));
        if (scan.take({buffer.data(), static_cast<std::size_t>(n)})) continue;
        throw usage_error(name + not_ours);
    }
    size = scan.head_is_whole() ? static_cast<std::int64_t>(scan.whole) : 0;
    if (ftruncate(file, size) != 0 || lseek(file, size, SEEK_SET) != size) {
        throw usage_error(name + ": " + std::strerror(errno));
    }
}

void row_file::write(std::string_view rows) {
    std::string_view rest = rows;
    while (!rest.empty()) {
        const ssize_t n = ::write(file, rest.data(), rest.size());
        if (n >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(n));
            continue;
        }
        if (errno == EINTR) continue;
        const int reason = errno;
        const std::string_view written = rows.substr(0, rows.size() - rest.size());
        const std::size_t end = written.rfind('\n');
        if (end != std::string_view::npos) size += static_cast<std::int64_t>(end + 1);
        // Where even this fails, --resume and every reader of CSV can still tell the broken row.
        if (is_regular(file) && ftruncate(file, size) != 0) fail(reason);
        fail(reason);
    }
    size += static_cast<std::int64_t>(rows.size());
}

void row_file::close() {
    const int closed = ::close(file);
    file = -1;
    if (closed != 0) fail(errno);
}

void row_file::fail(int reason) const {
    if (reason == EPIPE) throw closed_pipe{};
    throw run_error(name + ": " + std::strerror(reason));
}

} // namespace batch
