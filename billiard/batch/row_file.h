// SPDX-License-Identifier: MIT
// Where rows go: standard output or a file that ends with a whole row, whatever happens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace batch {

/// What a file that is to be continued holds already.
struct written_rows {
    static constexpr std::size_t most_kept = 768;

    std::int64_t count = 0;       ///< whole rows below the first lines
    std::string first;            ///< of them, without the line's end
    std::deque<std::string> last; ///< of them, up to most_kept
};

/// The reader of the other end of a pipe has gone: a reason to end, and none to complain.
struct closed_pipe {};

/// The open output of a run.
class row_file {
public:
    /// What is told of a file that holds the rows of other work.
    static constexpr const char* not_ours =
        " was made by another command or version; without --resume it is written anew";

    /// Standard output.
    row_file();

    /// The file of that name, emptied. Throws usage_error if it cannot be written.
    explicit row_file(const std::string& name);

    /// The file of that name as it is, or a new one. `head` is what it must begin with. Cuts off
    /// what follows its last whole row and tells in `found` what it holds; a file that was left
    /// before its head was whole is emptied. Throws usage_error if it has another head or cannot be
    /// read and written.
    row_file(const std::string& name, std::string_view head, written_rows& found);

    row_file(const row_file&) = delete;
    row_file& operator=(const row_file&) = delete;
    ~row_file();

    /// True while nothing has been written, or found.
    bool is_empty() const { return size == 0; }

    /// Writes whole rows. Throws run_error with the reason where that fails: a file then ends after
    /// the last row that went in; closed_pipe where nobody reads.
    void write(std::string_view rows);

    /// Closes a file; what the system tells only now fails as a write does.
    void close();

private:
    void open(const std::string& name, int flags);
    void read_back(std::string_view head, written_rows& found);
    [[noreturn]] void fail(int reason) const;

    std::string name;
    int file;
    std::int64_t size = 0; ///< bytes that whole rows take
};

} // namespace batch
